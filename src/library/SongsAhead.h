#pragma once

#include "engine/ReadySongs.h"
#include "engine/TrackRecord.h"

#include <QList>
#include <QObject>
#include <QTimer>
#include <QUrl>

#include <chrono>

class LB_QueueController;
class LB_TrackController;

namespace lyrabox {

/// The files that are worth decoding in advance, the most urgent first: the next song and the
/// selected one, without the song that is loaded and without a file twice. Each record may be null.
QList<QUrl> songsAhead(const TrackRecordRef &current, const TrackRecordRef &next,
                       const TrackRecordRef &selected);

/// Has the songs made ready that will probably be played next: the song that follows in the queue,
/// and the selected song of the list once the selection has rested for a moment. Nothing begins
/// before the present song is started, while a list is built, or while the battery is low. Main
/// thread only.
class SongsAhead : public QObject {
    Q_OBJECT

public:
    /// How long a row must stay selected.
    static constexpr std::chrono::milliseconds restTime{300};

    /// The objects must outlive this one. `queue` must have its player.
    SongsAhead(LB_QueueController *queue, LB_TrackController *tracks, engine::ReadySongs *songs,
               QObject *parent = nullptr);

    /// While the battery is low, nothing is decoded in advance. Songs that are ready stay.
    void setBatteryIsLow(bool isLow);

    /// Replaces restTime. For tests.
    void setRestTime(std::chrono::milliseconds time) { m_rest.setInterval(time); }

private:
    void noteStart(bool running);
    void noteBuilding(bool isBuilding);
    void updateSelection();
    void update();

    LB_QueueController *m_queue;
    LB_TrackController *m_tracks;
    engine::ReadySongs *m_songs;
    TrackRecordRef m_started;  ///< the song that was started last
    TrackRecordRef m_selected; ///< as seen last
    TrackRecordRef m_rested;   ///< the selected song, once it has rested
    bool m_isBuilding = false;
    bool m_isBatteryLow = false;
    QTimer m_rest;
    QTimer m_update; ///< several changes in one go cause one update
};

} // namespace lyrabox
