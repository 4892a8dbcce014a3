#include "app/practice/SongSound.h"

#include "app/practice/SongPractice.h"
#include "engine/LB_AudioController.h"
#include "engine/SongChannels.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"

#include <new>
#include <utility>

namespace lyrabox {

namespace {

constexpr int usualCentre = -100;

/// Leaves the engine alone if nothing changes.
void publish(const ChannelTools &tools)
{
    if (engine::channelTools() == tools)
        return;
    try {
        engine::setChannelTools(tools);
    } catch (const std::bad_alloc &) {
        // The song sounds as before. The next change tries again.
    }
}

} // namespace

SongSound::SongSound(LB_AudioController *audio, SongPractice *practice, QObject *parent)
    : QObject(parent), m_audio(audio), m_practice(practice), m_lastCentre(usualCentre)
{
    connect(&practice->store(), &PracticeStore::recordChanged, this, [this] {
        m_canJoin = false;
        follow();
    });
    connect(practice, &SongPractice::problemChanged, this, &SongSound::changed);
    // The engine has made its tools neutral, also if the same song was loaded again.
    connect(audio, &LB_AudioController::aboutToStart, this, &SongSound::follow);
    NotificationCenter::defaultCenter().addObserver(this, notification::currentTrackChanged,
                                                    [this] { follow(); });
    follow();
}

SongSound::~SongSound()
{
    publish({});
}

const ChannelTools &SongSound::kept() const
{
    return m_practice->record().sound.channels;
}

ChannelTools SongSound::tools() const
{
    if (m_originalIsHeard)
        return {};
    ChannelTools tools = kept();
    if (m_isMono)
        tools.centre = 0;
    return tools;
}

bool SongSound::canChange() const
{
    return !m_practice->store().isReadOnly();
}

bool SongSound::change(const ChannelTools &tools, PracticeStep step)
{
    const bool joins = step == PracticeStep::JoinsLast && m_canJoin;
    const bool isMade = m_practice->store().apply(
        {PutChannels{tools}}, joins ? PracticeStep::JoinsLast : PracticeStep::New);
    m_canJoin = isMade;
    return isMade;
}

void SongSound::toggleCentre()
{
    ChannelTools tools = kept();
    tools.centre = tools.centre == 0 ? m_lastCentre : 0;
    change(tools);
}

void SongSound::noteMono(const std::shared_ptr<const DecodedSong> &song)
{
    if (song == nullptr || song != m_song.lock() || std::exchange(m_isMono, true))
        return;
    publish(tools());
    Q_EMIT changed();
}

void SongSound::hearOriginal(bool original)
{
    original = original && !kept().isNeutral();
    if (std::exchange(m_originalIsHeard, original) == original)
        return;
    publish(tools());
    Q_EMIT changed();
}

/// There may be another song.
void SongSound::followSong()
{
    const std::shared_ptr<const DecodedSong> song = m_audio->decodedSong();
    if (song == m_song.lock())
        return;
    m_song = song;
    m_isMono = song != nullptr && song->channels() == 1;
    m_originalIsHeard = false;
    m_lastCentre = usualCentre;
}

/// Anything may have changed.
void SongSound::follow()
{
    followSong();
    if (std::exchange(m_seen, kept()) != kept())
        m_originalIsHeard = false;
    if (kept().centre != 0)
        m_lastCentre = kept().centre;
    publish(tools());
    Q_EMIT changed();
}

} // namespace lyrabox
