#pragma once

#include "platform/updates/Appcast.h"

#include <QNetworkAccessManager>
#include <QObject>
#include <QTimer>
#include <QUrl>

#include <functional>

class QNetworkReply;

namespace lyrabox {

/// Whether the feed may be asked for there: https, or http on this machine.
bool isAllowedFeedURL(const QUrl &url);

/// Looks for a newer version in an appcast feed: at start and then daily, and when the user asks.
/// It shows what there is and opens its page; it downloads and runs nothing. A check that nobody
/// asked for fails in silence. Main thread.
class SUUpdater : public QObject {
    Q_OBJECT

public:
    /// How results reach the user. All are called on the main thread; an empty one is not called.
    struct Presenter {
        std::function<void(const AppcastItem &update)> showUpdate;
        std::function<void(const QString &message, const QString &detail)> showMessage;
    };

    explicit SUUpdater(QObject *parent = nullptr);
    ~SUUpdater() override;

    /// An empty URL means that there is no feed.
    void setFeedURL(const QUrl &url) { m_feedURL = url; }
    void setCurrentVersion(const QString &version) { m_currentVersion = version; }
    void setPresenter(Presenter presenter) { m_presenter = std::move(presenter); }

    /// How long a check may take altogether; 20 s at first.
    void setTimeout(int milliseconds) { m_timeout.setInterval(milliseconds); }

    bool automaticallyChecksForUpdates() const { return m_dailyTimer.isActive(); }

    /// True checks now, in silence, and then once a day.
    void setAutomaticallyChecksForUpdates(bool automatically);

    /// The user's check: whatever comes of it is said. One that runs in silence is taken over.
    void checkForUpdates();

    bool isChecking() const { return m_reply != nullptr; }

Q_SIGNALS:
    /// A check has ended and everything about it has been said.
    void checkFinished();

private:
    enum class Failure { NoFeed, Refused, TooLarge, TimedOut, Malformed, Network };

    void check(bool askedByUser);
    void request(const QUrl &url);
    void received();
    void finished();
    void fail(Failure failure, const QString &detail = {});
    void end();
    void say(const QString &message, const QString &detail);

    QUrl m_feedURL;
    QString m_currentVersion;
    Presenter m_presenter;
    QNetworkAccessManager m_network;
    QNetworkReply *m_reply = nullptr;
    QByteArray m_feed;
    QTimer m_timeout;
    QTimer m_dailyTimer;
    int m_redirects = 0;
    bool m_askedByUser = false;
};

} // namespace lyrabox
