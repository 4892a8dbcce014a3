#pragma once

#include "platform/foundation/PropertyList.h"

#include <QString>
#include <QUrl>

#include <functional>
#include <optional>

namespace lyrabox {

/// One of the files in the settings folder. If the file exists but cannot be read, write() keeps it
/// under another name, so that no settings are lost. Main thread only.
class SettingsFile {
public:
    explicit SettingsFile(QString name);

    /// The content of the file. None if there is no folder, if the file is missing or cannot be
    /// read or parsed, or if `expected` returns false for its content.
    std::optional<PropertyList> read(const std::optional<QUrl> &folder,
                                     const std::function<bool(const PropertyList &)> &expected);

    /// Replaces the file as a whole or not at all. A file that read() could not read is first kept
    /// as "NAME.unreadable-N", with the first free N from 1; if that fails, nothing is written.
    /// Errors are logged. Does nothing without a folder.
    void write(const std::optional<QUrl> &folder, const PropertyList &value);

private:
    QString m_name;
    bool m_isUnreadable = false;
};

} // namespace lyrabox
