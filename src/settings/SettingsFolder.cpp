#include "settings/SettingsFolder.h"

#include "platform/foundation/Files.h"

#include <QDir>
#include <QFile>

#include <filesystem>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

SettingsFolder makeSettingsFolder()
{
    const QStringList candidates = files::applicationSupportDirectories();
    if (candidates.isEmpty())
        return {};
    const QString path = QDir(candidates.first()).filePath(u"Lyrabox"_s);
    SettingsFolder folder{.url = QUrl::fromLocalFile(path), .error = {}};
    std::filesystem::create_directories(
        std::filesystem::path(QFile::encodeName(path).toStdString()), folder.error);
    return folder;
}

} // namespace lyrabox
