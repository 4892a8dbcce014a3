#pragma once

#include <QString>
#include <QStringView>
#include <QUrl>
#include <QVariant>

#include <memory>
#include <optional>
#include <vector>

namespace lyrabox {

/// One playable song. The player, the queue and the track list share the same records, and
/// "isPlaying" and "hasSettings" are rewritten in place. Main thread only.
struct TrackRecord {
    QUrl fileURL;                 ///< empty: the record has none
    std::optional<QString> title; ///< always there for a record built from a file
    QString artist;               ///< empty when unknown
    QString album;                ///< empty when unknown
    QVariant durationSeconds;     ///< as the source gives it: float, double or decimal text; read
                                  ///< durationValue()
    int order = 0;                ///< 1-based position in the list as it was built
    QString inode;                ///< decimal text, or "(null)"; equal text is the same song
    bool isPlaying = false;
    bool hasSettings = false;

    /// The numeric length in seconds; 0 when it is not known or not a number.
    double durationValue() const;

    /// The value under a record key ("title", "durationSeconds", …); invalid when the key is
    /// missing.
    QVariant value(QStringView key) const;
};

using TrackRecordRef = std::shared_ptr<TrackRecord>;
using TrackRecordList = std::vector<TrackRecordRef>;

} // namespace lyrabox
