#include "platform/foundation/MusicLibrary.h"
#include "platform/foundation/PropertyListFormats.h"
#include "platform/foundation/PropertyListReader.h"

#include <QFile>
#include <QFileInfo>

#include <cmath>
#include <string_view>

namespace lyrabox {
namespace {

using Token = PropertyListReader::Token;

// One function takes each member of a record, whether the record comes from the stream or from a
// tree. If a key occurs twice, the first one counts.

void take(std::optional<QString> &field, const PropertyList &value)
{
    if (const QString *const text = value.string(); text && !field)
        field = *text;
}

void takeText(QString &field, const PropertyList &value)
{
    if (const QString *const text = value.string(); text && field.isNull())
        field = *text;
}

/// The field of `track` for a key; null if the key is not used.
std::optional<QString> *textField(MusicTrack &track, std::string_view key)
{
    if (key == "Name")
        return &track.name;
    if (key == "Artist")
        return &track.artist;
    if (key == "Album")
        return &track.album;
    if (key == "Location")
        return &track.location;
    return nullptr;
}

bool isTrackKey(std::string_view key)
{
    return key == "Name" || key == "Artist" || key == "Album" || key == "Location" ||
           key == "Total Time";
}

void takeTrackMember(MusicTrack &track, std::string_view key, const PropertyList &value)
{
    if (std::optional<QString> *const field = textField(track, key))
        take(*field, value);
    else if (key == "Total Time" && !track.totalTime && std::isfinite(value.real().value_or(NAN)))
        track.totalTime = value.real();
}

bool isPlaylistKey(std::string_view key)
{
    return key == "Playlist Persistent ID" || key == "Parent Persistent ID" || key == "Name" ||
           key == "Visible" || key == "Distinguished Kind";
}

void takePlaylistMember(MusicPlaylist &playlist, std::string_view key, const PropertyList &value)
{
    if (key == "Playlist Persistent ID")
        takeText(playlist.persistentID, value);
    else if (key == "Parent Persistent ID")
        take(playlist.parentPersistentID, value);
    else if (key == "Name")
        takeText(playlist.name, value);
    else if (key == "Visible" && !playlist.visible)
        playlist.visible = value.boolean();
    else if (key == "Distinguished Kind" && !playlist.distinguishedKind)
        playlist.distinguishedKind = value.integer();
}

/// The identifier of a playlist item's track as text. A null string, which matches no track, if the
/// identifier has an unexpected type.
QString trackIdentifier(const PropertyList &value)
{
    if (const QString *const text = value.string())
        return *text;
    const std::optional<qint64> number = value.integer();
    return number ? QString::number(*number) : QString();
}

MusicTrack trackFrom(const PropertyList &record)
{
    MusicTrack track;
    for (const auto &[key, value] : *record.dictionary())
        takeTrackMember(track, key.toStdString(), value);
    return track;
}

std::vector<QString> itemsFrom(const PropertyList::Array &records)
{
    std::vector<QString> items;
    items.reserve(records.size());
    for (const PropertyList &record : records) {
        if (record.dictionary())
            items.push_back(trackIdentifier(record.value(u"Track ID")));
    }
    return items;
}

MusicLibraryRef libraryFrom(const PropertyList &root)
{
    if (!root.dictionary())
        return nullptr;
    auto library = std::make_shared<MusicLibrary>();
    if (const PropertyList::Dictionary *const tracks = root.value(u"Tracks").dictionary()) {
        library->tracks.reserve(tracks->size());
        for (const auto &[identifier, record] : *tracks) {
            if (record.dictionary())
                library->tracks.emplace(identifier, trackFrom(record));
        }
    }
    if (const PropertyList::Array *const playlists = root.value(u"Playlists").array()) {
        for (const PropertyList &record : *playlists) {
            if (!record.dictionary())
                continue;
            MusicPlaylist &playlist = library->playlists.emplace_back();
            for (const auto &[key, value] : *record.dictionary())
                takePlaylistMember(playlist, key.toStdString(), value);
            if (const PropertyList::Array *const items = record.value(u"Playlist Items").array())
                playlist.items = itemsFrom(*items);
        }
    }
    return library;
}

/// Reads the library from a stream and keeps only the parts it needs. Each function is called after
/// the first token of its value, reads to the end of the value and returns false if the file is
/// malformed.
class LibraryStream {
public:
    explicit LibraryStream(QIODevice &device) : m_reader(device) {}

