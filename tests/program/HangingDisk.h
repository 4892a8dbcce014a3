#pragma once

#include <QString>

#include <atomic>
#include <thread>

namespace lyrabox::test {

/// A disk that hangs, like a network folder whose server is gone: every access waits. Mounting it
/// needs root rights. While it is mounted, only the tested program may access it.
class HangingDisk {
public:
    HangingDisk() = default;
    ~HangingDisk() { unplug(); }
    HangingDisk(const HangingDisk &) = delete;
    HangingDisk &operator=(const HangingDisk &) = delete;

    /// Mounts the disk on a folder. Returns false if that is not possible; reason() says why.
    bool mount(const QString &folder);
    QString reason() const { return m_reason; }

    /// Whether an access waits for the disk.
    bool isAsked() const { return m_isAsked; }

    /// Removes the disk. Waiting accesses fail.
    void unplug();

private:
    void serve();

    QString m_reason;
    QByteArray m_path;
    int m_device = -1;
    std::atomic<bool> m_isAsked{false};
    std::atomic<bool> m_stops{false};
    std::thread m_thread;
};

} // namespace lyrabox::test
