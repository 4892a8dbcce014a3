#include "app/export/ExportSource.h"

#include "app/practice/Metronome.h"
#include "app/practice/MetronomeRules.h"
#include "app/practice/SongPractice.h"
#include "app/practice/SongSound.h"
#include "engine/LB_AudioController.h"

#include <QFileInfo>

namespace lyrabox {

namespace {

/// A loop without a name is named by its place, with characters that files may have.
QString nameOf(const QString &name, const LoopRange &range)
{
    if (!name.isEmpty())
        return name;
    const auto text = [](std::uint64_t frame) {
        const std::uint64_t seconds = frame / 44100;
        return QStringLiteral("%1.%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QLatin1Char('0'));
    };
    return QStringLiteral("%1-%2").arg(text(range.start), text(range.end));
}

} // namespace

bool ExportSource::hasSong() const
{
    // After a load that has failed, the player has a record without its samples, and no record of
    // loops is open.
    return m_audio->decodedSong() != nullptr && m_practice->store().hasSong();
}

std::uint64_t ExportSource::songFrames() const
{
    return m_audio->totalFrames();
}

QString ExportSource::songTitle() const
{
    const TrackRecordRef track = m_audio->currentTrack();
    if (!track)
        return {};
    const QString title = track->title.value_or(QString()).simplified();
    return title.isEmpty() ? QFileInfo(track->fileURL.toLocalFile()).completeBaseName() : title;
}

exportPlan::Heard ExportSource::heard(std::optional<LoopRange> loop) const
{
    exportPlan::Heard heard{.speed = static_cast<double>(m_audio->playbackSpeedPct()),
                            .pitch = static_cast<double>(m_audio->playbackPitch()),
                            .channels = m_sound->tools()};
    for (std::size_t band = 0; band < heard.levels.size(); ++band)
        heard.levels[band] = m_audio->eqLevelForIndex(static_cast<quint32>(band));
    const bool sounds = loop && m_audio->loop() == loop;
    heard.beats = sounds ? m_metronome->beats() : m_practice->record().beats.grid;
    heard.clickSound = m_metronome->click().sound();
    if (m_metronome->clickIsOn())
        heard.clicks = metronome::clicksOn(heard.beats, songFrames(), m_metronome->click().pattern);
    if (m_metronome->countInIsOn())
        heard.countIn = m_metronome->countIn();
    return heard;
}

std::vector<ExportSource::Loop> ExportSource::loops() const
{
    std::vector<Loop> all;
    const std::optional<LoopRange> range = m_audio->loop();
    const bool hasLoop = range && range->start < range->end;
    if (hasLoop && !m_practice->calledUp())
        all.push_back({.part = {.name = nameOf({}, *range), .range = *range}, .sounds = true});
    for (const PracticeLoop &loop : m_practice->record().loops) {
        if (!m_practice->isPlayable(loop))
            continue;
        const bool sounds = hasLoop && m_practice->calledUp() == loop.id;
        Loop made{.part = {.name = nameOf(loop.name, {.start = loop.from, .end = loop.to}),
                           .range = {.start = loop.from, .end = loop.to},
                           .trainer = loop.trainer.value_or(TrainerSettings{})},
                  .sounds = sounds};
        // The one that sounds may have another speed by now.
        if (!sounds) {
            made.part.speed = loop.speed;
            made.part.pitch = loop.pitch;
        }
        all.push_back(std::move(made));
    }
    return all;
}

void ExportSource::describe(ExportRequest &request) const
{
    const TrackRecordRef track = m_audio->currentTrack();
    if (!track)
        return;
    request.source = track->fileURL.toLocalFile();
    if (const auto song = m_audio->decodedSong())
        request.sourceStamp = song->file();
    request.details.artist = track->artist;
    request.details.album = track->album;
}

} // namespace lyrabox
