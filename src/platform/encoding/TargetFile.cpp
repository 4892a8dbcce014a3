#include "platform/encoding/TargetFile.h"

#include "platform/foundation/Files.h"

#include <QFile>
#include <QFileInfo>

#include <atomic>
#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace lyrabox::encoding {

namespace {

constexpr int bufferBytes = 1 << 16;
/// After so many bytes the system begins to write them to the disk. Otherwise the flush at the end
/// would take seconds, in which the export cannot be cancelled.
constexpr std::int64_t pushedAtOnce = 8 << 20;

#if LIBAVFORMAT_VERSION_MAJOR >= 61
using WrittenByte = const std::uint8_t;
#else
using WrittenByte = std::uint8_t;
#endif

/// Whether the file system makes no files without a name.
bool isUnsupported(int error)
{
    return error == EOPNOTSUPP || error == EISDIR || error == EINVAL || error == ENOSYS;
}

/// Makes sure that the new name also survives a power failure. Not every file system can do this,
/// so errors are ignored.
void flushFolder(const QByteArray &folder)
{
    const int file = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (file < 0)
        return;
    ::fsync(file);
    ::close(file);
}

} // namespace

Status statusOfError(int error)
{
    switch (error) {
    case ENOSPC:
    case EDQUOT:
        return status::diskFull;
    case EFBIG:
        return status::fileTooLarge;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
        return status::notWritable;
    case ENOENT:
    case ENOTDIR:
    case ESTALE:
        return status::folderNotFound;
    case ENAMETOOLONG:
        return status::nameTooLong;
    case ENOMEM:
        return status::notEnoughMemory;
    default:
        return status::unspecified;
    }
}

TargetFile::~TargetFile()
{
    if (m_file >= 0)
        ::close(m_file);
    if (!m_temporary.isEmpty())
        ::unlink(m_temporary.constData());
}

Status TargetFile::create(const QString &path, Unnamed unnamed)
{
    const QString target = files::resolvingSymbolicLinks(path);
    m_target = QFile::encodeName(target);
    m_folder = QFile::encodeName(QFileInfo(target).path());
    struct stat info = {};
    if (::stat(m_folder.constData(), &info) != 0)
        return statusOfError(errno);
    if (::lstat(m_target.constData(), &info) != 0) {
        if (errno != ENOENT)
            return statusOfError(errno);
    } else if (!S_ISREG(info.st_mode) || ::access(m_target.constData(), W_OK) != 0) {
        return status::notWritable;
    }
    if (const Status result = unnamed == Unnamed::Never ? openNamed() : openUnnamed())
        return result;

    auto *const buffer = static_cast<unsigned char *>(av_malloc(bufferBytes));
    const auto writing = [](void *self, WrittenByte *bytes, int count) {
        return static_cast<TargetFile *>(self)->write(bytes, count);
    };
    const auto seeking = [](void *self, std::int64_t offset, int whence) {
        return static_cast<const TargetFile *>(self)->seek(offset, whence);
    };
    if (buffer != nullptr)
        m_context.reset(
            avio_alloc_context(buffer, bufferBytes, 1, this, nullptr, writing, seeking));
    if (!m_context) {
        av_free(buffer);
        return status::notEnoughMemory;
    }
    return status::noError;
}

Status TargetFile::openUnnamed()
{
    m_file = ::open(m_folder.constData(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0666);
    if (m_file >= 0)
        return status::noError;
    return isUnsupported(errno) ? openNamed() : statusOfError(errno);
}

Status TargetFile::openNamed()
{
    constexpr int mode = 0666;
    do {
        m_temporary = nextTemporary();
        m_file = ::open(m_temporary.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    } while (m_file < 0 && errno == EEXIST);
    if (m_file >= 0)
        return status::noError;
    const Status result = statusOfError(errno);
    m_temporary.clear();
    return result;
}

/// Gives a file without a name a temporary one, because only a rename replaces the target at once.
Status TargetFile::link()
{
    const QByteArray itself = "/proc/self/fd/" + QByteArray::number(m_file);
    while (m_temporary.isEmpty()) {
        const QByteArray name = nextTemporary();
        if (::linkat(AT_FDCWD, itself.constData(), AT_FDCWD, name.constData(), AT_SYMLINK_FOLLOW) ==
            0)
            m_temporary = name;
        else if (errno != EEXIST)
            return statusOfError(errno);
    }
    return status::noError;
}

QByteArray TargetFile::nextTemporary()
{
    static std::atomic<int> last{0};
    return m_folder + "/.lyrabox-" + QByteArray::number(::getpid()) + '-' +
           QByteArray::number(++last) + ".part";
}

Status TargetFile::commit()
{
    avio_flush(m_context.get());
    if (m_error != status::noError)
        return m_error;
    if (::fsync(m_file) != 0)
        return statusOfError(errno);
    if (const Status result = link())
        return result;
    if (::rename(m_temporary.constData(), m_target.constData()) != 0)
        return statusOfError(errno);
    m_temporary.clear();
    flushFolder(m_folder);
    return status::noError;
}

int TargetFile::write(const std::uint8_t *bytes, int count)
{
    for (int done = 0; done < count && m_error == status::noError;) {
        const ssize_t written =
            ::write(m_file, bytes + done, static_cast<std::size_t>(count - done));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            m_error = statusOfError(written < 0 ? errno : ENOSPC);
        else
            done += static_cast<int>(written);
    }
    if (m_error != status::noError)
        return AVERROR(EIO);
    m_written += count;
    if (m_written - m_pushed >= pushedAtOnce) {
        ::sync_file_range(m_file, m_pushed, m_written - m_pushed, SYNC_FILE_RANGE_WRITE);
        m_pushed = m_written;
    }
    return count;
}

std::int64_t TargetFile::seek(std::int64_t offset, int whence) const
{
    if (whence == AVSEEK_SIZE) {
        struct stat info = {};
        return ::fstat(m_file, &info) == 0 ? info.st_size : AVERROR(errno);
    }
    const off_t place = ::lseek(m_file, offset, whence & ~AVSEEK_FORCE);
    return place >= 0 ? place : AVERROR(errno);
}

} // namespace lyrabox::encoding
