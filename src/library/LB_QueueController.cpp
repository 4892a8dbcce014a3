#include "library/LB_QueueController.h"

#include "engine/LB_AudioController.h"
#include "library/StatusText.h"
#include "platform/foundation/UserDefaults.h"

#include <QLabel>
#include <QRandomGenerator>

#include <algorithm>
#include <utility>

using namespace lyrabox;

LB_QueueController::LB_QueueController(QObject *parent)
    : QObject(parent), m_random([] { return QRandomGenerator::system()->generate(); })
{}

void LB_QueueController::awakeFromNib()
{
    setIsShuffling(userDefaults().value(defaultsKey::shuffle, false).toBool());
}

void LB_QueueController::setErrorField(QLabel *field)
{
    m_errorField = field;
    m_errorField->setTextFormat(Qt::PlainText); // Titles come from files and must not be read as
                                                // markup.
}

void LB_QueueController::setContent(const TrackRecordList &content)
{
    m_content = content;
    Q_EMIT queueChanged();
}

void LB_QueueController::setIsShuffling(bool shuffling)
{
    if (std::exchange(m_isShuffling, shuffling) != shuffling)
        Q_EMIT isShufflingChanged(shuffling);
}

void LB_QueueController::setPlayQueueWithListID(const TrackRecordList &list,
                                                const std::optional<QString> &listID)
{
    m_queuedListID = listID;
    m_orderedArray = list;
    m_content = m_isShuffling ? shuffledArray() : m_orderedArray;
    if (const std::uint64_t index = indexOfCurrentTrack(m_content); index != notFound)
        m_currentIndex = index;
    Q_EMIT queueChanged();
}

void LB_QueueController::playTrack(const TrackRecordRef &track)
{
    m_errorField->clear();
    const Status status = m_audio->loadTrackObject(track);
    if (status == status::noError) {
        m_audio->playPauseButton()->setState(1);
        m_audio->setIsRunning(true);
        return;
    }
    displayLoadError(status);
    m_audio->emptyPlayer();
}

/// Skips a run of songs that cannot be loaded. Displaying the message costs more than the attempt
/// to load, and only the last one can be read, so it is displayed once at the end.
class LB_QueueController::Skip {
public:
    Skip(LB_QueueController &queue, std::uint64_t songs)
        : m_queue(queue),
          m_progress(queue.m_progressHook, queue.m_progressClock, static_cast<qint64>(songs))
    {
        m_progress.setStopProbe(queue.m_makeStopProbe);
    }

    ~Skip()
    {
        if (m_count == 0)
            return;
        m_queue.m_isSkipping = false;
        Q_EMIT m_queue.skippingEnded();
    }

    Skip(const Skip &) = delete;
    Skip &operator=(const Skip &) = delete;

    /// Reports that the current track could not be loaded. Returns false if the user wants to stop.
    bool add(Status status)
    {
        m_failed = m_queue.m_audio->currentTrack();
        m_status = status;
        m_queue.m_isSkipping = true;
        m_progress.advance(++m_count);
        return !m_progress.isStopped();
    }

    /// Displays the error of the last song that could not be loaded, if any.
    void report()
    {
        if (m_count > 0)
            m_queue.showLoadError(m_failed, m_status);
    }

private:
    LB_QueueController &m_queue;
    ProgressPacer m_progress;
    qint64 m_count = 0;
    TrackRecordRef m_failed;
    Status m_status = status::noError;
};

void LB_QueueController::playNextTrack()
{
    const auto count = static_cast<std::uint64_t>(m_content.size());
    Skip skip(*this, m_currentIndex < count ? count - m_currentIndex - 1 : 0);
    bool goesOn = true;
    while (goesOn && m_currentIndex < m_content.size()) {
        ++m_currentIndex;
        Q_EMIT queueChanged();
        const Status status = loadTrackAtCurrentIndex();
        if (status == status::noError) {
            skip.report();
            return;
        }
        goesOn = skip.add(status);
    }
    skip.report();
    m_audio->emptyPlayer();
}

TrackRecordRef LB_QueueController::nextTrack() const
{
    if (m_currentIndex >= m_content.size() || !hasNextTrack())
        return nullptr;
    return m_content[m_currentIndex + 1];
}

void LB_QueueController::playPreviousTrack()
{
    Skip skip(*this, std::min<std::uint64_t>(m_currentIndex, m_content.size()));
    for (;;) {
        --m_currentIndex;
        Q_EMIT queueChanged();
        const Status status = loadTrackAtCurrentIndex();
        if (status == status::noError) {
            skip.report();
            return;
        }
        if (!skip.add(status) || !canPlayPreviousTrack()) {
            skip.report();
            m_audio->emptyPlayer();
            return;
        }
    }
}

void LB_QueueController::shuffleButtonPressed(StateButton *sender)
{
    m_content = sender->state() == 1 ? shuffledArray() : m_orderedArray;
    m_currentIndex = indexOfCurrentTrack(m_content);
    Q_EMIT queueChanged();
    userDefaults().setValue(defaultsKey::shuffle, m_isShuffling);
}

TrackRecordList LB_QueueController::shuffledArray() const
{
    TrackRecordList shuffled = m_orderedArray;
    if (const std::uint64_t current = indexOfCurrentTrack(shuffled); current != notFound)
        std::swap(shuffled[0], shuffled[current]);
    // The first song stays: it is the one that plays, or the first of the list if none plays.
    for (std::size_t i = 1; i < shuffled.size(); ++i)
        std::swap(shuffled[i], shuffled[i + m_random() % (shuffled.size() - i)]);
    return shuffled;
}

void LB_QueueController::displayLoadError(Status status)
{
    showLoadError(m_audio->currentTrack(), status);
}

void LB_QueueController::showLoadError(const TrackRecordRef &track, Status status)
{
    const QString title = track ? track->title.value_or(QString()) : QString();
    m_errorField->setText(tr("Error loading '%1' (%2)").arg(title, statusText(status)));
}

std::uint64_t LB_QueueController::indexOfCurrentTrack(const TrackRecordList &list) const
{
    const TrackRecordRef track = m_audio->currentTrack();
    if (!track)
        return notFound;
    // First look for the record itself, because a list may hold a song twice. A rebuilt list has
    // another record with the same inode.
    auto found = std::find(list.begin(), list.end(), track);
    if (found == list.end()) {
        found = std::find_if(list.begin(), list.end(), [&](const TrackRecordRef &record) {
            return record->inode == track->inode;
        });
    }
    return found == list.end() ? notFound : static_cast<std::uint64_t>(found - list.begin());
}

Status LB_QueueController::loadTrackAtCurrentIndex()
{
    if (m_currentIndex >= m_content.size())
        return status::noError;
    // A copy, because loading may replace the queue's list.
    const TrackRecordRef track = m_content[m_currentIndex];
    return m_audio->loadTrackObject(track);
}
