#include "app/export/ExportQueue.h"
#include "app/export/ExportRows.h"
#include "app/export/ExportText.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"
#include "support/CollectingWriter.h"
#include "support/FakeSong.h"

#include <QAbstractItemModelTester>
#include <QTest>

#include <gtest/gtest.h>

#include <future>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

using State = ExportQueue::State;

/// A queue whose first export waits in its first write until it is let go.
class Queued : public testing::Test {
protected:
    Queued()
    {
        song->frames = 100'000;
        result->onWrite = [this, go = m_go.get_future().share()] {
            if (!std::exchange(m_hasWritten, true)) {
                m_isWriting.set_value();
                go.wait();
            }
        };
        QObject::connect(&queue, &ExportQueue::failed, &queue,
                         [this](const QString &target, Status status) {
                             failures.append(target + u' ' + exportText::problem(status));
                         });
    }
    ~Queued() override { letGo(); }

    ExportQueue::Id add(const QString &name)
    {
        return queue.add({.source = u"/songs/a.wav"_s, .target = u"/songs/"_s + name});
    }
    void waitForWriting() { m_isWriting.get_future().wait(); }
    void letGo()
    {
        if (!std::exchange(m_hasGone, true))
            m_go.set_value();
    }
    bool becomesIdle()
    {
        return QTest::qWaitFor([this] { return !queue.isBusy(); }, 60'000);
    }
    std::vector<State> states() const
    {
        std::vector<State> all;
        for (const ExportQueue::Entry &entry : queue.entries())
            all.push_back(entry.state);
        return all;
    }

    std::shared_ptr<FakeSong> song = std::make_shared<FakeSong>();
    std::shared_ptr<CollectedSong> result = std::make_shared<CollectedSong>();
    QStringList failures;
    std::promise<void> m_go;
    std::promise<void> m_isWriting;
    bool m_hasWritten = false;
    bool m_hasGone = false;
    ExportQueue queue{{.reader = fakeSongReaderFactory(song), .writer = collectingWriters(result)}};
    ExportRows rows{&queue};
    QAbstractItemModelTester tester{&rows};
};

QString text(const ExportRows &rows, int row, int column)
{
    return rows.index(row, column).data().toString();
}

TEST_F(Queued, ExportsRunOneAfterTheOther)
{
    add(u"a.wav"_s);
    add(u"b.wav"_s);
    waitForWriting();
    EXPECT_EQ(states(), (std::vector{State::Running, State::Waiting}));
    EXPECT_TRUE(queue.willWrite(u"/songs/b.wav"_s));
    EXPECT_EQ(text(rows, 1, ExportRows::Name), u"b.wav"_s);
    EXPECT_EQ(text(rows, 1, ExportRows::State), u"Waiting"_s);
    EXPECT_TRUE(text(rows, 0, ExportRows::State).endsWith(u" %"_s));
    letGo();
    ASSERT_TRUE(becomesIdle());
    EXPECT_EQ(states(), (std::vector{State::Done, State::Done}));
    EXPECT_EQ(text(rows, 0, ExportRows::State), u"Done"_s);
    EXPECT_FALSE(queue.willWrite(u"/songs/b.wav"_s));
    EXPECT_EQ(result->left.size(), 2 * song->frames);
    queue.removeEnded();
    EXPECT_EQ(rows.rowCount(), 0);
}

TEST_F(Queued, OneThatRunsCanBeCancelledAndTheNextOneBegins)
{
    const ExportQueue::Id first = add(u"a.wav"_s);
    add(u"b.wav"_s);
    waitForWriting();
    EXPECT_TRUE(rows.canCancel(0));
    queue.cancel(first);
    EXPECT_EQ(states(), std::vector{State::Running});
    EXPECT_EQ(text(rows, 0, ExportRows::Name), u"b.wav"_s);
    letGo();
    ASSERT_TRUE(becomesIdle());
    EXPECT_EQ(states(), std::vector{State::Done});
    EXPECT_EQ(result->path, u"/songs/b.wav"_s);
    EXPECT_FALSE(rows.canCancel(0));
    EXPECT_TRUE(failures.isEmpty());
}

TEST_F(Queued, OneThatWaitsCanBeCancelled)
{
    add(u"a.wav"_s);
    const ExportQueue::Id second = add(u"b.wav"_s);
    waitForWriting();
    queue.cancel(second);
    letGo();
    ASSERT_TRUE(becomesIdle());
    EXPECT_EQ(states(), std::vector{State::Done});
    EXPECT_EQ(result->left.size(), song->frames);
}

TEST_F(Queued, AFailureSaysWhyAndTheNextOneBegins)
{
    result->writeStatus = status::diskFull;
    add(u"a.wav"_s);
    add(u"b.wav"_s);
    letGo();
    ASSERT_TRUE(becomesIdle());
    EXPECT_EQ(states(), (std::vector{State::Failed, State::Failed}));
    EXPECT_EQ(text(rows, 1, ExportRows::State), u"The disk is full."_s);
    EXPECT_EQ(failures, (QStringList{u"/songs/a.wav The disk is full."_s,
                                     u"/songs/b.wav The disk is full."_s}));
}

TEST_F(Queued, TheEndOfTheProgramCancelsAll)
{
    add(u"a.wav"_s);
    add(u"b.wav"_s);
    waitForWriting();
    NotificationCenter::defaultCenter().post(notification::applicationWillTerminate);
    EXPECT_TRUE(queue.entries().empty());
    letGo();
}

TEST(TheReasonOfAFailure, IsASentence)
{
    for (const Status status :
         {status::fileNotFound, status::noPermission, status::notEnoughMemory,
          status::unsupportedFileType, status::unsupportedDataFormat, status::invalidFile,
          status::unspecified, status::missingDecoder, status::missingEncoder,
          status::folderNotFound, status::notWritable, status::nameTooLong, status::diskFull,
          status::fileTooLarge, status::songChanged, status::nothingToWrite}) {
        const QString text = exportText::problem(status);
        EXPECT_TRUE(text.endsWith(u'.') && !text.contains(u'(')) << text.toStdString();
    }
    EXPECT_EQ(exportText::problem(status::invalidParameter), u"The export failed (-10878)."_s);
    EXPECT_EQ(exportText::problem(0), QString());
}

TEST(TheEstimateOfAnExport, IsRounded)
{
    EXPECT_EQ(exportText::estimate({.seconds = 191.7, .bytes = 6.04e6, .workSeconds = 19.2}),
              u"3:12 · about 6.0 MB · ready in about 20 s"_s);
    EXPECT_EQ(exportText::estimate({.seconds = 7200, .bytes = 1.9e8, .workSeconds = 720}),
              u"120:00 · about 190 MB · ready in about 12 min"_s);
    EXPECT_TRUE(exportText::estimate({}).contains(u"about 1 s"_s));
}

} // namespace
