#include "fuzz/targets/FuzzTargets.h"
#include "platform/foundation/MusicLibrary.h"
#include "platform/foundation/PropertyList.h"
#include "platform/foundation/RhythmboxLibrary.h"
#include "platform/foundation/UserDefaults.h"
#include "settings/LB_SettingsController.h"
#include "settings/SettingsRecords.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::fuzz {

namespace {

constexpr std::array settingsFiles = {"UserSettings.plist"_L1, "EQPresets.plist"_L1,
                                      "Folders.plist"_L1};

QByteArray content(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// A new folder for each run, because libraries cache what they know of a file.
QString freshFolder(const QString &name)
{
    static int number = 0;
    static QString last;
    if (!last.isEmpty())
        QDir(last).removeRecursively();
    last = scratchFolder() + u'/' + name + QString::number(++number);
    QDir().mkpath(last);
    return last;
}

void checkPresets(const EqPresetList &presets)
{
    require(std::any_of(presets.begin(), presets.end(),
                        [](const auto &preset) { return preset->id == 0; }),
            "there is a manual preset");
    for (const auto &preset : presets) {
        for (const float level : *preset->levels)
            require(std::isfinite(level) && std::abs(level) <= eqLevelLimit,
                    "levels keep their limit");
    }
}

void checkLibrary(const MusicLibrary &library)
{
    std::size_t withItems = 0;
    for (const MusicPlaylist &playlist : library.playlists)
        withItems += playlist.items ? 1 : 0;
    for (const auto &[identifier, track] : library.tracks) {
        if (track.location)
            locationURL(*track.location).toLocalFile();
        require(!track.totalTime || std::isfinite(*track.totalTime), "lengths are numbers");
    }
    require(withItems <= library.playlists.size(), "playlists are counted");
}

} // namespace

void propertyList(Bytes bytes)
{
    const std::optional<PropertyList> first = parsePropertyList(byteArray(bytes));
    if (!first || first->isNull())
        return;
    const QByteArray written = propertyListXml(*first);
    const std::optional<PropertyList> second = parsePropertyList(written);
    require(second.has_value(), "what was written is read");
    require(propertyListXml(*second) == written, "what was read is written the same");
}

void settings(Bytes bytes)
{
    // Unreadable files take the longest, and all take the same path.
    if (!parsePropertyList(byteArray(bytes)) && bytes.size() % 64 != 0)
        return;
    const QString home = freshFolder(u"settings"_s);
    qputenv("XDG_DATA_HOME", QFile::encodeName(home));
    const QString folder = home + "/Lyrabox/"_L1;
    QDir().mkpath(folder);
    for (const QLatin1StringView name : settingsFiles) {
        QFile file(folder + name);
        if (file.open(QIODevice::WriteOnly))
            file.write(byteArray(bytes));
    }
    const QString inode = u"4711"_s;
    std::array<QByteArray, settingsFiles.size()> written;
    {
        LB_SettingsController controller;
        controller.setup();
        checkPresets(*controller.eqPresetArray());
        const SongValues values = controller.valuesForInode(inode);
        require(std::isfinite(values.speed) && std::isfinite(values.pitch), "values are numbers");
        controller.sortDescriptorForListID(u"(null)"_s);
        controller.setValuesForInode({80.0F, 2.0F}, inode);
        controller.appWillTerminate();
        for (std::size_t i = 0; i < settingsFiles.size(); ++i)
            written[i] = content(folder + settingsFiles[i]);
    }
    LB_SettingsController again;
    again.setup();
    checkPresets(*again.eqPresetArray());
    require(again.valuesForInode(inode) == SongValues{80.0F, 2.0F}, "a stored pair is read back");
    again.appWillTerminate();
    for (std::size_t i = 0; i < settingsFiles.size(); ++i)
        require(content(folder + settingsFiles[i]) == written[i],
                "what was read is written the same");
}

void preferences(Bytes bytes)
{
    const QString home = freshFolder(u"config"_s);
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(home));
    QDir().mkpath(home + "/Lyrabox"_L1);
    for (const QLatin1StringView name : {"Lyrabox/Lyrabox.conf"_L1, "com.apple.iApps.plist"_L1}) {
        QFile file(home + u'/' + name);
        if (file.open(QIODevice::WriteOnly))
            file.write(byteArray(bytes));
    }
    reopenUserDefaults();
    for (const QString &key : userDefaults().allKeys())
        userDefaults().value(key).toString();
    setUserDefault(defaultsKey::outputVolume, 0.25F);
    reopenUserDefaults();
    require(userDefaults().value(defaultsKey::outputVolume).toFloat() == 0.25F,
            "what was stored is read back");

    locateMusicLibrary();
    const QString library = home + "/Library.xml"_L1;
    if (QFile file(library); file.open(QIODevice::WriteOnly))
        file.write("<plist><dict><key>Playlists</key><array/></dict></plist>");
    require(chooseMusicLibrary(library) && locateMusicLibrary() != nullptr,
            "a library that was chosen is found");
}

void musicLibrary(Bytes bytes)
{
    const MusicLibraryRef library = readMusicLibrary(writtenFile(u"Library.xml"_s, bytes));
    if (!library)
        return;
    checkLibrary(*library);
    const std::optional<PropertyList> list = parsePropertyList(byteArray(bytes));
    if (!list) // The stream skips values that it does not need.
        return;
    const QByteArray rewritten = propertyListXml(*list);
    const MusicLibraryRef again = readMusicLibrary(writtenFile(
        u"Library.xml"_s, {reinterpret_cast<const std::uint8_t *>(rewritten.constData()),
                           static_cast<std::size_t>(rewritten.size())}));
    require(again != nullptr, "a library that was written is read");
    require(again->playlists.size() == library->playlists.size(),
            "a library that was written has its playlists");
}

void rhythmbox(Bytes bytes)
{
    const auto middle = std::find(bytes.begin(), bytes.end(), 0);
    const auto first = static_cast<std::size_t>(middle - bytes.begin());
    writtenFile(u"rhythmbox/rhythmdb.xml"_s, bytes.first(first));
    writtenFile(u"rhythmbox/playlists.xml"_s, bytes.subspan(std::min(first + 1, bytes.size())));
    const MusicLibraryRef library = readRhythmboxLibrary(scratchFolder() + "/rhythmbox"_L1);
    if (!library)
        return;
    checkLibrary(*library);
    for (const MusicPlaylist &playlist : library->playlists) {
        require(playlist.items.has_value(), "playlists have items");
        for (const QString &item : *playlist.items)
            require(library->tracks.count(item) == 1, "items name songs");
    }
}

} // namespace lyrabox::fuzz
