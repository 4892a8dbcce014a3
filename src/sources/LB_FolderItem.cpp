#include "sources/LB_FolderItem.h"

namespace {

const QColor reachableColor = QColor(Qt::black);
const QColor unreachableColor = QColor::fromRgb(0x55, 0x55, 0x55);
constexpr double unreachableObliqueness = 0.2;

} // namespace

LB_FolderItem::LB_FolderItem(const QUrl &url, const std::shared_ptr<LB_FolderItem> &parent)
    : DiskFolderItem(url, parent)
{}

QString LB_FolderItem::itemID() const
{
    return lyrabox::folderPath(url());
}

QString LB_FolderItem::text() const
{
    const QString path = itemID();
    const QString name = path.section(QLatin1Char('/'), -1);
    return name.isEmpty() ? path : name;
}

LB_FolderItem::TextStyle LB_FolderItem::textStyle() const
{
    if (isReachable())
        return {.foreground = reachableColor, .obliqueness = 0.0};
    return {.foreground = unreachableColor, .obliqueness = unreachableObliqueness};
}

bool LB_FolderItem::isReachable() const
{
    return lyrabox::isReadableFolder(itemID());
}

lyrabox::SourceItemRef LB_FolderItem::makeChild(const QUrl &url)
{
    return std::make_shared<LB_FolderItem>(
        url, std::static_pointer_cast<LB_FolderItem>(shared_from_this()));
}
