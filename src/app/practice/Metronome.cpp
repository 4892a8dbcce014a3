#include "app/practice/Metronome.h"

#include "app/practice/SongPractice.h"
#include "engine/ClicksAndLeadIns.h"
#include "engine/LB_AudioController.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"

#include <algorithm>
#include <utility>

namespace lyrabox {

Metronome::Metronome(LB_AudioController *audio, SongPractice *practice, QObject *parent)
    : QObject(parent),
      m_audio(audio),
      m_practice(practice),
      m_song(audio->decodedSong()),
      m_click(storedClickSettings()),
      m_countIn(storedCountInSettings())
{
    connect(&practice->store(), &PracticeStore::recordChanged, this, &Metronome::follow);
    connect(practice, &SongPractice::openChanged, this, &Metronome::followSong);
    connect(audio, &LB_AudioController::loopChanged, this, &Metronome::follow);
    connect(audio, &LB_AudioController::aboutToStart, this, &Metronome::prepareStart);
    // The practice was made before, so it has opened the record of the new song by now.
    NotificationCenter::defaultCenter().addObserver(this, notification::currentTrackChanged,
                                                    [this] { followSong(); });
    follow();
}

Metronome::~Metronome()
{
    m_clickIsOn = false;
    publishClicks();
    publishAtWrap({});
    publishAtStart({});
}

void Metronome::setClickOn(bool on)
{
    if (std::exchange(m_clickIsOn, on) == on)
        return;
    follow();
}

void Metronome::setClick(ClickSettings settings)
{
    clean(settings);
    if (std::exchange(m_click, settings) == settings)
        return;
    store(settings);
    follow();
}

void Metronome::setCountInOn(bool on)
{
    if (std::exchange(m_countInIsOn, on) == on)
        return;
    follow();
}

void Metronome::setCountIn(CountInSettings settings)
{
    clean(settings);
    if (std::exchange(m_countIn, settings) == settings)
        return;
    store(settings);
    follow();
}

bool Metronome::songHasBeats() const
{
    return !m_practice->record().beats.grid.isEmpty();
}

bool Metronome::canSetLoopBars() const
{
    const std::optional<LoopRange> loop = m_audio->loop();
    return loop && loop->start < loop->end && !songHasBeats();
}

std::optional<LoopBars> Metronome::loopBars() const
{
    const std::optional<LoopRange> loop = m_audio->loop();
    const auto told = std::ranges::find_if(
        m_told, [&loop](const ToldLoop &each) { return loop && each.range == *loop; });
    return told == m_told.end() ? std::nullopt : std::optional(told->bars);
}

void Metronome::setLoopBars(std::optional<LoopBars> bars)
{
    const std::optional<LoopRange> loop = m_audio->loop();
    if (!loop || loopBars() == bars)
        return;
    std::erase_if(m_told, [&loop](const ToldLoop &each) { return each.range == *loop; });
    if (bars)
        m_told.push_back({.range = *loop, .bars = *bars});
    follow();
}

void Metronome::setBeforePass(std::optional<BeforePass> before)
{
    if (std::exchange(m_beforePass, before) == before)
        return;
    follow();
}

bool Metronome::isActive() const
{
    return m_practice->isOpen() && m_audio->decodedSong() != nullptr;
}

/// Another song, or the pane was opened or closed. The engine drops clicks and lead-ins only with
/// its song, and keeps that if a load fails.
void Metronome::followSong()
{
    const std::shared_ptr<const DecodedSong> song = m_audio->decodedSong();
    if (song != m_song.lock()) {
        m_told.clear();
        if (std::exchange(m_clicks, nullptr))
            engine::setClicks(nullptr);
        publishAtWrap({});
        publishAtStart({});
    }
    m_song = song;
    follow();
}

/// Anything that the clicks depend on may have changed.
void Metronome::follow()
{
    followBeats();
    publishSound();
    publishClicks();
    const std::optional<LoopRange> loop = m_audio->loop();
    const bool isPlayed = loop && loop->start < loop->end;
    publishAtWrap(isPlayed ? leadInBefore(loop->start, false) : LeadIn());
    Q_EMIT changed();
}

void Metronome::followBeats()
{
    const BeatGrid &song = m_practice->record().beats.grid;
    const std::optional<LoopBars> told = song.isEmpty() ? loopBars() : std::nullopt;
    BeatGrid beats = told ? metronome::gridOfLoop(*m_audio->loop(), *told) : song;
    if (!(beats == m_beats))
        m_beats = std::move(beats);
}

/// The output starts at `frame`.
void Metronome::prepareStart(quint64 frame)
{
    // A song that has just been loaded starts before its record is open.
    if (m_audio->decodedSong() != m_song.lock()) {
        publishAtStart({});
        return;
    }
    const std::optional<LoopRange> loop = m_audio->loop();
    const bool isBehind = loop && loop->start < loop->end && frame >= loop->end;
    const LeadIn leadIn = leadInBefore(isBehind ? loop->start : frame, true);
    // The engine would jump to the loop's start anyway, but only after the count-in.
    if (isBehind && leadIn.frames > 0)
        m_audio->setCurrentFrame(loop->start);
    publishAtStart(leadIn);
}

LeadIn Metronome::leadInBefore(quint64 frame, bool isStart) const
{
    if (!isActive())
        return {};
    if (m_beforePass) {
        const CountInLength length{.unit = CountInLength::Unit::Beats,
                                   .amount = m_beforePass->beats};
        switch (m_beforePass->kind) {
        case BetweenPasses::CountIn:
            return metronome::countInBefore(m_beats, frame, length);
        case BetweenPasses::Rest:
            return metronome::restBefore(m_beats, frame, m_beforePass->beats);
        case BetweenPasses::RunUp:
        case BetweenPasses::Nothing:
            return {};
        }
    }
    const bool isWanted =
        m_countInIsOn && (isStart || m_countIn.when == CountInSettings::When::EveryPass);
    return isWanted ? metronome::countInBefore(m_beats, frame, m_countIn.length) : LeadIn();
}

void Metronome::publishClicks()
{
    std::shared_ptr<const ClickTable> clicks;
    if (m_clickIsOn && isActive()) {
        const quint64 songFrames = m_audio->totalFrames();
        const bool isMade = m_made.songFrames == songFrames && m_made.pattern == m_click.pattern &&
                            m_made.beats == m_beats;
        if (!isMade)
            m_made = {.beats = m_beats,
                      .pattern = m_click.pattern,
                      .songFrames = songFrames,
                      .table = metronome::clicksOn(m_beats, songFrames, m_click.pattern)};
        clicks = m_made.table;
    } else {
        m_made = {};
    }
    if (std::exchange(m_clicks, clicks) != clicks)
        engine::setClicks(clicks);
}

/// The engine keeps the sound when a song is loaded, so it is told once and at each change.
void Metronome::publishSound()
{
    const ClickSound sound = m_click.sound();
    const bool isNeeded = m_clickIsOn || m_countInIsOn || m_beforePass;
    if (isNeeded && m_sound != sound) {
        m_sound = sound;
        engine::setClickSound(sound);
    }
}

void Metronome::publishAtWrap(const LeadIn &leadIn)
{
    if (std::exchange(m_atWrap, leadIn) != leadIn)
        engine::setLeadInAtWrap(leadIn);
}

void Metronome::publishAtStart(const LeadIn &leadIn)
{
    if (std::exchange(m_atStart, leadIn) != leadIn)
        engine::setLeadInAtStart(leadIn);
}

} // namespace lyrabox
