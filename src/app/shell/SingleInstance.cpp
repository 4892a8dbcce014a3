#include "app/shell/SingleInstance.h"

#include "platform/foundation/Machine.h"

#include <QCryptographicHash>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLocalServer>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QThread>

#include <future>
#include <memory>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

constexpr int answerTimeout = 3000;                       // milliseconds
constexpr int retryInterval = 50;                         // milliseconds
constexpr qsizetype maximumMessageSize = 8 * 1024 * 1024; // more than a command line holds
const QByteArray acknowledgement = "ok";
const QByteArray tokenMark = "activation-token ";

/// The name of the socket of this user and this folder. Socket names must be short, so it contains
/// a hash of the folder's path.
QString socketName(const QString &folder)
{
    const QByteArray hash =
        QCryptographicHash::hash(folder.toUtf8(), QCryptographicHash::Sha256).toHex().left(16);
    QString directory = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (directory.isEmpty())
        directory = QDir::tempPath();
    return QDir(directory).filePath(u"lyrabox-"_s + QString::fromLatin1(hash));
}

/// A request as text: a line for the token, a line for each URL, an empty line.
QByteArray message(const SingleInstance::Request &request)
{
    QByteArray bytes;
    if (!request.activationToken.isEmpty())
        bytes += tokenMark + request.activationToken.toUtf8().toPercentEncoding() + '\n';
    for (const QUrl &url : request.urls)
        bytes += url.toEncoded() + '\n';
    return bytes + '\n';
}

SingleInstance::Request requestOf(const QByteArray &message)
{
    SingleInstance::Request request;
    for (const QByteArray &line : message.split('\n')) {
        if (line.startsWith(tokenMark))
            request.activationToken =
                QString::fromUtf8(QByteArray::fromPercentEncoding(line.mid(tokenMark.size())));
        else if (!line.isEmpty())
            request.urls.append(QUrl::fromEncoded(line));
    }
    return request;
}

/// Receives each request, on the listener's thread.
using RequestHandler = std::function<void(const SingleInstance::Request &request)>;

void receive(QLocalSocket *socket, const RequestHandler &handle)
{
    if (socket->bytesAvailable() > maximumMessageSize) {
        socket->abort();
        return;
    }
    const QByteArray bytes = socket->peek(maximumMessageSize);
    if (bytes != "\n" && !bytes.endsWith("\n\n"))
        return; // the message is not complete yet
    socket->readAll();
    handle(requestOf(bytes));
    socket->write(acknowledgement);
    socket->disconnectFromServer();
}

void serve(QLocalServer *server, const QString &name, const RequestHandler &handle)
{
    server->setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(server, &QLocalServer::newConnection, server, [server, handle] {
        QLocalSocket *socket = server->nextPendingConnection();
        QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        QObject::connect(socket, &QLocalSocket::readyRead, server,
                         [socket, handle] { receive(socket, handle); });
    });
    QLocalServer::removeServer(name); // a killed process may have left its socket
    if (!server->listen(name))
        qWarning("Other instances cannot reach this one: %s", qPrintable(server->errorString()));
}

} // namespace

SingleInstance::SingleInstance(const QString &folder, QObject *parent)
    : QObject(parent),
      m_socketName(socketName(folder)),
      m_lock(QDir(folder).filePath(u".running"_s))
{
    m_lock.setStaleLockTime(0); // a lock is stale only if its process is gone
    connect(this, &SingleInstance::requestArrived, this, &SingleInstance::handleRequests,
            Qt::QueuedConnection);
}

SingleInstance::~SingleInstance()
{
    const std::lock_guard lock(m_mutex);
    if (m_listener != nullptr)
        m_listener->deleteLater();
}

SingleInstance::Role SingleInstance::claim(const Request &request)
{
    QElapsedTimer clock;
    clock.start();
    // The first process may be starting or ending, so both the lock and the socket are tried
    // repeatedly.
    do {
        if (m_lock.tryLock(0) || m_lock.error() == QLockFile::PermissionError) {
            listen();
            return Role::First;
        }
        if (ask(request))
            return Role::Second;
        QThread::msleep(retryInterval);
    } while (!clock.hasExpired(answerTimeout));
    return Role::Unanswered;
}

void SingleInstance::setHandler(std::function<void(const Request &request)> handler)
{
    m_handler = std::move(handler);
    handleRequests();
}

void SingleInstance::listen()
{
    const RequestHandler handle = [this](const Request &request) {
        {
            const std::lock_guard lock(m_mutex);
            m_requests.push_back(request);
        }
        Q_EMIT requestArrived();
    };
    const auto listening = std::make_shared<std::promise<void>>();
    m_thread = startThread([this, handle, listening] {
        QEventLoop loop;
        auto *server = new QLocalServer;
        QObject::connect(server, &QObject::destroyed, &loop, &QEventLoop::quit);
        serve(server, m_socketName, handle);
        {
            const std::lock_guard lock(m_mutex);
            m_listener = server;
        }
        listening->set_value();
        loop.exec();
    });
    if (m_thread.joinable())
        listening->get_future().wait();
    else
        serve(new QLocalServer(this), m_socketName, handle); // the system cannot start a thread
}

void SingleInstance::handleRequests()
{
    if (!m_handler)
        return;
    std::vector<Request> requests;
    {
        const std::lock_guard lock(m_mutex);
        requests = std::exchange(m_requests, {});
    }
    for (const Request &request : requests)
        m_handler(request);
}

bool SingleInstance::ask(const Request &request) const
{
    QLocalSocket socket;
    socket.connectToServer(m_socketName);
    if (!socket.waitForConnected(retryInterval))
        return false;
    socket.write(message(request));
    return socket.waitForReadyRead(answerTimeout) && socket.readAll() == acknowledgement;
}

} // namespace lyrabox
