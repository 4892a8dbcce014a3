#include "program/HangingDisk.h"

#include <QFile>

#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <linux/fuse.h>
#include <poll.h>
#include <sys/mount.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::test {

bool HangingDisk::mount(const QString &folder)
{
    m_device = ::open("/dev/fuse", O_RDWR | O_CLOEXEC);
    const QByteArray options =
        "fd=" + QByteArray::number(m_device) + ",rootmode=40000,user_id=0,group_id=0,allow_other";
    m_path = QFile::encodeName(folder);
    if (m_device < 0 || ::mount("hanging", m_path.constData(), "fuse", MS_NOSUID | MS_NODEV,
                                options.constData()) != 0) {
        m_reason = QString::fromLocal8Bit(std::strerror(errno));
        if (m_device >= 0)
            ::close(std::exchange(m_device, -1));
        return false;
    }
    m_thread = std::thread([this] { serve(); });
    return true;
}

void HangingDisk::unplug()
{
    if (m_device < 0)
        return;
    m_stops = true;
    m_thread.join();
    ::umount2(m_path.constData(), MNT_DETACH);
    ::close(std::exchange(m_device, -1)); // ends the connection and all waiting accesses
}

/// Negotiates the protocol and reads no further requests. A process that waits for an unread
/// request can be killed; for a request that was read, the kernel would wait for the answer.
void HangingDisk::serve()
{
    alignas(fuse_in_header) std::array<char, 1 << 18> request{};
    bool isAgreed = false;
    while (!m_stops) {
        pollfd file{m_device, POLLIN, 0};
        constexpr int waitMilliseconds = 20;
        if (::poll(&file, 1, waitMilliseconds) <= 0)
            continue;
        if (isAgreed) {
            m_isAsked = true;
            ::usleep(1000 * waitMilliseconds);
            continue;
        }
        if (::read(m_device, request.data(), request.size()) <= 0)
            continue;
        fuse_in_header header{};
        std::memcpy(&header, request.data(), sizeof header);
        if (header.opcode != FUSE_INIT)
            continue;
        isAgreed = true;
        struct {
            fuse_out_header header;
            fuse_init_out init;
        } answer{};
        answer.header = {.len = sizeof answer, .error = 0, .unique = header.unique};
        answer.init.major = FUSE_KERNEL_VERSION;
        answer.init.minor = FUSE_KERNEL_MINOR_VERSION;
        answer.init.max_write = 4096;
        [[maybe_unused]] const ssize_t written = ::write(m_device, &answer, sizeof answer);
    }
}

} // namespace lyrabox::test
