#include "app/practice/PracticeDiary.h"

#include "app/practice/SongPractice.h"
#include "engine/ClicksAndLeadIns.h"
#include "engine/LB_AudioController.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"

#include <QDir>

#include <algorithm>
#include <utility>

namespace lyrabox {

namespace {

QString logPath(const QString &folder)
{
    // No file can be made under an empty path, so lines stay in memory.
    return folder.isEmpty() ? QString()
                            : QDir(folder).filePath(QStringView(practiceLogName).toString());
}

} // namespace

PracticeDiary::PracticeDiary(LB_AudioController *audio, SongPractice *practice,
                             const QString &folder, Clocks clocks, QObject *parent)
    : QObject(parent),
      m_audio(audio),
      m_practice(practice),
      m_clocks(std::move(clocks)),
      m_log(std::make_shared<PracticeLog>(logPath(folder)))
{
    connect(audio, &LB_AudioController::runningChanged, this, &PracticeDiary::follow);
    connect(audio, &LB_AudioController::speedOrPitchChanged, this, &PracticeDiary::follow);
    connect(practice, &SongPractice::calledUpChanged, this, &PracticeDiary::follow);
    connect(&practice->store(), &PracticeStore::recordChanged, this, &PracticeDiary::follow);
    NotificationCenter &center = NotificationCenter::defaultCenter();
    center.addObserver(this, notification::currentTrackChanged, [this] {
        follow();
        if (m_problem == Problem::PartlyRead)
            setProblem(Problem::None);
    });
    center.addObserver(this, notification::applicationWillTerminate, [this] { save(); });
    readBestSpeeds();
    follow();
}

PracticeDiary::PracticeDiary(LB_AudioController *audio, SongPractice *practice,
                             const QString &folder, QObject *parent)
    : PracticeDiary(audio, practice, folder, Clocks(), parent)
{}

PracticeDiary::~PracticeDiary()
{
    save();
}

template <typename Work, typename Deliver>
void PracticeDiary::inBackground(Work work, Deliver deliver)
{
    if (const auto job = m_runner.run(work, deliver))
        m_lastJob = job;
    else
        deliver(work(std::stop_token()));
}

void PracticeDiary::readBestSpeeds()
{
    struct Found {
        BestSpeeds best;
        bool isWhole = true;
    };
    inBackground(
        [log = m_log](const std::stop_token &) {
            const PracticeLogReading reading = log->read();
            return Found{.best = BestSpeeds(reading.lines), .isWhole = reading.skipped == 0};
        },
        [this](const Found &found) {
            m_best.add(found.best);
            if (!found.isWhole && m_problem == Problem::None)
                setProblem(Problem::PartlyRead);
            if (!found.best.isEmpty())
                Q_EMIT bestSpeedsChanged();
        });
}

PracticeLogLine PracticeDiary::songLine() const
{
    PracticeLogLine line;
    const TrackRecordRef track = m_audio->currentTrack();
    if (!track)
        return line;
    // The record's title is that of the day when its file was made: a song that gets another title
    // keeps its history.
    const PracticeSong &song = m_practice->record().song;
    line.song = song.title.isEmpty() ? track->title.value_or(QString()) : song.title;
    line.artist = song.artist.isEmpty() ? track->artist : song.artist;
    clean(line);
    return line;
}

std::optional<double> PracticeDiary::bestSpeed(const PracticeLoop &loop) const
{
    PracticeLogLine line = songLine();
    line.loop = loop.name;
    line.from = loop.from;
    line.to = loop.to;
    clean(line);
    std::optional<double> best = m_best.of(line);
    for (const std::optional<Entry> *entry : {&m_former, &m_present}) {
        if (!*entry || !(*entry)->line.isSameLoop(line))
            continue;
        const PracticeLogLine &played = (*entry)->line;
        if (played.passes > played.missed)
            best = std::max(best.value_or(played.speed), played.speed);
    }
    return best;
}

/// What would be practised now if the player played. None if no kept loop is called up.
std::optional<PracticeDiary::Entry> PracticeDiary::practised() const
{
    const PracticeLoop *loop = m_practice->calledUpLoop();
    if (loop == nullptr || !m_audio->currentTrack())
        return std::nullopt;
    Entry entry{.line = songLine(), .loop = loop->id};
    entry.line.loop = loop->name;
    entry.line.from = loop->from;
    entry.line.to = loop->to;
    entry.line.speed = m_audio->playbackSpeedPct();
    clean(entry.line);
    return entry;
}

bool PracticeDiary::isPlaying() const
{
    return m_audio->isRunning() && !m_audio->trackHasEnded();
}

/// The player, the loop or the record has changed.
void PracticeDiary::follow()
{
    std::optional<Entry> now = practised();
    const bool playing = isPlaying();
    if (m_present) {
        const bool isSame = now && now->line.speed == m_present->line.speed &&
                            (now->loop == m_present->loop || now->line.isSameLoop(m_present->line));
        const bool wasLong =
            !m_playingSince && playing && m_clocks.running() - m_pausedAt > longPause;
        if (!isSame || wasLong) {
            end();
            if (!now || wasLong)
                m_lastPass = {};
        }
    }
    if (!now)
        return;
    if (m_present) {
        // A loop may get another name or other ends while it is played.
        m_present->loop = now->loop;
        m_present->line.loop = now->line.loop;
        m_present->line.from = now->line.from;
        m_present->line.to = now->line.to;
    } else if (playing) {
        begin(std::move(*now));
    }
    if (m_present)
        setPlaying(playing);
}

void PracticeDiary::begin(Entry entry)
{
    m_passes = engine::passes().ended;
    m_thisPass = PassVerdict::None;
    if (takeUpFormer(entry))
        return;
    entry.line.at = m_clocks.date();
    clean(entry.line);
    m_present = std::move(entry);
}

/// Goes on with the line before if it has ended only a moment ago: a loop that is called up again
/// is no other one.
bool PracticeDiary::takeUpFormer(const Entry &entry)
{
    const bool goesOn = m_former && m_former->line.isSameLoop(entry.line) &&
                        m_former->line.speed == entry.line.speed &&
                        m_clocks.running() - m_formerEnd <= longPause;
    if (!goesOn)
        return false;
    m_present = std::exchange(m_former, std::nullopt);
    m_present->loop = entry.loop;
    if (m_lastPass.in == LastPass::In::Former)
        m_lastPass.in = LastPass::In::Present;
    return true;
}

void PracticeDiary::setPlaying(bool playing)
{
    if (playing == m_playingSince.has_value())
        return;
    if (playing) {
        m_playingSince = m_clocks.running();
        return;
    }
    countPasses(engine::passes().ended);
    noteTime();
    m_playingSince.reset();
    m_pausedAt = m_clocks.running();
    write(*m_present);
    Q_EMIT bestSpeedsChanged();
}

/// Ends the present line.
void PracticeDiary::end()
{
    countPasses(engine::passes().ended);
    noteTime();
    const std::chrono::milliseconds end = m_playingSince.value_or(m_pausedAt);
    m_playingSince.reset();
    write(*m_present);
    // What is too short to be written leaves the line before as it is.
    if (m_present->written) {
        if (m_former)
            m_best.add(m_former->line);
        m_former = std::move(m_present);
        m_formerEnd = end;
        m_lastPass.in =
            m_lastPass.in == LastPass::In::Present ? LastPass::In::Former : LastPass::In::None;
    }
    m_present.reset();
    Q_EMIT bestSpeedsChanged();
}

void PracticeDiary::noteTime()
{
    if (!m_playingSince)
        return;
    const std::chrono::milliseconds now = m_clocks.running();
    m_present->played += now - std::exchange(*m_playingSince, now);
    m_present->line.seconds =
        static_cast<int>(std::chrono::round<std::chrono::seconds>(m_present->played).count());
}

/// Adds the passes that the engine has ended since the last call, of which there are `ended`.
void PracticeDiary::countPasses(std::uint64_t ended)
{
    if (!m_present)
        return;
    for (; m_passes < ended; ++m_passes) {
        m_lastPass = {.in = LastPass::In::Present,
                      .verdict = std::exchange(m_thisPass, PassVerdict::None)};
        m_lastPass.isCounted = count(m_present->line, m_lastPass.verdict);
    }
}

/// Adds a pass to the line. False if it does not count.
bool PracticeDiary::count(PracticeLogLine &line, PassVerdict verdict) const
{
    if (verdict == PassVerdict::None && m_onlyRight)
        return false;
    ++line.passes;
    line.missed += verdict == PassVerdict::Missed ? 1 : 0;
    return true;
}

void PracticeDiary::missed(double secondsIntoPass)
{
    judge(PassVerdict::Missed, secondsIntoPass);
}

void PracticeDiary::right(double secondsIntoPass)
{
    judge(PassVerdict::Right, secondsIntoPass);
}

void PracticeDiary::judge(PassVerdict verdict, double secondsIntoPass)
{
    countPasses(engine::passes().ended);
    if (secondsIntoPass < SpeedTrainer::verdictSeconds && entryOfLastPass() != nullptr &&
        m_lastPass.verdict != verdict)
        judgeLast(verdict);
    else
        m_thisPass = verdict;
}

PracticeDiary::Entry *PracticeDiary::entryOfLastPass()
{
    switch (m_lastPass.in) {
    case LastPass::In::Present:
        return m_present ? &*m_present : nullptr;
    case LastPass::In::Former:
        return m_former ? &*m_former : nullptr;
    case LastPass::In::None:
        break;
    }
    return nullptr;
}

void PracticeDiary::judgeLast(PassVerdict verdict)
{
    Entry &entry = *entryOfLastPass();
    if (m_lastPass.isCounted) {
        --entry.line.passes;
        entry.line.missed -= m_lastPass.verdict == PassVerdict::Missed ? 1 : 0;
    }
    m_lastPass.verdict = verdict;
    m_lastPass.isCounted = count(entry.line, verdict);
    if (entry.written)
        write(entry);
    Q_EMIT bestSpeedsChanged();
}

void PracticeDiary::setOnlyRightCounts(bool onlyRight)
{
    if (onlyRight == m_onlyRight)
        return;
    countPasses(engine::passes().ended);
    m_onlyRight = onlyRight;
}

/// Writes the line, unless it is too short. One that was written before is written anew.
void PracticeDiary::write(Entry &entry)
{
    const bool isLong = entry.line.passes > 0 || entry.played >= shortest;
    if (entry.written ? *entry.written == entry.line : !isLong)
        return;
    // The line before is not the file's last one any more.
    if (!entry.written && m_former && &entry != &*m_former) {
        m_best.add(m_former->line);
        m_former.reset();
    }
    writeLine(std::exchange(entry.written, entry.line), entry.line);
}

/// Appends `line`, or replaces `last` by it.
void PracticeDiary::writeLine(const std::optional<PracticeLogLine> &last,
                              const PracticeLogLine &line)
{
    const auto work = [log = m_log, last, line](const std::stop_token &) {
        return last ? log->replaceLast(*last, line) : log->add(line);
    };
    const auto deliver = [this](bool isWritten) {
        if (!isWritten)
            setProblem(Problem::NotWritable);
        else if (m_problem == Problem::NotWritable)
            setProblem(Problem::None);
    };
    inBackground(work, deliver);
}

void PracticeDiary::save()
{
    if (m_present)
        end();
    m_lastPass = {};
    if (m_lastJob)
        m_runner.wait(*m_lastJob);
}

void PracticeDiary::read(std::function<void(PracticeLogReading)> deliver)
{
    if (m_present) {
        countPasses(engine::passes().ended);
        noteTime();
        write(*m_present);
    }
    inBackground([log = m_log](const std::stop_token &) { return log->read(); },
                 std::move(deliver));
}

void PracticeDiary::forget(std::function<void(bool)> deliver)
{
    m_best = {};
    m_former.reset();
    m_lastPass = {};
    std::optional<Entry> now = practised();
    const bool wasPlaying = m_playingSince.has_value();
    m_present.reset();
    m_playingSince.reset();
    if (now && wasPlaying) {
        begin(std::move(*now));
        setPlaying(true);
    }
    inBackground([log = m_log](const std::stop_token &) { return log->forget(); },
                 std::move(deliver));
    Q_EMIT bestSpeedsChanged();
}

void PracticeDiary::setProblem(Problem problem)
{
    if (std::exchange(m_problem, problem) != problem)
        Q_EMIT problemChanged();
}

} // namespace lyrabox
