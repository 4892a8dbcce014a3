#include "platform/updates/SUUpdater.h"

#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>

#include <gtest/gtest.h>

#include <functional>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {
namespace {

/// A server on this machine. Each test sets its answers.
class FeedServer : public QTcpServer {
public:
    FeedServer()
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket *socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] {
                ++requests;
                socket->readAll();
                answer(*socket);
            });
        });
    }
    QUrl url(const QString &path = u"/feed.xml"_s) const
    {
        return QUrl(u"http://127.0.0.1:%1%2"_s.arg(serverPort()).arg(path));
    }
    void answerWith(const QByteArray &body, const QByteArray &status = "200 OK",
                    const QByteArray &header = {})
    {
        answer = [=](QTcpSocket &socket) {
            socket.write("HTTP/1.1 " + status +
                         "\r\nContent-Length: " + QByteArray::number(body.size()) +
                         "\r\nConnection: close\r\n" + header + "\r\n" + body);
            socket.disconnectFromHost();
        };
    }
    void answerWithVersion(const QByteArray &version)
    {
        answerWith("<rss><channel><item><version>" + version +
                   "</version><link>https://lyrabox.example/new</"
                   "link><description>&lt;p&gt;Notes&lt;/p&gt;"
                   "</description></item></channel></rss>");
    }

    std::function<void(QTcpSocket &)> answer = [](QTcpSocket &) {};
    int requests = 0;
};

struct Updater : testing::Test {
    Updater()
    {
        updater.setCurrentVersion(u"1.2"_s);
        updater.setFeedURL(server.url());
        updater.setPresenter({[this](const AppcastItem &update) {
                                  updates.append(update.version + u'|' + update.notes);
                              },
                              [this](const QString &message, const QString &detail) {
                                  messages.append(message + u'|' + detail);
                              }});
    }
    void ask()
    {
        QSignalSpy finished(&updater, &SUUpdater::checkFinished);
        updater.checkForUpdates();
        EXPECT_TRUE(!finished.isEmpty() || finished.wait(10000));
    }
    void askInSilence()
    {
        QSignalSpy finished(&updater, &SUUpdater::checkFinished);
        updater.setAutomaticallyChecksForUpdates(true);
        EXPECT_TRUE(!finished.isEmpty() || finished.wait(10000));
    }
    /// Expects both checks to fail: the user's check with this message, the automatic one silently.
    void expectFailure(const QString &words)
    {
        ask();
        ASSERT_EQ(messages.size(), 1);
        EXPECT_TRUE(messages.front().startsWith(u"Lyrabox could not check for updates.|"_s));
        EXPECT_TRUE(messages.front().contains(words)) << messages.front().toStdString();
        askInSilence();
        EXPECT_EQ(messages.size(), 1);
        EXPECT_TRUE(updates.isEmpty());
        EXPECT_FALSE(updater.isChecking());
    }

    FeedServer server;
    SUUpdater updater;
    QStringList updates;
    QStringList messages;
};

TEST_F(Updater, ShowsANewerVersionWithItsNotesAsPlainText)
{
    server.answerWithVersion("1.10");
    ask();
    EXPECT_EQ(updates, QStringList({u"1.10|Notes"_s}));
    askInSilence();
    EXPECT_EQ(updates.size(), 2);
}

TEST_F(Updater, ReportsTheSameOrAnOlderVersionAsUpToDateOnlyWhenAsked)
{
    for (const char *version : {"1.2", "1.1"}) {
        messages.clear();
        server.answerWithVersion(version);
        ask();
        ASSERT_EQ(messages.size(), 1);
        EXPECT_TRUE(messages.front().startsWith(u"Lyrabox is up to date."_s));
        askInSilence();
        EXPECT_EQ(messages.size(), 1);
    }
    EXPECT_TRUE(updates.isEmpty());
}

