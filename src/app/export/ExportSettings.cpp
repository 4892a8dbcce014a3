#include "app/export/ExportSettings.h"

#include "platform/foundation/UserDefaults.h"

#include <QDir>
#include <QStandardPaths>

#include <algorithm>
#include <array>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::exportSettings {

namespace {

const QString folderKey = u"exportFolder"_s;
const QString formatKey = u"exportFormat"_s;

/// In the order of allSongFormats.
const std::array<QString, allSongFormats.size()> names = {
    u"flac"_s, u"wav16"_s, u"wav24"_s, u"wavFloat"_s, u"opus"_s, u"mp3"_s, u"m4a"_s};

} // namespace

QString folder()
{
    const QString stored = userDefaults().value(folderKey).toString();
    if (QDir::isAbsolutePath(stored))
        return stored;
    const QString music = QStandardPaths::writableLocation(QStandardPaths::MusicLocation);
    return !music.isEmpty() && QDir(music).exists() ? music : QDir::homePath();
}

void setFolder(const QString &path)
{
    userDefaults().setValue(folderKey, path);
}

SongFormat format()
{
    const auto found = std::ranges::find(names, userDefaults().value(formatKey).toString());
    return found == names.end() ? SongFormat::Flac
                                : allSongFormats[static_cast<std::size_t>(found - names.begin())];
}

void setFormat(SongFormat format)
{
    userDefaults().setValue(formatKey, names[static_cast<std::size_t>(format)]);
}

} // namespace lyrabox::exportSettings
