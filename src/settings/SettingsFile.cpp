#include "settings/SettingsFile.h"

#include "platform/foundation/FileReplacement.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {
namespace {

QString pathIn(const QUrl &folder, const QString &name)
{
    return QDir(folder.toLocalFile()).filePath(name);
}

bool isThere(const QString &path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

} // namespace

SettingsFile::SettingsFile(QString name) : m_name(std::move(name)) {}

std::optional<PropertyList>
SettingsFile::read(const std::optional<QUrl> &folder,
                   const std::function<bool(const PropertyList &)> &expected)
{
    m_isUnreadable = false;
    if (!folder)
        return std::nullopt;
    const QString path = pathIn(*folder, m_name);
    std::optional<PropertyList> list = readPropertyList(path);
    if (list && expected(*list))
        return list;
    m_isUnreadable = isThere(path);
    if (m_isUnreadable)
        qWarning("Unable to read settings file %s", qUtf8Printable(path));
    return std::nullopt;
}

void SettingsFile::write(const std::optional<QUrl> &folder, const PropertyList &value)
{
    if (!folder)
        return;
    const QString path = pathIn(*folder, m_name);
    if (m_isUnreadable && isThere(path) && !files::keepAside(path, u"unreadable"_s)) {
        qWarning("Unable to keep unreadable settings file %s", qUtf8Printable(path));
        return;
    }
    m_isUnreadable = false;
    if (!writePropertyList(value, path))
        qWarning("Unable to write settings file %s", qUtf8Printable(path));
}

} // namespace lyrabox
