// What the store knows and notes of the song itself, apart from its loops and markers.

#include "practice/PracticeStore.h"

#include <QFileInfo>

#include <utility>

namespace lyrabox {

void PracticeStore::setFindings(const std::optional<PracticeTuning> &tuning,
                                const std::optional<KeyGuess> &keys)
{
    if (isReadOnly())
        return;
    m_history.setFindings(tuning, keys);
    noteEdit(!m_fileName.isEmpty());
}

void PracticeStore::setAnchors(const SongAnchors &anchors)
{
    if (isReadOnly() || record().song.anchors == anchors)
        return;
    m_history.setAnchors(anchors);
    noteEdit(!m_fileName.isEmpty());
}

bool PracticeStore::startIdentifying()
{
    if (m_song && m_audio.isEmpty() && !m_identifying && !m_wasIdentified) {
        identify();
        Q_EMIT stateChanged();
    }
    return isIdentifying();
}

QString PracticeStore::songName() const
{
    if (!m_song)
        return {};
    const QString &title = record().song.title.isEmpty() ? m_song->title : record().song.title;
    return title.isEmpty() ? QFileInfo(m_song->path).completeBaseName() : title;
}

/// What is known of the song.
PracticeSong PracticeStore::describedSong() const
{
    PracticeSong song = record().song;
    if (song.title.isEmpty())
        song.title = m_song->title;
    if (song.artist.isEmpty())
        song.artist = m_song->artist;
    if (!song.length && m_song->frames > 0)
        song.length = m_song->frames;
    if (song.audio.isEmpty())
        song.audio = m_audio;
    clean(song);
    return song;
}

PracticeRecord PracticeStore::describedRecord() const
{
    PracticeRecord described = record();
    if (m_song)
        described.song = describedSong();
    return described;
}

std::set<QString> PracticeStore::refusedCopies() const
{
    return m_index.refusedCopies(m_audio.isEmpty() ? songPath() : m_audio);
}

void PracticeStore::refuse(const QString &copy)
{
    if (m_song && m_index.refuse(m_audio.isEmpty() ? songPath() : m_audio, copy)) {
        m_indexHasChanged = true;
        writeIndex();
    }
}

} // namespace lyrabox
