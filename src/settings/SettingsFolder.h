#pragma once

#include <QUrl>

#include <optional>
#include <system_error>

namespace lyrabox {

/// The folder that holds the settings files and the lock of the running program.
struct SettingsFolder {
    std::optional<QUrl> url; ///< where it lies or would lie; none without a folder for it
    std::error_code error;   ///< why it could not be made

    bool isThere() const { return url && !error; }
};

/// Finds the folder and makes it when it is missing. Logs nothing. Any thread.
SettingsFolder makeSettingsFolder();

} // namespace lyrabox
