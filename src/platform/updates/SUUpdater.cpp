#include "platform/updates/SUUpdater.h"

#include "platform/foundation/Machine.h"

#include <QHostAddress>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>

#include <chrono>
#include <utility>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace lyrabox {

namespace {
constexpr qsizetype largestFeed = 1024 * 1024;
constexpr int maxRedirects = 5;
} // namespace

bool isAllowedFeedURL(const QUrl &url)
{
    if (!url.isValid() || url.host().isEmpty())
        return false;
    if (url.scheme() == u"https")
        return true;
    return url.scheme() == u"http" &&
           (url.host() == u"localhost" || QHostAddress(url.host()).isLoopback());
}

SUUpdater::SUUpdater(QObject *parent) : QObject(parent)
{
    m_timeout.setSingleShot(true);
    m_timeout.setInterval(20s);
    connect(&m_timeout, &QTimer::timeout, this, [this] { fail(Failure::TimedOut); });
    m_dailyTimer.setInterval(24h);
    connect(&m_dailyTimer, &QTimer::timeout, this, [this] { check(Trigger::Timer); });
}

SUUpdater::~SUUpdater()
{
    if (m_reply != nullptr)
        m_reply->disconnect(this);
}

void SUUpdater::setAutomaticallyChecksForUpdates(bool automatically)
{
    if (!automatically) {
        m_dailyTimer.stop();
        return;
    }
    m_dailyTimer.start();
    check(Trigger::Timer);
}

void SUUpdater::checkForUpdates()
{
    check(Trigger::User);
}

void SUUpdater::check(Trigger trigger)
{
    m_askedByUser = m_askedByUser || trigger == Trigger::User;
    if (isChecking())
        return;
    if (m_feedURL.isEmpty()) {
        fail(Failure::NoFeed);
        return;
    }
    m_redirects = 0;
    m_timeout.start();
    request(m_feedURL);
}

void SUUpdater::request(const QUrl &url)
{
    if (!isAllowedFeedURL(url)) {
        fail(Failure::Refused);
        return;
    }
    m_feed.clear();
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setHeader(QNetworkRequest::UserAgentHeader, u"Lyrabox/%1"_s.arg(m_currentVersion));
    if (m_network == nullptr)
        m_network = new QNetworkAccessManager(this);
    m_reply = m_network->get(request);
    connect(m_reply, &QNetworkReply::readyRead, this, &SUUpdater::received);
    connect(m_reply, &QNetworkReply::finished, this, &SUUpdater::finished);
}

void SUUpdater::received()
{
    m_feed += m_reply->read(largestFeed + 1 - m_feed.size());
    if (m_feed.size() > largestFeed)
        fail(Failure::TooLarge);
}

void SUUpdater::finished()
{
    received();
    if (m_reply == nullptr)
        return; // the answer was too large, and the check has failed
    const QVariant target = m_reply->attribute(QNetworkRequest::RedirectionTargetAttribute);
    if (target.isValid()) {
        const QUrl next = m_reply->url().resolved(target.toUrl());
        m_reply->disconnect(this);
        m_reply->deleteLater();
        m_reply = nullptr;
        if (++m_redirects > maxRedirects)
            fail(Failure::Refused);
        else
            request(next);
        return;
    }
    if (m_reply->error() != QNetworkReply::NoError) {
        fail(Failure::Network, m_reply->errorString());
        return;
    }
    const auto items = parseAppcast(m_feed);
    if (!items) {
        fail(Failure::Malformed);
        return;
    }
    const auto update = newestUpdate(*items, m_currentVersion);
    if (update && m_presenter.showUpdate) {
        end();
        m_presenter.showUpdate(*update);
    } else {
        if (m_askedByUser)
            report(tr("Lyrabox is up to date."),
                   tr("Version %1 is the newest there is.").arg(m_currentVersion));
        end();
    }
    Q_EMIT checkFinished();
}

void SUUpdater::fail(Failure failure, const QString &detail)
{
    QString reason;
    switch (failure) {
    case Failure::NoFeed:
        reason = tr("This version was built without an address to ask.");
        break;
    case Failure::Refused:
        reason = tr("The address for updates leads to a connection that is not secure.");
        break;
    case Failure::TooLarge:
        reason = tr("The answer was too large.");
        break;
    case Failure::TimedOut:
        reason = tr("The server did not answer in time.");
        break;
    case Failure::Malformed:
        reason = tr("The answer could not be understood.");
        break;
    case Failure::Network:
        reason = detail;
        break;
    }
    if (m_askedByUser)
        report(tr("Lyrabox could not check for updates."), reason);
    end();
    Q_EMIT checkFinished();
}

void SUUpdater::end()
{
    m_timeout.stop();
    m_askedByUser = false;
    m_feed.clear();
    if (QNetworkReply *reply = std::exchange(m_reply, nullptr)) {
        reply->disconnect(this);
        reply->abort();
        reply->deleteLater();
    }
    // The network's thread and its certificates take megabytes, and the next check comes tomorrow.
    if (QNetworkAccessManager *network = std::exchange(m_network, nullptr)) {
        connect(network, &QObject::destroyed, &giveBackFreedMemory);
        network->deleteLater();
    }
}

void SUUpdater::report(const QString &message, const QString &detail)
{
    if (m_presenter.showMessage)
        m_presenter.showMessage(message, detail);
}

} // namespace lyrabox