    MusicLibraryRef read()
    {
        auto library = std::make_shared<MusicLibrary>();
        bool hasTracks = false;
        bool hasPlaylists = false;
        const bool isRead =
            m_reader.next() == Token::DictBegin && forEachMember([&](std::string_view key) {
                const bool isTracks =
                    key == "Tracks" && !std::exchange(hasTracks, hasTracks || key == "Tracks");
                const bool isPlaylists =
                    key == "Playlists" &&
                    !std::exchange(hasPlaylists, hasPlaylists || key == "Playlists");
                const Token token = m_reader.next();
                if (isTracks && token == Token::DictBegin)
                    return readTracks(*library);
                if (isPlaylists && token == Token::ArrayBegin)
                    return readPlaylists(*library);
                return m_reader.skipValue(token);
            });
        return isRead && m_reader.next() == Token::End ? library : nullptr;
    }

private:
    /// Calls `readValue` with each key of a dictionary; `readValue` then reads the value.
    template <typename ReadValue>
    bool forEachMember(ReadValue readValue)
    {
        for (Token token = m_reader.next(); token != Token::DictEnd; token = m_reader.next()) {
            if (token != Token::Key || !readValue(m_reader.text()))
                return false;
        }
        return true;
    }

    /// Calls `readDictionary` after the first token of each dictionary in an array.
    template <typename ReadDictionary>
    bool forEachDictionary(ReadDictionary readDictionary)
    {
        for (Token token = m_reader.next(); token != Token::ArrayEnd; token = m_reader.next()) {
            if (!(token == Token::DictBegin ? readDictionary() : m_reader.skipValue(token)))
                return false;
        }
        return true;
    }

    /// Reads the next value. The null value if it is not a scalar, which is then skipped. None if
    /// it is malformed.
    std::optional<PropertyList> scalar()
    {
        const Token token = m_reader.next();
        if (token == Token::DictBegin || token == Token::ArrayBegin)
            return m_reader.skipValue(token) ? std::optional(PropertyList()) : std::nullopt;
        return propertyListScalar(m_reader, token);
    }

    bool readTracks(MusicLibrary &library)
    {
        return forEachMember([&](std::string_view) {
            const QString identifier = m_reader.string();
            const Token token = m_reader.next();
            if (token != Token::DictBegin)
                return m_reader.skipValue(token);
            MusicTrack track;
            if (!readTrack(track))
                return false;
            library.tracks.emplace(identifier, std::move(track));
            return true;
        });
    }

    bool readTrack(MusicTrack &track)
    {
        return forEachMember([&](std::string_view key) {
            if (!isTrackKey(key))
                return m_reader.skipValue(m_reader.next());
            m_key = key; // a copy, because the next token replaces the text
            const std::optional<PropertyList> value = scalar();
            if (value)
                takeTrackMember(track, m_key, *value);
            return value.has_value();
        });
    }

    bool readPlaylists(MusicLibrary &library)
    {
        return forEachDictionary([&] { return readPlaylist(library.playlists.emplace_back()); });
    }

    bool readPlaylist(MusicPlaylist &playlist)
    {
        bool hasItems = false;
        return forEachMember([&](std::string_view key) {
            if (key == "Playlist Items") {
                const Token token = m_reader.next();
                if (std::exchange(hasItems, true) || token != Token::ArrayBegin)
                    return m_reader.skipValue(token);
                return readItems(playlist.items.emplace());
            }
            if (!isPlaylistKey(key))
                return m_reader.skipValue(m_reader.next());
            m_key = key;
            const std::optional<PropertyList> value = scalar();
            if (value)
                takePlaylistMember(playlist, m_key, *value);
            return value.has_value();
        });
    }

    bool readItems(std::vector<QString> &items)
    {
        return forEachDictionary([&] {
            std::optional<QString> identifier;
            const bool isRead = forEachMember([&](std::string_view key) {
                if (key != "Track ID" || identifier)
                    return m_reader.skipValue(m_reader.next());
                const std::optional<PropertyList> value = scalar();
                if (value)
                    identifier = trackIdentifier(*value);
                return value.has_value();
            });
            items.push_back(identifier.value_or(QString()));
            return isRead;
        });
    }

    PropertyListReader m_reader;
    std::string m_key;
};

} // namespace

MusicLibraryRef readMusicLibrary(const QString &file)
{
    QFile device(file);
    if (!QFileInfo(file).isFile() || !device.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return nullptr;
    const QByteArray beginning = device.read(8);
    if (isBinaryPropertyList(beginning) || isUtf16PropertyList(beginning)) {
        device.close();
        return libraryFrom(readPropertyList(file).value_or(PropertyList()));
    }
    return device.seek(0) ? LibraryStream(device).read() : nullptr;
}

} // namespace lyrabox
