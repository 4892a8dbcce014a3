#pragma once

#include <QString>
#include <QStringView>
#include <QUrl>
#include <QVariant>

#include <memory>
#include <optional>
#include <vector>

namespace lyrabox {

/// One playable song. The player, the queue and the track list share the same records. `isPlaying`
/// and `hasSettings` change in place. Main thread only.
struct TrackRecord {
    QUrl fileURL;                 ///< empty if the record has no file
    std::optional<QString> title; ///< always set if the record has a file
    QString artist;               ///< empty when unknown
    QString album;                ///< empty when unknown
    QVariant durationSeconds;     ///< seconds as float, double or decimal text, see durationValue()
    int order = 0;                ///< 1-based position in the list as it was built
    QString inode;                ///< decimal text or "(null)"; equal texts mean the same song
    bool isPlaying = false;
    bool hasSettings = false;

    /// The length in seconds. 0 if it is unknown or not a number.
    double durationValue() const;

    /// The value under a record key such as "title" or "durationSeconds". Invalid if the record has
    /// no such value.
    QVariant value(QStringView key) const;
};

using TrackRecordRef = std::shared_ptr<TrackRecord>;
using TrackRecordList = std::vector<TrackRecordRef>;

} // namespace lyrabox
