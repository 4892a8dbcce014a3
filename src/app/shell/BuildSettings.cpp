#include "app/shell/BuildSettings.h"

namespace lyrabox {

QString supportAddress()
{
    return QStringLiteral(LYRABOX_SUPPORT_ADDRESS);
}

QString websiteAddress()
{
    return QStringLiteral(LYRABOX_WEBSITE);
}

QString updateFeedAddress()
{
    return QStringLiteral(LYRABOX_UPDATE_FEED);
}

} // namespace lyrabox
