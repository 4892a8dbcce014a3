#pragma once

#include "platform/updates/Appcast.h"

#include <QObject>
#include <QTimer>
#include <QUrl>

#include <functional>

class QNetworkAccessManager;
class QNetworkReply;

namespace lyrabox {

/// Whether a feed may be loaded from `url`: by https, or by http from this machine.
bool isAllowedFeedURL(const QUrl &url);

/// Checks an appcast feed for a newer version: at the start, then daily, and when the user asks. It
/// only reports the update through its Presenter; it neither downloads nor runs anything. Errors
/// are reported only if the user asked for the check. Main thread only.
class SUUpdater : public QObject {
    Q_OBJECT

public:
    /// Functions that show results to the user. They are called on the main thread; empty ones are
    /// skipped.
    struct Presenter {
        std::function<void(const AppcastItem &update)> showUpdate;
        std::function<void(const QString &message, const QString &detail)> showMessage;
    };

    explicit SUUpdater(QObject *parent = nullptr);
    ~SUUpdater() override;

    /// Where the feed is. An empty URL means that there is none.
    void setFeedURL(const QUrl &url) { m_feedURL = url; }
    /// The version of the running program, with which the feed is compared.
    void setCurrentVersion(const QString &version) { m_currentVersion = version; }
    void setPresenter(Presenter presenter) { m_presenter = std::move(presenter); }

    /// The most time that a whole check may take; 20 s by default.
    void setTimeout(int milliseconds) { m_timeout.setInterval(milliseconds); }

    bool automaticallyChecksForUpdates() const { return m_dailyTimer.isActive(); }

    /// With true, checks now and then once a day, and reports only updates. With false, stops doing
    /// so.
    void setAutomaticallyChecksForUpdates(bool automatically);

    /// Checks because the user asked, and reports any result. If an automatic check is running, its
    /// result is reported instead.
    void checkForUpdates();

    bool isChecking() const { return m_reply != nullptr; }

Q_SIGNALS:
    /// A check has ended and its result has been reported.
    void checkFinished();

private:
    enum class Trigger { Timer, User };
    enum class Failure { NoFeed, Refused, TooLarge, TimedOut, Malformed, Network };

    void check(Trigger trigger);
    void request(const QUrl &url);
    void received();
    void finished();
    void fail(Failure failure, const QString &detail = {});
    void end();
    void report(const QString &message, const QString &detail);

    QUrl m_feedURL;
    QString m_currentVersion;
    Presenter m_presenter;
    QNetworkAccessManager *m_network = nullptr; ///< exists while a check runs
    QNetworkReply *m_reply = nullptr;
    QByteArray m_feed;
    QTimer m_timeout;
    QTimer m_dailyTimer;
    int m_redirects = 0;
    bool m_askedByUser = false; ///< whether the user asked for the running check
};

} // namespace lyrabox
