#pragma once

#include "library/LB_QueueController.h"
#include "library/LB_TrackController.h"
#include "library/TrackTableModel.h"
#include "platform/audio/SongReader.h"
#include "platform/foundation/UserDefaults.h"
#include "support/TransportFixture.h"

#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <map>
#include <memory>

namespace lyrabox::test {

/// Reads the fake song from every path except those that are set to fail.
class PickyReader : public SongReader {
public:
    PickyReader(std::unique_ptr<SongReader> song, const std::map<QString, Status> &failures)
        : m_song(std::move(song)), m_failures(failures)
    {}
    Status open(const QString &path, Depth depth) override
    {
        const auto failure = m_failures.find(path);
        return failure == m_failures.end() ? m_song->open(path, depth) : failure->second;
    }
    Status fileDataFormat(AudioStreamBasicDescription &format) const override
    {
        return m_song->fileDataFormat(format);
    }
    Status setClientDataFormat(const AudioStreamBasicDescription &format) override
    {
        return m_song->setClientDataFormat(format);
    }
    Status read(std::uint32_t &frames, AudioBufferList &list) override
    {
        return m_song->read(frames, list);
    }
    std::optional<std::uint64_t> estimatedFrames() const override
    {
        return m_song->estimatedFrames();
    }
    QByteArray albumArtwork() const override { return m_song->albumArtwork(); }

private:
    std::unique_ptr<SongReader> m_song;
    const std::map<QString, Status> &m_failures;
};

/// A transport with a fake audio output, a queue, a track list and its table.
struct LibraryFixture {
    LibraryFixture()
    {
        userDefaults().remove(defaultsKey::shuffle);
        transport.song->frames = 1000;
        engine::setSongReaderFactory([this, song = fakeSongReaderFactory(transport.song)] {
            return std::make_unique<PickyReader>(song(), loadFailures);
        });
        queue.setAudio(transport.controller.get());
        queue.setErrorField(&errorField);
        tracks.setQueue(&queue);
        tracks.setSettings(&transport.settings);
        tracks.setTrackTableView(&table);
        tracks.setLibraryLocator([this] { return library; });
        tracks.setup();
    }

    LB_AudioController &audio() { return *transport.controller; }
    bool playButtonIsOn() const { return transport.playPauseButton->state() == 1; }
    QString playingTitle()
    {
        return audio().currentTrack() ? audio().currentTrack()->title.value_or(QString())
                                      : QString();
    }

    /// Makes a record with an inode of its own.
    TrackRecordRef track(const QString &title)
    {
        return TransportFixture::track(title, QString::number(++lastInode));
    }

    TrackRecordList trackList(const QStringList &titles)
    {
        TrackRecordList list;
        for (const QString &title : titles)
            list.push_back(track(title));
        return list;
    }

    void failToLoad(const TrackRecordRef &record, Status status)
    {
        loadFailures[record->fileURL.toLocalFile()] = status;
    }

    /// Shows a playlist of songs with these titles. Each is an existing file.
    void showPlaylist(const QStringList &titles, const QString &id = QStringLiteral("P1"))
    {
        std::vector<QString> items;
        for (const QString &title : titles) {
            const QString path =
                folder.filePath(QStringLiteral("%1-%2.wav").arg(id).arg(items.size()));
            QFile file(path);
            EXPECT_TRUE(file.open(QIODevice::WriteOnly));
            const QString item = QStringLiteral("%1/%2").arg(id).arg(items.size());
            MusicTrack musicTrack;
            musicTrack.location = QUrl::fromLocalFile(path).toString();
            musicTrack.name = title;
            library->tracks[item] = musicTrack;
            items.push_back(item);
        }
        tracks.getTracksForiTunesPlaylistArrayPlaylistID(items, id);
    }

    QStringList shownTitles() const
    {
        QStringList titles;
        for (const TrackRecordRef &record : tracks.arrangedObjects())
            titles.append(record->title.value_or(QString()));
        return titles;
    }

    static QStringList titlesOf(const TrackRecordList &list)
    {
        QStringList titles;
        for (const TrackRecordRef &record : list)
            titles.append(record->title.value_or(QString()));
        return titles;
    }

    void search(const QString &text)
    {
        searchField.setText(text);
        tracks.searchTextEntered(&searchField);
    }

    void clickHeader(int column) { Q_EMIT table.horizontalHeader()->sectionClicked(column); }

    std::map<QString, Status> loadFailures;
    TransportFixture transport;
    QTemporaryDir folder;
    std::shared_ptr<MusicLibrary> library = std::make_shared<MusicLibrary>();
    QLabel errorField;
    QLineEdit searchField;
    LB_QueueController queue;
    LB_TrackController tracks;
    QTableView table;
    int lastInode = 0;
};

} // namespace lyrabox::test
