#include "platform/foundation/RhythmboxLibrary.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSet>
#include <QXmlStreamReader>

#include <algorithm>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {
namespace {

constexpr qint64 allSongsKind = 4;

/// The songs of "rhythmdb.xml".
struct Songs {
    std::unordered_map<QString, MusicTrack> tracks; ///< by location
    QSet<QString> hidden;                           ///< locations of hidden songs
};

bool openXml(QFile &file)
{
    return QFileInfo(file.fileName()).isFile() && file.open(QIODevice::ReadOnly);
}

/// Converts seconds as text to milliseconds; none if the text is not a finite number.
std::optional<double> milliseconds(const QString &seconds)
{
    const double value = seconds.toDouble() * 1000.0;
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

/// Reads one entry of type "song".
void readSong(QXmlStreamReader &xml, Songs &songs)
{
    MusicTrack track;
    QString location;
    bool isHidden = false;
    while (xml.readNextStartElement()) {
        const QString name = xml.name().toString();
        const QString text = xml.readElementText(QXmlStreamReader::SkipChildElements);
        if (name == "location"_L1)
            location = text;
        else if (name == "title"_L1)
            track.name = text;
        else if (name == "artist"_L1)
            track.artist = text;
        else if (name == "album"_L1)
            track.album = text;
        else if (name == "duration"_L1)
            track.totalTime = milliseconds(text);
        else if (name == "hidden"_L1)
            isHidden = text.toInt() != 0;
    }
    if (location.isEmpty() || xml.hasError())
        return;
    if (isHidden) {
        songs.hidden.insert(location);
        return;
    }
    track.location = location;
    songs.tracks.emplace(location, std::move(track));
}

std::optional<Songs> readSongs(const QString &path)
{
    QFile file(path);
    if (!openXml(file))
        return std::nullopt;
    QXmlStreamReader xml(&file);
    if (!xml.readNextStartElement() || xml.name() != "rhythmdb"_L1)
        return std::nullopt;
    Songs songs;
    while (xml.readNextStartElement()) {
        if (xml.name() == "entry"_L1 && xml.attributes().value("type"_L1) == "song"_L1)
            readSong(xml, songs);
        else
            xml.skipCurrentElement();
    }
    return xml.hasError() ? std::nullopt : std::optional(std::move(songs));
}

QString persistentID(const QString &kind, const QString &name, int occurrence)
{
    QByteArray seed = (kind + u'\n' + name).toUtf8();
    if (occurrence > 0)
        seed += '\n' + QByteArray::number(occurrence);
    const QByteArray hash = QCryptographicHash::hash(seed, QCryptographicHash::Sha1);
    return QString::fromLatin1(hash.left(8).toHex().toUpper());
}

MusicPlaylist allSongs(const Songs &songs)
{
    MusicPlaylist playlist;
    playlist.persistentID = persistentID(u"all"_s, QString(), 0);
    playlist.name = QCoreApplication::translate("MusicLibrary", "Music");
    playlist.distinguishedKind = allSongsKind;
    std::vector<QString> items;
    items.reserve(songs.tracks.size());
    for (const auto &track : songs.tracks)
        items.push_back(track.first);
    std::sort(items.begin(), items.end()); // the order in the file has no meaning
    playlist.items = std::move(items);
    return playlist;
}

/// Reads the locations of one static playlist. A song that is not in `songs` is added with nothing
/// but its location.
std::vector<QString> readItems(QXmlStreamReader &xml, Songs &songs)
{
    std::vector<QString> items;
    while (xml.readNextStartElement()) {
        const bool isLocation = xml.name() == "location"_L1;
        const QString location = xml.readElementText(QXmlStreamReader::SkipChildElements);
        if (!isLocation || location.isEmpty() || songs.hidden.contains(location))
            continue;
        MusicTrack &track = songs.tracks[location];
        track.location = location;
        items.push_back(location);
    }
    return items;
}

std::vector<MusicPlaylist> readPlaylists(const QString &path, Songs &songs)
{
    std::vector<MusicPlaylist> playlists;
    QFile file(path);
    if (!openXml(file))
        return playlists;
    QXmlStreamReader xml(&file);
    if (!xml.readNextStartElement() || xml.name() != "rhythmdb-playlists"_L1)
        return playlists;
    QHash<QString, int> occurrences;
    while (xml.readNextStartElement()) {
        if (xml.name() != "playlist"_L1 || xml.attributes().value("type"_L1) != "static"_L1) {
            xml.skipCurrentElement();
            continue;
        }
        MusicPlaylist playlist;
        playlist.name = xml.attributes().value("name"_L1).toString();
        playlist.persistentID =
            persistentID(u"static"_s, playlist.name, occurrences[playlist.name]++);
        playlist.items = readItems(xml, songs);
        playlists.push_back(std::move(playlist));
    }
    return xml.hasError() ? std::vector<MusicPlaylist>() : playlists;
}

} // namespace

MusicLibraryRef readRhythmboxLibrary(const QString &folder)
{
    std::optional<Songs> songs = readSongs(QDir(folder).filePath(u"rhythmdb.xml"_s));
    if (!songs || songs->tracks.empty())
        return nullptr;
    auto library = std::make_shared<MusicLibrary>();
    library->playlists.push_back(allSongs(*songs));
    for (MusicPlaylist &playlist : readPlaylists(QDir(folder).filePath(u"playlists.xml"_s), *songs))
        library->playlists.push_back(std::move(playlist));
    library->tracks = std::move(songs->tracks);
    return library;
}

} // namespace lyrabox
