#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <compare>
#include <optional>
#include <vector>

namespace lyrabox {

/// One release of an appcast feed.
struct AppcastItem {
    QString version; ///< as the feed gives it, for people
    QString notes;   ///< plain text
    QUrl page;       ///< https; empty when the feed has no usable one
};

/// Reads an appcast (RSS with a version per item, as an element or on the enclosure). None when it
/// is malformed or no feed at all; items without a version and those for another system are left
/// out.
std::optional<std::vector<AppcastItem>> parseAppcast(const QByteArray &feed);

/// Compares versions by their numbers: 1.10 is newer than 1.9, 1.0 equals 1.0.0, and a pre-release
/// (1.0b2, 1.0-rc1) comes before its release.
std::weak_ordering compareVersions(const QString &a, const QString &b);

/// The newest item that is newer than `current`; none when there is none.
std::optional<AppcastItem> newestUpdate(const std::vector<AppcastItem> &items,
                                        const QString &current);

/// HTML as plain text: tags dropped, paragraphs and list items on lines of their own, entities
/// resolved.
QString plainTextFromHtml(const QString &html);

} // namespace lyrabox
