#pragma once

#include "platform/foundation/PropertyList.h"

#include <QString>
#include <QUrl>

#include <functional>
#include <optional>

namespace lyrabox {

/// One of the files in the settings folder. Remembers that it was there and could not be read, so
/// that what it held outlives the writing.
class SettingsFile {
public:
    explicit SettingsFile(QString name);

    /// The file's content; none without a folder, when the file is missing, cannot be read or
    /// parsed, or its root is not the `expected` one.
    std::optional<PropertyList> read(const std::optional<QUrl> &folder,
                                     const std::function<bool(const PropertyList &)> &expected);

    /// Replaces the file, whole or not at all. One that could not be read is first kept as
    /// "NAME.unreadable-N", with the first N from 1 that is free, and is left alone when that
    /// fails. Failures are logged. Without a folder, nothing.
    void write(const std::optional<QUrl> &folder, const PropertyList &value);

private:
    bool keepUnreadable(const QString &path);

    QString m_name;
    bool m_isUnreadable = false;
};

} // namespace lyrabox
