#pragma once

#include "platform/foundation/Volumes.h"

#include <QObject>

#include <functional>
#include <memory>

class QSocketNotifier;

namespace lyrabox {

/// Posts volumeDidMount and volumeDidUnmount while it lives, when a file system is mounted or
/// unmounted anywhere, shown or not. The kernel signals the change; nothing is polled. Main thread.
class VolumeWatcher : public QObject {
    Q_OBJECT

public:
    using ReadTable = std::function<QByteArray()>;

    /// `readTable` gives the mount table; by default it is the kernel's.
    explicit VolumeWatcher(QObject *parent = nullptr, ReadTable readTable = {});
    ~VolumeWatcher() override;

    /// Compares the table with the one seen last and posts the difference.
    void check();

private:
    int m_descriptor = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
    ReadTable m_readTable;
    std::vector<Mount> m_mounts;
};

} // namespace lyrabox
