#pragma once

#include <QString>

/// Addresses that are set when the program is built (CMake: LYRABOX_SUPPORT_ADDRESS,
/// LYRABOX_WEBSITE, LYRABOX_UPDATE_FEED). Any thread.
namespace lyrabox {

/// An email address.
QString supportAddress();
/// The URL of the website, and of the update feed.
QString websiteAddress();
QString updateFeedAddress();

} // namespace lyrabox
