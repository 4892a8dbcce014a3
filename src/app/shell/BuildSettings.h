#pragma once

#include <QString>

/// Addresses that whoever builds the program sets (CMake: LYRABOX_SUPPORT_ADDRESS, LYRABOX_WEBSITE,
/// LYRABOX_UPDATE_FEED).
namespace lyrabox {

QString supportAddress();
QString websiteAddress();
QString updateFeedAddress();

} // namespace lyrabox
