#pragma once

#include <QString>

#include <atomic>
#include <thread>

namespace lyrabox::test {

/// A disk that hangs, as a network folder whose server has gone: whoever asks it anything waits.
/// Root rights are needed to mount it. Only the program that is tested may go near it meanwhile.
class HangingDisk {
public:
    HangingDisk() = default;
    ~HangingDisk() { unplug(); }
    HangingDisk(const HangingDisk &) = delete;
    HangingDisk &operator=(const HangingDisk &) = delete;

    /// Mounts it on a folder; false when that is not possible, for the reason().
    bool mount(const QString &folder);
    QString reason() const { return m_reason; }

    /// Whether somebody waits for it.
    bool isAsked() const { return m_isAsked; }

    /// Takes it away: those who wait get an error.
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
