#include "platform/foundation/MusicLibrary.h"

#include "platform/foundation/Files.h"
#include "platform/foundation/PropertyList.h"
#include "platform/foundation/RhythmboxLibrary.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {
namespace {

const QString recentDatabasesKey = u"iTunesRecentDatabases"_s;

QString preferencesPath()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return QDir(folder).filePath(u"com.apple.iApps.plist"_s);
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
    const MusicLibraryRef shipped = readMusicLibrary(QDir(folder).filePath(u"Library.xml"_s));
    if (!shipped)
        return nullptr;
    auto library = std::make_shared<MusicLibrary>(*shipped);
    const QUrl base = QUrl::fromLocalFile(folder + u'/');
    for (auto &[id, track] : library->tracks) {
        if (track.location)
            track.location = base.resolved(QUrl(*track.location)).toString(QUrl::FullyEncoded);
    }
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