TEST_F(Updater, MalformedFeedIsReportedOnlyWhenAsked)
{
    server.answerWith("<html>no feed</html>");
    expectFailure(u"could not be understood"_s);
}

TEST_F(Updater, HugeFeedIsCutOff)
{
    server.answerWith("<rss>" + QByteArray(8 * 1024 * 1024, 'x'));
    expectFailure(u"too large"_s);
}

TEST_F(Updater, SlowServerTimesOut)
{
    updater.setTimeout(100);
    expectFailure(u"in time"_s);
}

TEST_F(Updater, RefusedConnectionIsReportedOnlyWhenAsked)
{
    const QUrl gone = server.url();
    server.close();
    updater.setFeedURL(gone);
    expectFailure(u""_s);
}

TEST_F(Updater, ErrorPageIsReportedOnlyWhenAsked)
{
    server.answerWith("gone", "404 Not Found");
    expectFailure(u""_s);
}

TEST_F(Updater, RedirectToAnotherSchemeIsRefused)
{
    for (const QByteArray &target :
         {QByteArray("file:///etc/passwd"), QByteArray("http://198.51.100.1/feed.xml"),
          QByteArray("ftp://127.0.0.1/feed.xml")}) {
        messages.clear();
        server.answerWith("", "302 Found", "Location: " + target + "\r\n");
        expectFailure(u"not secure"_s);
    }
}

TEST_F(Updater, RedirectOnThisMachineIsFollowedButNotForever)
{
    server.answerWithVersion("2.0");
    server.answer = [this, feed = server.answer](QTcpSocket &socket) {
        if (server.requests > 1) {
            feed(socket);
            return;
        }
        socket.write("HTTP/1.1 302 Found\r\nLocation: /other.xml\r\nContent-Length: "
                     "0\r\nConnection: close\r\n\r\n");
        socket.disconnectFromHost();
    };
    ask();
    EXPECT_EQ(updates.size(), 1);
    updates.clear();
    server.answerWith("", "302 Found", "Location: /feed.xml\r\n");
    server.requests = 0;
    expectFailure(u"not secure"_s);
    EXPECT_LE(server.requests, 14);
}

TEST_F(Updater, PlainHttpToOtherMachinesIsNeverUsed)
{
    EXPECT_TRUE(isAllowedFeedURL(QUrl(u"https://lyrabox.example/f"_s)));
    EXPECT_TRUE(isAllowedFeedURL(QUrl(u"http://[::1]:8080/f"_s)));
    EXPECT_FALSE(isAllowedFeedURL(QUrl(u"http://lyrabox.example/f"_s)));
    EXPECT_FALSE(isAllowedFeedURL(QUrl(u"file:///f"_s)));
    updater.setFeedURL(QUrl(u"http://lyrabox.example/f"_s));
    expectFailure(u"not secure"_s);
}

TEST_F(Updater, MissingFeedIsReportedOnlyWhenAsked)
{
    updater.setFeedURL({});
    expectFailure(u"without an address"_s);
}

TEST_F(Updater, ChecksAtOnceAndThenDaily)
{
    server.answerWithVersion("1.0");
    EXPECT_FALSE(updater.automaticallyChecksForUpdates());
    askInSilence();
    EXPECT_EQ(server.requests, 1);
    EXPECT_TRUE(updater.automaticallyChecksForUpdates());
    updater.setAutomaticallyChecksForUpdates(false);
    EXPECT_FALSE(updater.automaticallyChecksForUpdates());
}

TEST_F(Updater, UsersCheckTakesOverAnAutomaticOne)
{
    server.answerWithVersion("1.0");
    QSignalSpy finished(&updater, &SUUpdater::checkFinished);
    updater.setAutomaticallyChecksForUpdates(true);
    updater.checkForUpdates();
    ASSERT_TRUE(finished.wait(10000));
    EXPECT_EQ(messages.size(), 1);
    EXPECT_EQ(server.requests, 1);
}

} // namespace
} // namespace lyrabox
