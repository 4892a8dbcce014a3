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
    m_errorField->setTextFormat(Qt::PlainText); // titles come from files
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

void LB_QueueController::playNextTrack()
{
    while (m_currentIndex < m_content.size()) {
        ++m_currentIndex;
        Q_EMIT queueChanged();
        const Status status = loadTrackAtCurrentIndex();
        if (status == status::noError)
            return;
        displayLoadError(status);
    }
    m_audio->emptyPlayer();
}

void LB_QueueController::playPreviousTrack()
{
    for (;;) {
        --m_currentIndex;
        Q_EMIT queueChanged();
        const Status status = loadTrackAtCurrentIndex();
        if (status == status::noError)
            return;
        displayLoadError(status);
        if (!canPlayPreviousTrack()) {
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
    // The first stays: it is the song that plays, or the head of the list.
    for (std::size_t i = 1; i < shuffled.size(); ++i)
        std::swap(shuffled[i], shuffled[i + m_random() % (shuffled.size() - i)]);
    return shuffled;
}

void LB_QueueController::displayLoadError(Status status)
{
    const TrackRecordRef track = m_audio->currentTrack();
    const QString title = track ? track->title.value_or(QString()) : QString();
    m_errorField->setText(tr("Error loading '%1' (%2)").arg(title, statusText(status)));
}

std::uint64_t LB_QueueController::indexOfCurrentTrack(const TrackRecordList &list) const
{
    const TrackRecordRef track = m_audio->currentTrack();
    if (!track)
        return notFound;
    // The record itself first: a list may hold the same song twice. A list that was built anew
    // holds the song under another record, which the inode tells.
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
    const TrackRecordRef track =
        m_content[m_currentIndex]; // the load may lead to another list being queued
    return m_audio->loadTrackObject(track);
}
