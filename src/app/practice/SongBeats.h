#pragma once

#include "app/practice/BeatTaps.h"
#include "app/practice/FoundBeats.h"
#include "app/practice/SongPeaks.h"
#include "practice/BeatGridEdits.h"
#include "practice/PracticeEdits.h"

#include <QObject>
#include <QTimer>

#include <cstdint>
#include <optional>
#include <vector>

class LB_AudioController;

namespace lyrabox {

class SongPractice;

/// The beats of the song that the pane shows: those in its record, how they got there, and how they
/// are changed. When the peaks of a song are measured, the onsets are, too, and without beats in
/// the record a suggestion is made. Nothing uses a suggestion until useSuggestion(). All changes of
/// beats are steps of the record's undo. Main thread; the analysis runs on the thread of the peaks.
class SongBeats : public QObject {
    Q_OBJECT

public:
    /// What there is to say about the latest taps, or about a tempo that was typed.
    enum class Remark {
        None,
        NotPlaying,   ///< a tap while the song stands
        TooFewPlaces, ///< enough taps, but at too few different beats
        TooSlow,      ///< the taps are slower than TapLimits
        TooFast,      ///< likewise
        Uneven,       ///< the taps are no even beats
        NoSuchTempo,  ///< the song has no beats of the tempo that was typed
        Refused,      ///< the record cannot be changed
    };

    /// All must outlive this object. A song is not analysed before its peaks are measured.
    SongBeats(LB_AudioController *audio, SongPractice *practice, SongPeaks *peaks,
              QObject *parent = nullptr);
    ~SongBeats() override;

    /// The beats in the record; empty if they are not known.
    const BeatGrid &grid() const;
    /// The guess. Empty if there is none, and while the record has beats. Its bars mean nothing.
    const BeatGrid &suggestion() const;
    /// The tempo of a suggestion, in beats a minute. There must be one.
    double suggestedTempo() const;
    /// Where the beats of the record are lost, in the order of the song.
    std::vector<LoopRange> lostParts() const;

    /// Whether there is a song, and its record can be changed.
    bool canChange() const;
    /// Whether the analysis runs, or waits for the peaks.
    bool isListening() const;

    // Taps.
    /// A beat at the frame that is heard now; the first of a series is the first of a bar. With
    /// TapSeries::needed of them the beats of the song are followed from there, and change the
    /// record as one step, also with later taps.
    void tap();
    /// The same at a frame, and at a time of a clock in milliseconds. No timer ends such a series.
    void tapAt(std::uint64_t frame, double milliseconds);
    /// The taps since the last pause, or since another change.
    const TapSeries &taps() const { return m_taps; }
    Remark remark() const { return m_remark; }

    // Changes. They concern the record's beats, and without them the suggestion.
    /// Puts the suggestion into the record.
    void useSuggestion();
    void scale(BeatScale scale);
    /// All bars begin so many beats later.
    void shift(int beats);
    /// The length of the bars from the one at `from` on, or of all. Without beats it is that of the
    /// next ones.
    void setBeatsPerBar(int beats, std::optional<std::uint64_t> from = {});
    /// The length of the bar at a frame.
    int beatsPerBar(std::uint64_t frame) const;
    /// Looks for beats of a tempo, in beats a minute. They change the record if it has beats, and
    /// are suggested if it has none.
    void setTempo(double tempo);
    void clear();
    /// Moves the beat nearest to `frame`. Nothing happens if that is not possible, see
    /// gridWithBeatAt().
    void moveBeat(std::uint64_t frame, std::uint64_t target);
    /// The same by so many milliseconds, within the song.
    void nudgeBeat(std::uint64_t frame, int milliseconds);

Q_SIGNALS:
    /// The beats, the suggestion or the lost parts changed.
    void changed();
    /// taps(), remark(), canChange() or isListening() changed.
    void stateChanged();

private:
    void followView();
    void forgetSong();
    void endSeries();
    void pauseEnded();
    void setRemark(Remark remark);
    void followRecord();
    bool put(const BeatGrid &grid, PracticeStep step = PracticeStep::New);
    void change(const BeatGrid &grid);

    void workOn();
    void stop();
    void listen();
    void followSeries();
    void suggest(std::optional<double> tempo);
    template <typename Work, typename Take>
    void run(Work work, Take take);
    void takeTapped(const BeatGrid &found);
    void takeGuess(const BeatGrid &found, std::optional<double> tempo);

    LB_AudioController *m_audio;
    SongPractice *m_practice;
    SongPeaks *m_peaks;

    std::optional<foundBeats::Heard> m_heard; ///< none until the song was listened to
    BeatGrid m_seen;                          ///< the record's beats when changed() was sent last
    BeatGrid m_suggestion;
    bool m_wasSuggested = false; ///< there is a guess, or there can be none
    int m_nextBar = 4;           ///< the length of the bars of beats to come

    TapSeries m_taps;
    double m_lastTap = 0.0; ///< its time
    QTimer m_pause;         ///< runs from the last tap; ends the series
    Remark m_remark = Remark::None;
    std::optional<BeatGrid> m_before; ///< the record's beats before those of the series
    bool m_isApplying = false;

    std::optional<BackgroundRunner::Job> m_job;
    bool m_followsSeries = false;         ///< the taps wait to be followed
    std::optional<double> m_typedTempo{}; ///< waits to be looked for
};

} // namespace lyrabox
