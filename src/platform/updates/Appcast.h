#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <compare>
#include <optional>
#include <vector>

namespace lyrabox {

/// One release in an appcast feed.
struct AppcastItem {
    QString version; ///< as written in the feed
    QString notes;   ///< plain text
    QUrl page;       ///< https; empty if the feed has no https address for it
};

/// Reads an appcast: an RSS feed in which each item has a version, as an element or as an attribute
/// of its enclosure. None if `feed` is malformed or not an RSS feed. Items without a version and
/// items for other systems are skipped. Any thread.
std::optional<std::vector<AppcastItem>> parseAppcast(const QByteArray &feed);

/// Compares versions by their numbers: 1.10 is newer than 1.9, and 1.0 equals 1.0.0. A pre-release
/// (1.0b2, 1.0-rc1) is older than its release. Any thread.
std::weak_ordering compareVersions(const QString &a, const QString &b);

/// The newest item, if it is newer than the version `current`. Any thread.
std::optional<AppcastItem> newestUpdate(const std::vector<AppcastItem> &items,
                                        const QString &current);

/// Converts HTML to plain text. Tags are dropped, entities are decoded, and every paragraph and
/// list item gets a line of its own. Any thread.
QString plainTextFromHtml(const QString &html);

} // namespace lyrabox
