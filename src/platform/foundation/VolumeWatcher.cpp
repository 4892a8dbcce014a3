#include "platform/foundation/VolumeWatcher.h"

#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"

#include <QFile>
#include <QSocketNotifier>

#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace lyrabox {
namespace {

constexpr const char *mountTablePath = "/proc/self/mountinfo";

QByteArray kernelMountTable()
{
    QFile file(QString::fromLatin1(mountTablePath));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

VolumeWatcher::VolumeWatcher(QObject *parent, ReadTable readTable)
    : QObject(parent), m_readTable(readTable ? std::move(readTable) : ReadTable(kernelMountTable))
{
    // The kernel reports a change as an exceptional condition of the open file.
    m_descriptor = open(mountTablePath, O_RDONLY | O_CLOEXEC);
    if (m_descriptor >= 0) {
        m_notifier = std::make_unique<QSocketNotifier>(m_descriptor, QSocketNotifier::Exception);
        connect(m_notifier.get(), &QSocketNotifier::activated, this, &VolumeWatcher::check);
    }
    m_mounts = parseMounts(m_readTable()); // after the file was opened, so that no change is missed
}

VolumeWatcher::~VolumeWatcher()
{
    m_notifier.reset();
    if (m_descriptor >= 0)
        close(m_descriptor);
}

void VolumeWatcher::check()
{
    const std::vector<Mount> before = std::exchange(m_mounts, parseMounts(m_readTable()));
    const MountChange change = mountChange(before, m_mounts);
    if (change.isUnmounted)
        NotificationCenter::defaultCenter().post(notification::volumeDidUnmount);
    if (change.isMounted)
        NotificationCenter::defaultCenter().post(notification::volumeDidMount);
}

} // namespace lyrabox
