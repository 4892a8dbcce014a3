#include "sources/LB_FolderItem.h"

#include "platform/foundation/Files.h"

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

LB_FolderItem::Appearance LB_FolderItem::itemName() const
{
    const QString path = itemID();
    const QString name = path.section(QLatin1Char('/'), -1);
    const bool reachable = isReachable();
    return {.text = name.isEmpty() ? path : name,
            .icon = {},
            .foreground = reachable ? reachableColor : unreachableColor,
            .obliqueness = reachable ? 0.0 : unreachableObliqueness};
}

bool LB_FolderItem::isReachable() const
{
    return lyrabox::files::isReadable(itemID());
}

lyrabox::SourceItemRef LB_FolderItem::makeChild(const QUrl &url)
{
    return std::make_shared<LB_FolderItem>(
        url, std::static_pointer_cast<LB_FolderItem>(shared_from_this()));
}
