#include "app/shell/SingleInstance.h"

#include <QLockFile>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <future>
#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {
namespace {

using Role = SingleInstance::Role;
using Request = SingleInstance::Request;

/// Sends a request from another thread, as another process would.
Role claimElsewhere(const QString &folder, const Request &request = {})
{
    auto second =
        std::async(std::launch::async, [&] { return SingleInstance(folder).claim(request); });
    while (second.wait_for(std::chrono::milliseconds(5)) != std::future_status::ready)
        QCoreApplication::processEvents();
    return second.get();
}

TEST(SingleInstance, TheSecondHandsItsFilesToTheFirst)
{
    const QTemporaryDir folder;
    SingleInstance first(folder.path());
    ASSERT_EQ(first.claim(), Role::First);
    QList<QList<QUrl>> asked;
    first.setHandler([&](const Request &request) { asked.append(request.urls); });
    EXPECT_EQ(claimElsewhere(folder.path()), Role::Second);
    const QList<QUrl> songs{QUrl::fromLocalFile(u"/music/a b.mp3"_s),
                            QUrl::fromLocalFile(u"/music/ü.mp3"_s)};
    EXPECT_EQ(claimElsewhere(folder.path(), {songs, {}}), Role::Second);
    EXPECT_TRUE(QTest::qWaitFor([&] { return asked.size() == 2; }));
    EXPECT_EQ(asked, QList<QList<QUrl>>({{}, songs}));
}

TEST(SingleInstance, EarlyRequestsAreKeptForTheHandler)
{
    const QTemporaryDir folder;
    SingleInstance first(folder.path());
    ASSERT_EQ(first.claim(), Role::First);
    EXPECT_EQ(claimElsewhere(folder.path()), Role::Second);
    QCoreApplication::processEvents();
    int asked = 0;
    first.setHandler([&](const Request &) { ++asked; });
    EXPECT_EQ(asked, 1);
}

TEST(SingleInstance, UrlsArriveUnchanged)
{
    const QTemporaryDir folder;
    SingleInstance first(folder.path());
    ASSERT_EQ(first.claim(), Role::First);
    QList<QUrl> asked;
    first.setHandler([&](const Request &request) { asked = request.urls; });
    const QList<QUrl> sent{QUrl::fromLocalFile(u"/m/100% a b\nc\n\n.mp3"_s),
                           QUrl::fromEncoded("file:///m/caf%E9.mp3"),
                           QUrl(u"https://lyrabox.example/a.mp3"_s)};
    EXPECT_EQ(claimElsewhere(folder.path(), {sent, {}}), Role::Second);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !asked.isEmpty(); }));
    EXPECT_EQ(asked, sent);
}

TEST(SingleInstance, TheActivationTokenArrivesUnchanged)
{
    const QTemporaryDir folder;
    SingleInstance first(folder.path());
    ASSERT_EQ(first.claim(), Role::First);
    std::vector<Request> asked;
    first.setHandler([&](const Request &request) { asked.push_back(request); });
    const Request alone{{}, u"a1b2-Ü 100%\nfile:///m/x.mp3"_s};
    const Request withSong{{QUrl::fromLocalFile(u"/m/a.mp3"_s)}, u"1234"_s};
    EXPECT_EQ(claimElsewhere(folder.path(), alone), Role::Second);
    EXPECT_EQ(claimElsewhere(folder.path(), withSong), Role::Second);
    EXPECT_TRUE(QTest::qWaitFor([&] { return asked.size() == 2; }));
    EXPECT_EQ(asked, std::vector({alone, withSong}));
}

TEST(SingleInstance, ThousandsOfFilesCanBeHandedOver)
{
    const QTemporaryDir folder;
    SingleInstance first(folder.path());
    ASSERT_EQ(first.claim(), Role::First);
    qsizetype asked = 0;
    first.setHandler([&](const Request &request) { asked = request.urls.size(); });
    const QString directory = u"/music/"_s + QString(200, u'ü') + u'/';
    QList<QUrl> sent;
    for (int i = 0; i < 2000; ++i)
        sent.append(QUrl::fromLocalFile(directory + QString::number(i)));
    EXPECT_EQ(claimElsewhere(folder.path(), {sent, {}}), Role::Second);
    EXPECT_TRUE(QTest::qWaitFor([&] { return asked > 0; }));
    EXPECT_EQ(asked, sent.size());
}

TEST(SingleInstance, ReportsAFirstProcessThatDoesNotAnswer)
{
    const QTemporaryDir folder;
    QLockFile first(folder.filePath(u".running"_s)); // holds the lock but does not listen
    ASSERT_TRUE(first.tryLock(0));
    EXPECT_EQ(SingleInstance(folder.path()).claim(), Role::Unanswered);
}

TEST(SingleInstance, TheFirstAnswersBeforeItOpensTheFiles)
{
    const QTemporaryDir folder;
    SingleInstance first(folder.path());
    ASSERT_EQ(first.claim(), Role::First);
    std::future<Role> second;
    std::optional<Role> answered;
    first.setHandler([&](const Request &) { answered = second.get(); }); // opening takes long
    second = std::async(std::launch::async, [&] { return SingleInstance(folder.path()).claim(); });
    while (!answered)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(answered, Role::Second);
}

TEST(SingleInstance, TheFirstAnswersWhileItsMainThreadIsBusyAndOpensAfterwards)
{
    const QTemporaryDir folder;
    SingleInstance first(folder.path());
    ASSERT_EQ(first.claim(), Role::First);
    QList<QUrl> asked;
    first.setHandler([&](const Request &request) { asked = request.urls; });
    const QList<QUrl> song{QUrl::fromLocalFile(u"/music/a.mp3"_s)};
    auto second = std::async(std::launch::async, [&] {
        return SingleInstance(folder.path()).claim({song, {}});
    });
    EXPECT_EQ(second.get(), Role::Second); // this thread handles no events meanwhile
    EXPECT_TRUE(asked.isEmpty());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !asked.isEmpty(); }));
    EXPECT_EQ(asked, song);
}

TEST(SingleInstance, SettingsFoldersAreIndependent)
{
    const QTemporaryDir one;
    const QTemporaryDir other;
    SingleInstance first(one.path());
    SingleInstance second(other.path());
    EXPECT_EQ(first.claim(), Role::First);
    EXPECT_EQ(second.claim(), Role::First);
}

TEST(SingleInstance, AfterTheFirstEndsTheNextBecomesTheFirst)
{
    const QTemporaryDir folder;
    {
        SingleInstance first(folder.path());
        ASSERT_EQ(first.claim(), Role::First);
    }
    SingleInstance again(folder.path());
    EXPECT_EQ(again.claim(), Role::First);
}

} // namespace
} // namespace lyrabox
