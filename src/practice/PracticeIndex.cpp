#include "practice/PracticeIndex.h"

#include "practice/PracticeFiles.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

constexpr qint64 mostBytes = 16 << 20; // some 100,000 songs
constexpr std::size_t mostRefused = 10'000;

/// Reads "DEVICE INODE SIZE CHANGED", where the size and the time may have a sign.
std::optional<files::FileStamp> stampOf(const QString &text)
{
    const QList<QStringView> parts = QStringView(text).split(u' ');
    if (parts.size() != 4)
        return std::nullopt;
    std::array<bool, 4> isNumber{};
    const files::FileStamp stamp{.device = parts[0].toULongLong(&isNumber[0]),
                                 .inode = parts[1].toULongLong(&isNumber[1]),
                                 .size = parts[2].toLongLong(&isNumber[2]),
                                 .changed = parts[3].toLongLong(&isNumber[3])};
    const bool isValid = isNumber[0] && isNumber[1] && isNumber[2] && isNumber[3];
    return isValid ? std::optional(stamp) : std::nullopt;
}

QString textOf(const files::FileStamp &stamp)
{
    return u"%1 %2 %3 %4"_s.arg(stamp.device).arg(stamp.inode).arg(stamp.size).arg(stamp.changed);
}

} // namespace

PracticeIndex PracticeIndex::fromText(const QByteArray &text)
{
    PracticeIndex index;
    const QJsonObject root = QJsonDocument::fromJson(text).object();
    if (root["lyrabox practice index"_L1].toInt() != 1)
        return index;
    const QJsonObject songs = root["songs"_L1].toObject();
    for (auto song = songs.begin(); song != songs.end(); ++song) {
        const auto stamp = stampOf(song.key());
        if (stamp && isPracticeFileName(song.value().toString()))
            index.put(*stamp, song.value().toString());
    }
    const QJsonObject refused = root["no copies"_L1].toObject();
    for (auto song = refused.begin(); song != refused.end(); ++song) {
        for (const QJsonValue &copy : song.value().toArray())
            index.refuse(song.key(), copy.toString());
    }
    return index;
}

PracticeIndex PracticeIndex::inFolder(const QString &folder)
{
    const QString path = QDir(folder).filePath(practiceIndexName);
    QFile file(path);
    if (!files::fileStamp(path) || !file.open(QIODevice::ReadOnly) || file.size() > mostBytes)
        return {};
    return fromText(file.readAll());
}

QByteArray PracticeIndex::text() const
{
    QJsonObject songs;
    for (const auto &[key, entry] : m_entries)
        songs.insert(textOf(entry.song), entry.file);
    QJsonObject root{{u"lyrabox practice index"_s, 1}, {u"songs"_s, songs}};
    if (!m_refused.empty()) {
        QJsonObject refused;
        for (const auto &[song, copy] : m_refused) {
            QJsonArray copies = refused[song].toArray();
            copies.append(copy);
            refused.insert(song, copies);
        }
        root.insert("no copies"_L1, refused);
    }
    return QJsonDocument(root).toJson(QJsonDocument::Indented);
}

bool PracticeIndex::isRefused(const QString &song, const QString &copy) const
{
    return m_refused.contains({song, copy});
}

std::set<QString> PracticeIndex::refusedCopies(const QString &song) const
{
    std::set<QString> copies;
    for (auto each = m_refused.lower_bound({song, QString()});
         each != m_refused.end() && each->first == song; ++each)
        copies.insert(each->second);
    return copies;
}

bool PracticeIndex::refuse(const QString &song, const QString &copy)
{
    if (song.isEmpty() || copy.isEmpty() || m_refused.size() >= mostRefused)
        return false;
    return m_refused.emplace(song, copy).second;
}

std::optional<QString> PracticeIndex::fileOf(const files::FileStamp &song) const
{
    const auto found = m_entries.find({song.device, song.inode});
    if (found == m_entries.end() || found->second.song != song)
        return std::nullopt;
    return found->second.file;
}

bool PracticeIndex::put(const files::FileStamp &song, const QString &file)
{
    Entry &entry = m_entries[{song.device, song.inode}];
    if (entry.song == song && entry.file == file)
        return false;
    entry = {song, file};
    return true;
}

} // namespace lyrabox
