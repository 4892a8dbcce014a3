#pragma once

#include <QUrl>

#include <optional>
#include <system_error>

namespace lyrabox {

/// The folder that holds the settings files and the lock of the running program.
struct SettingsFolder {
    std::optional<QUrl>
        url; ///< set even if the folder could not be created; none if the user has no data folder
    std::error_code error; ///< set if the folder could not be created

    bool isThere() const { return url && !error; }
};

/// Finds the folder and creates it if it is missing. Logs nothing. Any thread.
SettingsFolder makeSettingsFolder();

} // namespace lyrabox
