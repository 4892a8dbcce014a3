#include "platform/foundation/MusicLibrary.h"

#include "platform/foundation/Files.h"
#include "platform/foundation/PropertyList.h"
#include "platform/foundation/RhythmboxLibrary.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <array>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {
namespace {

const QString recentDatabasesKey = u"iTunesRecentDatabases"_s;

QString preferencesPath()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return QDir(folder).filePath(u"com.apple.iApps.plist"_s);
}

/// Only names are looked at: what cannot be played is refused when it is loaded.
bool looksLikeSong(const QString &path)
{
    static constexpr std::array suffixes = {"aac"_L1,  "aif"_L1, "aiff"_L1, "ape"_L1, "flac"_L1,
                                            "m4a"_L1,  "mka"_L1, "mp3"_L1,  "oga"_L1, "ogg"_L1,
                                            "opus"_L1, "wav"_L1, "wma"_L1,  "wv"_L1};
    const QString suffix = QFileInfo(path).suffix();
    return std::any_of(suffixes.begin(), suffixes.end(), [&suffix](QLatin1StringView known) {
        return suffix.compare(known, Qt::CaseInsensitive) == 0;
    });
}

} // namespace

QUrl locationURL(const QString &location)
{
    if (location.startsWith(u'/'))
        return QUrl::fromLocalFile(location);
    QUrl url(location, QUrl::TolerantMode);
    if (url.isRelative())
        return {};
    if (url.scheme() == "file"_L1 && url.host().compare("localhost"_L1, Qt::CaseInsensitive) == 0)
        url.setHost(QString());
    return url;
}

MusicLibraryRef demoMusicLibrary(const QString &folder)
{
    QStringList songs;
    for (const files::Entry &entry : files::shallowEntries(folder)) {
        if (!entry.isDirectory && looksLikeSong(entry.path))
            songs.append(entry.path);
    }
    if (songs.isEmpty())
        return nullptr;
    songs.sort();

    auto library = std::make_shared<MusicLibrary>();
    std::vector<QString> items;
    for (const QString &path : std::as_const(songs)) {
        MusicTrack track;
        track.location = QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded);
        track.name = QFileInfo(path).completeBaseName();
        items.push_back(QString::number(items.size() + 1));
        library->tracks.emplace(items.back(), std::move(track));
    }
    MusicPlaylist playlist;
    playlist.persistentID = u"LyraboxDemoMusic"_s;
    playlist.name = QCoreApplication::translate("MusicLibrary", "Demo Music");
    playlist.items = std::move(items);
    library->playlists.push_back(std::move(playlist));
    return library;
}

MusicLibraryRef locateMusicLibrary()
{
    const PropertyList preferences = readPropertyList(preferencesPath()).value_or(PropertyList());
    const PropertyList::Array *const recent = preferences.value(recentDatabasesKey).array();
    if (recent && !recent->empty()) {
        const QString *const text = recent->front().string();
        const QUrl url = text ? locationURL(*text) : QUrl();
        return url.isLocalFile() ? readMusicLibrary(url.toLocalFile()) : nullptr;
    }
    for (const QString &folder : files::applicationSupportDirectories()) {
        if (const MusicLibraryRef library =
                readRhythmboxLibrary(QDir(folder).filePath(u"rhythmbox"_s)))
            return library;
    }
    return demoMusicLibrary(QDir(files::sharedResourceDirectory()).filePath(u"Demo"_s));
}

bool chooseMusicLibrary(const QString &file)
{
    const QString path = preferencesPath();
    PropertyList preferences = readPropertyList(path).value_or(PropertyList());
    if (!preferences.dictionary())
        preferences = PropertyList::Dictionary();
    PropertyList::Dictionary &members = *preferences.dictionary();
    const QUrl url = QUrl::fromLocalFile(QFileInfo(file).absoluteFilePath());
    std::erase_if(members,
                  [](const PropertyList::Member &m) { return m.first == recentDatabasesKey; });
    members.emplace_back(recentDatabasesKey, PropertyList::Array{url.toString(QUrl::FullyEncoded)});
    return QDir().mkpath(QFileInfo(path).path()) && writePropertyList(preferences, path);
}

} // namespace lyrabox
