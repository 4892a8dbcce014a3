#pragma once

#include "platform/foundation/BackgroundRunner.h"
#include "platform/foundation/MonotonicClock.h"
#include "practice/BestSpeeds.h"
#include "practice/PracticeLog.h"
#include "practice/PracticeRecord.h"
#include "practice/SpeedTrainer.h"

#include <QDateTime>
#include <QObject>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

class LB_AudioController;

namespace lyrabox {

class SongPractice;

/// Writes the history of practising: a line for each loop and speed that is played. Only loops that
/// are called up count. A line ends when the loop, its speed or the song changes, after a long
/// pause, and when the program ends. It is written then, and already when a pause begins. So a
/// program that is killed loses at most the line of what sounds. If the same loop goes on at the
/// same speed soon afterwards, so does its line.
///
/// The object has no timer, and does nothing while a loop plays. The file is read once, when the
/// object is made, and read and written on a background thread. Main thread.
class PracticeDiary : public QObject {
    Q_OBJECT

public:
    /// What the user should know of the file.
    enum class Problem {
        None,
        NotWritable, ///< lines wait in memory; the next line tries again to write them
        PartlyRead,  ///< lines are not understood, and left out; until the next song is loaded
    };

    /// A pause that is longer ends the line.
    static constexpr std::chrono::milliseconds longPause{120'000};
    /// A line without a pass that is shorter is not written.
    static constexpr std::chrono::milliseconds shortest{10'000};

    /// The clocks, for tests.
    struct Clocks {
        std::function<std::chrono::milliseconds()> running = monotonicTime;
        std::function<QDateTime()> date = [] { return QDateTime::currentDateTime(); };
    };

    /// The file is History.csv in `folder`; without a folder, the history stays in memory. `audio`
    /// and `practice` must outlive this object.
    PracticeDiary(LB_AudioController *audio, SongPractice *practice, const QString &folder,
                  Clocks clocks, QObject *parent = nullptr);
    PracticeDiary(LB_AudioController *audio, SongPractice *practice, const QString &folder,
                  QObject *parent = nullptr);
    /// Writes what is not written yet.
    ~PracticeDiary() override;

    /// The highest speed in percent at which a pass of this loop of the present song was not
    /// missed. None if there is none, or until the file was read. The passes of what sounds count
    /// from the next change, pause or verdict on.
    std::optional<double> bestSpeed(const PracticeLoop &loop) const;

    Problem problem() const { return m_problem; }

    /// The present song in a line of the history. Song and artist are empty without a song.
    PracticeLogLine songLine() const;

    /// Reads the whole history in the background, with what is being practised, and gives it to
    /// `deliver` on this thread.
    void read(std::function<void(PracticeLogReading)> deliver);

    /// Deletes the history. `deliver` gets false if the file could not be removed. What is being
    /// practised begins anew.
    void forget(std::function<void(bool)> deliver);

public Q_SLOTS:
    /// The player has called a pass missed, or right. `secondsIntoPass` is how long the present
    /// pass has been playing. Which pass is meant is decided as in SpeedTrainer.
    void missed(double secondsIntoPass);
    void right(double secondsIntoPass);

    /// Whether passes count only if they were called right or missed, see PassJudging. False at
    /// first. Set it when a run of the trainer begins and ends.
    void setOnlyRightCounts(bool onlyRight);

    /// Writes what is not written yet, and waits for it.
    void save();

Q_SIGNALS:
    /// bestSpeed() of some loop may be another one.
    void bestSpeedsChanged();
    void problemChanged();

private:
    /// A line, and what the file has of it.
    struct Entry {
        PracticeLogLine line;
        std::optional<PracticeLogLine> written = {};
        std::chrono::milliseconds played{0};
        PracticeId loop = 0;
    };
    /// The last pass, which can still be judged.
    struct LastPass {
        enum class In { None, Present, Former };
        In in = In::None; ///< the line that it belongs to
        PassVerdict verdict = PassVerdict::None;
        bool isCounted = false;
    };

    /// Does the work here if the system cannot start a thread.
    template <typename Work, typename Deliver>
    void inBackground(Work work, Deliver deliver);

    void readBestSpeeds();
    std::optional<Entry> practised() const;
    bool isPlaying() const;
    void follow();
    void begin(Entry entry);
    bool takeUpFormer(const Entry &entry);
    void setPlaying(bool playing);
    void end();
    void noteTime();
    void countPasses(std::uint64_t ended);
    bool count(PracticeLogLine &line, PassVerdict verdict) const;
    void judge(PassVerdict verdict, double secondsIntoPass);
    void judgeLast(PassVerdict verdict);
    Entry *entryOfLastPass();
    void write(Entry &entry);
    void writeLine(const std::optional<PracticeLogLine> &last, const PracticeLogLine &line);
    void setProblem(Problem problem);

    LB_AudioController *m_audio;
    SongPractice *m_practice;
    Clocks m_clocks;
    std::shared_ptr<PracticeLog> m_log; ///< used by jobs only, except while there is none
    BestSpeeds m_best;                  ///< of the file and of lines that do not change any more
    std::optional<Entry> m_present;
    std::optional<Entry> m_former; ///< the line before; its last pass can still be judged
    LastPass m_lastPass;
    PassVerdict m_thisPass = PassVerdict::None;
    bool m_onlyRight = false;
    std::uint64_t m_passes = 0; ///< of the engine, up to which they were counted
    std::optional<std::chrono::milliseconds> m_playingSince;
    std::chrono::milliseconds m_pausedAt{0};
    std::chrono::milliseconds m_formerEnd{0}; ///< when the former line was played last
    Problem m_problem = Problem::None;
    std::optional<BackgroundRunner::Job> m_lastJob;
    BackgroundRunner m_runner; ///< last, because its jobs call this object
};

} // namespace lyrabox
