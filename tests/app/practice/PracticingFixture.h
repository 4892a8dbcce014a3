#pragma once

#include "app/practice/SongPractice.h"
#include "support/TransportFixture.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

namespace lyrabox::test {

/// Loops and markers on a player without a device. Songs are real files, so that their practice
/// files are found again; they "decode" to 60 s.
class PracticingFixture : public testing::Test {
protected:
    static constexpr std::uint64_t rate = 44100;
    static constexpr std::uint64_t seconds = 60;

    PracticingFixture()
    {
        transport.song->frames = seconds * rate;
        makePractice();
        practice->setOpen(true);
    }

    void makePractice()
    {
        practice.reset();
        practice = std::make_unique<SongPractice>(
            &audio(), [this](quint64 frame) { audio().setCurrentFrame(frame); }, folder(),
            fakeSongReaderFactory(transport.song));
    }

    LB_AudioController &audio() const { return *transport.controller; }
    const PracticeRecord &record() const { return practice->record(); }
    QString folder() const { return m_disk.filePath(QStringLiteral("Practice")); }

    /// A song in a file of its own.
    TrackRecordRef song(const QString &name) const
    {
        TrackRecordRef track = TransportFixture::track(name);
        const QString path = m_disk.filePath(name + QStringLiteral(".flac"));
        QFile file(path);
        EXPECT_TRUE(file.exists() || (file.open(QIODevice::WriteOnly) && file.write("song") == 4));
        track->fileURL = QUrl::fromLocalFile(path);
        return track;
    }

    void load(const QString &name) const { ASSERT_EQ(transport.load(song(name)), 0); }

    /// Adds a loop to the record, without calling it up.
    PracticeId addLoop(std::uint64_t from, std::uint64_t to, const QString &name = {})
    {
        const PracticeLoop loop{.name = name, .from = from, .to = to};
        EXPECT_TRUE(practice->store().apply({PutLoop{loop}}));
        return loop.id;
    }

    QTemporaryDir m_disk;
    TransportFixture transport;
    std::unique_ptr<SongPractice> practice;
};

} // namespace lyrabox::test
