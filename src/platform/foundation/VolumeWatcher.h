#pragma once

#include "platform/foundation/Volumes.h"

#include <QObject>

#include <functional>
#include <memory>

class QSocketNotifier;

namespace lyrabox {

/// Posts volumeDidMount and volumeDidUnmount when any file system is mounted or unmounted, even one
/// that file managers do not show. The kernel signals the change; nothing is polled. Main thread
/// only.
class VolumeWatcher : public QObject {
    Q_OBJECT

public:
    using ReadTable = std::function<QByteArray()>;

    /// `readTable` returns the mount table in the form of /proc/self/mountinfo. Without one the
    /// kernel's table is read.
    explicit VolumeWatcher(QObject *parent = nullptr, ReadTable readTable = {});
    ~VolumeWatcher() override;

    /// Compares the table with the last one seen and posts the differences. The watcher calls this
    /// itself when the kernel signals a change.
    void check();

private:
    int m_descriptor = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
    ReadTable m_readTable;
    std::vector<Mount> m_mounts;
};

} // namespace lyrabox
