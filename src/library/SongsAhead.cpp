#include "library/SongsAhead.h"

#include "engine/LB_AudioController.h"
#include "library/LB_QueueController.h"
#include "library/LB_TrackController.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

bool isSameFile(const TrackRecord &a, const TrackRecord &b)
{
    return a.fileURL == b.fileURL || (a.inode == b.inode && a.inode != "(null)"_L1);
}

} // namespace

QList<QUrl> songsAhead(const TrackRecordRef &current, const TrackRecordRef &next,
                       const TrackRecordRef &selected)
{
    QList<QUrl> songs;
    const auto add = [&](const TrackRecordRef &song, const TrackRecordRef &earlier) {
        if (!song || !song->fileURL.isLocalFile() || (current && isSameFile(*song, *current)) ||
            (earlier && isSameFile(*song, *earlier)))
            return;
        songs.append(song->fileURL);
    };
    add(next, nullptr);
    add(selected, next);
    return songs;
}

SongsAhead::SongsAhead(LB_QueueController *queue, LB_TrackController *tracks,
                       engine::ReadySongs *songs, QObject *parent)
    : QObject(parent), m_queue(queue), m_tracks(tracks), m_songs(songs)
{
    m_update.setSingleShot(true);
    m_update.setInterval(0);
    connect(&m_update, &QTimer::timeout, this, &SongsAhead::update);
    m_rest.setSingleShot(true);
    m_rest.setInterval(restTime);
    connect(&m_rest, &QTimer::timeout, this, [this] {
        m_rested = m_selected;
        update();
    });

    const auto updateSoon = [this] { m_update.start(); };
    connect(queue, &LB_QueueController::queueChanged, this, updateSoon);
    connect(queue->audio(), &LB_AudioController::runningChanged, this, &SongsAhead::noteStart);
    connect(tracks, &LB_TrackController::selectionChanged, this, updateSoon);
    connect(tracks, &LB_TrackController::buildingListChanged, this, &SongsAhead::noteBuilding);
    NotificationCenter::defaultCenter().addObserver(this, notification::currentTrackChanged,
                                                    updateSoon);
}

void SongsAhead::setBatteryIsLow(bool isLow)
{
    if (std::exchange(m_isBatteryLow, isLow) != isLow)
        update();
}

void SongsAhead::noteStart(bool running)
{
    if (!running)
        return;
    m_started = m_queue->audio()->currentTrack();
    m_update.start();
}

void SongsAhead::noteBuilding(bool isBuilding)
{
    m_isBuilding = isBuilding;
    if (isBuilding)
        m_songs->pause();
    m_update.start();
}

/// Starts to wait if another row is selected. A row that is selected again at once, as when marks
/// in the table change, keeps its song.
void SongsAhead::updateSelection()
{
    const TrackRecordRef selected = m_tracks->selectedTrack();
    if (std::exchange(m_selected, selected) == selected)
        return;
    m_rested.reset();
    if (selected)
        m_rest.start();
    else
        m_rest.stop();
}

void SongsAhead::update()
{
    using Work = engine::ReadySongs::Work;
    updateSelection();
    const TrackRecordRef current = m_queue->audio()->currentTrack();
    Work work = current && current == m_started ? Work::Begin : Work::Finish;
    if (m_isBuilding || m_isBatteryLow)
        work = Work::None;
    m_songs->setWanted(songsAhead(current, m_queue->nextTrack(), m_rested), work);
}

} // namespace lyrabox
