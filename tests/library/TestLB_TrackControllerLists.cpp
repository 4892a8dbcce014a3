#include "library/LB_TrackController.h"

#include "library/LibraryFixture.h"

#include <QTest>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

TEST(LB_TrackController, ShowsPlaysAndQueuesDroppedFiles)
{
    LibraryFixture f;
    f.tracks.setAudioFileOpener([](const QString &path) -> std::optional<OpenedAudioFile> {
        if (path.endsWith(u".txt"_s))
            return std::nullopt;
        return OpenedAudioFile{{{u"title"_s, path.section(u'/', -1)}}, path};
    });
    const auto file = [](const QString &name) {
        return QUrl::fromLocalFile(u"/dropped/"_s + name);
    };
    QList<QUrl> left;
    EXPECT_EQ(
        f.tracks.showAndPlayFiles({file(u"no.txt"_s), file(u"b.wav"_s), file(u"a.wav"_s)}, &left),
        2);
    EXPECT_EQ(left, QList<QUrl>({file(u"no.txt"_s)}));
    EXPECT_EQ(f.shownTitles(), (QStringList{u"b.wav"_s, u"a.wav"_s}));
    EXPECT_EQ(f.playingTitle(), u"b.wav"_s);
    EXPECT_TRUE(f.audio().isRunning());
    EXPECT_EQ(f.queue.content(), f.tracks.content());
    EXPECT_EQ(f.tracks.listID(), LB_TrackController::droppedFilesListID);
}

TEST(LB_TrackController, KeepsTheListWhenNoDroppedFileIsAudio)
{
    LibraryFixture f;
    f.showPlaylist({u"a"_s});
    EXPECT_EQ(f.tracks.showAndPlayFiles({QUrl::fromLocalFile(u"/no/such/file.mp3"_s),
                                         QUrl(u"https://example.org/a.mp3"_s)}),
              0);
    EXPECT_EQ(f.shownTitles(), (QStringList{u"a"_s}));
    EXPECT_EQ(f.tracks.listID(), u"P1"_s);
    EXPECT_TRUE(f.table.isEnabled());
}

TEST(LB_TrackController, ReportsTheProgressOfALongImport)
{
    LibraryFixture f;
    std::chrono::milliseconds now{};
    std::vector<qsizetype> done;
    f.tracks.setProgressClock([&] { return now += std::chrono::milliseconds(100); });
    f.tracks.setProgressHook([&](qsizetype soFar, qsizetype found) {
        EXPECT_EQ(found, 5);
        EXPECT_FALSE(f.table.isEnabled());
        done.push_back(soFar);
    });
    f.showPlaylist({u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s});
    EXPECT_EQ(done, (std::vector<qsizetype>{3, 4, 5}));
}

TEST(LB_TrackController, GivesTheFocusBackToTheTableAfterAnImport)
{
    LibraryFixture f;
    f.table.show();
    f.table.activateWindow();
    f.table.setFocus();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&f.table));
    ASSERT_TRUE(f.table.hasFocus());
    f.showPlaylist({u"a"_s});
    EXPECT_TRUE(f.table.hasFocus());
}
