#include "fuzz/targets/FuzzTargets.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

namespace lyrabox::fuzz {

const std::vector<Target> &targets()
{
    static const std::vector<Target> all = {
        {"audio", &audio},
        {"tags", &tags},
        {"artwork", &artwork},
        {"propertylist", &propertyList},
        {"settings", &settings},
        {"preferences", &preferences},
        {"musiclibrary", &musicLibrary},
        {"rhythmbox", &rhythmbox},
        {"appcast", &appcast},
        {"fileurl", &fileUrl},
        {"identity", &identity},
        {"practice", &practice},
        {"sharing", &sharing},
        {"midi", &midi},
        {"pedals", &pedals},
    };
    return all;
}

QString scratchFolder()
{
    static const QTemporaryDir folder;
    return folder.path();
}

QString writtenFile(const QString &name, Bytes bytes)
{
    const QString path = scratchFolder() + u'/' + name;
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    const bool isWritten =
        file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered) &&
        file.write(reinterpret_cast<const char *>(bytes.data()),
                   static_cast<qint64>(bytes.size())) == static_cast<qint64>(bytes.size());
    require(isWritten, "the scratch folder takes files");
    return path;
}

} // namespace lyrabox::fuzz
