#include "support/program/SwayConnection.h"

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>
#include <array>
#include <cstring>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::test {
namespace {

constexpr int patienceMilliseconds = 20'000;
const QByteArray magic = "i3-ipc";

} // namespace

bool SwayConnection::connectTo(const QString &socket)
{
    m_socket.connectToServer(socket);
    return m_socket.waitForConnected(patienceMilliseconds);
}

bool SwayConnection::run(const QString &commands)
{
    const QJsonArray results = ask(Question::Run, commands.toUtf8()).array();
    return !results.isEmpty() &&
           std::all_of(results.begin(), results.end(), [](const QJsonValue &result) {
               return result.toObject().value(u"success"_s).toBool();
           });
}

QJsonDocument SwayConnection::tree()
{
    return ask(Question::Tree);
}

QJsonDocument SwayConnection::ask(Question question, const QByteArray &text)
{
    // Format in both directions: a magic word, the length and the type of the text in the machine's
    // byte order, and the text.
    const std::array<quint32, 2> header{static_cast<quint32>(text.size()),
                                        static_cast<quint32>(question)};
    m_socket.write(magic);
    m_socket.write(reinterpret_cast<const char *>(header.data()), sizeof header);
    m_socket.write(text);
    std::array<quint32, 2> answer{};
    const QByteArray head = read(magic.size() + static_cast<qsizetype>(sizeof answer));
    if (!head.startsWith(magic))
        return {};
    std::memcpy(answer.data(), head.constData() + magic.size(), sizeof answer);
    return QJsonDocument::fromJson(read(answer[0]));
}

QByteArray SwayConnection::read(qsizetype size)
{
    while (m_socket.bytesAvailable() < size) {
        if (!m_socket.waitForReadyRead(patienceMilliseconds))
            return {};
    }
    return m_socket.read(size);
}

} // namespace lyrabox::test
