#include "sources/LB_DirectoryItem.h"

#include <QFileIconProvider>
#include <QFileInfo>

LB_DirectoryItem::LB_DirectoryItem(const QUrl &url, const std::shared_ptr<LB_DirectoryItem> &parent)
    : DiskFolderItem(url, parent)
{}

QString LB_DirectoryItem::name() const
{
    if (m_isVolume && !m_volumeName.isEmpty())
        return m_volumeName;
    const QString path = lyrabox::folderPath(url());
    const QString last = path.section(QLatin1Char('/'), -1);
    return last.isEmpty() ? path : last;
}

QIcon LB_DirectoryItem::icon() const
{
    static const QFileIconProvider provider;
    const QIcon ofFile = provider.icon(QFileInfo(lyrabox::folderPath(url())));
    return ofFile.isNull() ? provider.icon(QFileIconProvider::Folder) : ofFile;
}

lyrabox::SourceItemRef LB_DirectoryItem::makeChild(const QUrl &url)
{
    return std::make_shared<LB_DirectoryItem>(
        url, std::static_pointer_cast<LB_DirectoryItem>(shared_from_this()));
}
