#pragma once

#include "app/practice/MetronomeRules.h"
#include "app/practice/MetronomeSettings.h"
#include "engine/DecodedSong.h"
#include "practice/SpeedTrainer.h"

#include <QObject>

#include <memory>
#include <optional>

class LB_AudioController;

namespace lyrabox {

class SongPractice;

/// The click and the count-in of the song that plays. Follows the song's beats, the player and the
/// loop, and tells the engine what to click. Both begin switched off, stay as they are when another
/// song is loaded, and are silent while the pane is closed. While both are off, nothing is computed
/// and the engine is left alone. Main thread.
///
/// A count-in comes when the player starts and when a loop is called up. It does not come when a
/// song is opened, when another place is sought, or when an end of the loop is moved.
class Metronome : public QObject {
    Q_OBJECT

public:
    /// Both must outlive this object.
    Metronome(LB_AudioController *audio, SongPractice *practice, QObject *parent = nullptr);
    ~Metronome() override;

    bool clickIsOn() const { return m_clickIsOn; }
    void setClickOn(bool on);
    const ClickSettings &click() const { return m_click; }
    /// Numbers are brought within their ranges. The settings are stored.
    void setClick(ClickSettings settings);

    bool countInIsOn() const { return m_countInIsOn; }
    void setCountInOn(bool on);
    const CountInSettings &countIn() const { return m_countIn; }
    /// As setClick().
    void setCountIn(CountInSettings settings);

    /// The beats that clicks and count-ins follow: those of the song, else those of the loop if
    /// loopBars() is set. Without beats both are silent.
    const BeatGrid &beats() const { return m_beats; }
    /// Whether the song has a grid of its own, so that loopBars() is not used.
    bool songHasBeats() const;

    /// Whether there is a loop whose bars can be told: the song has no grid.
    bool canSetLoopBars() const;
    /// What the user has told of the loop that the player repeats, for as long as the song is open
    /// and the loop keeps its ends.
    std::optional<LoopBars> loopBars() const;
    /// None forgets it. Does nothing without a loop.
    void setLoopBars(std::optional<LoopBars> bars);

    /// What a trainer wants before the next pass of the loop and before a start, whatever the
    /// user's count-in is. A run-up is music, so nothing comes before it. Call it with none at the
    /// end of the run.
    void setBeforePass(std::optional<BeforePass> before);

Q_SIGNALS:
    /// Anything above has changed.
    void changed();

private:
    bool isActive() const;
    void followSong();
    void follow();
    void followBeats();
    void prepareStart(quint64 frame);
    LeadIn leadInBefore(quint64 frame, bool isStart) const;
    void publishClicks();
    void publishSound();
    void publishAtWrap(const LeadIn &leadIn);
    void publishAtStart(const LeadIn &leadIn);

    LB_AudioController *m_audio;
    SongPractice *m_practice;
    std::weak_ptr<const DecodedSong> m_song; ///< whose record is open

    bool m_clickIsOn = false;
    ClickSettings m_click;
    bool m_countInIsOn = false;
    CountInSettings m_countIn;
    std::optional<BeforePass> m_beforePass;

    /// A loop with its bars.
    struct ToldLoop {
        LoopRange range;
        LoopBars bars;
    };
    std::vector<ToldLoop> m_told; ///< of the song that is open

    BeatGrid m_beats;

    /// The clicks that were made last, and of what.
    struct Made {
        BeatGrid beats;
        ClickPattern pattern;
        quint64 songFrames = 0;
        std::shared_ptr<const ClickTable> table;
    };
    Made m_made;

    // What the engine was told.
    std::shared_ptr<const ClickTable> m_clicks;
    std::optional<ClickSound> m_sound;
    LeadIn m_atWrap;
    LeadIn m_atStart;
};

} // namespace lyrabox
