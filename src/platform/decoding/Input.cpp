#include "platform/decoding/Input.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <new>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace lyrabox::decoding {

namespace {

constexpr int bufferBytes = 32 << 10;

Status statusOf(int error)
{
    switch (error) {
    case ENOENT:
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP:
        return status::fileNotFound;
    case EACCES:
    case EPERM:
        return status::noPermission;
    case ENOMEM:
        return status::notEnoughMemory;
    default:
        return status::unspecified;
    }
}

/// Processor time of the calling thread in nanoseconds.
std::int64_t threadTime()
{
    timespec time = {};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

} // namespace

Input::~Input()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

Status Input::open(const QString &path)
{
    if (path.isEmpty() || path.contains(QChar(0)))
        return status::fileNotFound;
    const QByteArray name = QFile::encodeName(path);
    struct stat attributes = {};
    // Checked before opening as well, because opening a device can have side effects.
    if (::stat(name.constData(), &attributes) != 0)
        return statusOf(errno);
    if (!S_ISREG(attributes.st_mode))
        return status::unsupportedFileType;
    // If a pipe has replaced the file by now, O_NONBLOCK keeps open() from waiting for a writer.
    m_descriptor = ::open(name.constData(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
    if (m_descriptor < 0 || ::fstat(m_descriptor, &attributes) != 0)
        return statusOf(errno);
    if (!S_ISREG(attributes.st_mode))
        return status::unsupportedFileType;
    m_size = attributes.st_size;
    m_openingStart = threadTime();

    auto *buffer = static_cast<std::uint8_t *>(av_malloc(bufferBytes));
    m_context.reset(
        buffer ? avio_alloc_context(buffer, bufferBytes, 0, this, &readPacket, nullptr, &seek)
               : nullptr);
    if (!m_context) {
        av_free(buffer);
        return status::notEnoughMemory;
    }
    return status::noError;
}

std::size_t Input::peek(std::int64_t offset, std::span<std::uint8_t> bytes) const
{
    std::size_t got = 0;
    while (got < bytes.size()) {
        const auto count = ::pread(m_descriptor, bytes.data() + got, bytes.size() - got,
                                   m_start + offset + static_cast<std::int64_t>(got));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            break;
        got += static_cast<std::size_t>(count);
    }
    return got;
}

void Input::setWaitHook(std::function<void()> hook)
{
    m_waitHook = std::move(hook);
    m_waiting = std::this_thread::get_id();
}

bool Input::isExhausted() const
{
    return m_sinceProgress >= m_readLimit || m_stop.stop_requested() ||
           (m_isOpening && threadTime() - m_openingStart > openingLimit);
}

void Input::blankOut(std::span<std::uint8_t> bytes) const
{
    const auto size = static_cast<std::int64_t>(bytes.size());
    for (const auto &[offset, length] : m_blanks) {
        const std::int64_t from = std::clamp<std::int64_t>(offset - m_position, 0, size);
        const std::int64_t to = std::clamp<std::int64_t>(offset + length - m_position, from, size);
        std::fill(bytes.begin() + from, bytes.begin() + to, std::uint8_t{0});
    }
}

/// Filters bytes that were read at the current position. Returns how many of them FFmpeg may have.
std::int64_t Input::filter(std::span<std::uint8_t> bytes) const
{
    blankOut(bytes);
    try {
        return static_cast<std::int64_t>(m_inspector ? m_inspector->inspect(m_position, bytes)
                                                     : bytes.size());
    } catch (const std::bad_alloc &) { // The caller is C code, which exceptions must not cross.
        return 0;
    }
}

int Input::readPacket(void *self, std::uint8_t *buffer, int size)
{
    auto &input = *static_cast<Input *>(self);
    if (input.isExhausted())
        return AVERROR_EOF;
    for (;;) {
        const auto count = ::pread(input.m_descriptor, buffer, static_cast<std::size_t>(size),
                                   input.m_start + input.m_position);
        if (count > 0) {
            const auto passedOn = input.filter(std::span(buffer, static_cast<std::size_t>(count)));
            if (passedOn == 0)
                return AVERROR_EOF;
            input.m_position += passedOn;
            input.m_sinceProgress += passedOn;
            if (input.m_waitHook && std::this_thread::get_id() == input.m_waiting)
                input.m_waitHook();
            return static_cast<int>(passedOn);
        }
        if (count == 0)
            return AVERROR_EOF;
        if (errno != EINTR) {
            input.m_error = statusOf(errno);
            return AVERROR(errno);
        }
    }
}

std::int64_t Input::seek(void *self, std::int64_t offset, int whence)
{
    auto &input = *static_cast<Input *>(self);
    switch (whence & ~AVSEEK_FORCE) {
    case AVSEEK_SIZE:
        return input.size();
    case SEEK_SET:
        break;
    case SEEK_CUR:
        offset += input.m_position;
        break;
    case SEEK_END:
        offset += input.size();
        break;
    default:
        return AVERROR(EINVAL);
    }
    if (offset < 0)
        return AVERROR(EINVAL);
    // A position past the end reads as the end, as in any file.
    input.m_position = std::min(offset, input.size());
    return input.m_position;
}

} // namespace lyrabox::decoding
