#include "platform/foundation/FileIdentity.h"

#include <QFile>

#include <ctime>

#include <sys/stat.h>

namespace lyrabox::files {

namespace {

std::int64_t nanoseconds(const timespec &time)
{
    constexpr std::int64_t perSecond = 1'000'000'000;
    return std::int64_t{time.tv_sec} * perSecond + time.tv_nsec;
}

} // namespace

std::optional<FileIdentity> fileIdentity(const QString &path)
{
    struct stat attributes = {};
    if (path.isEmpty() || path.contains(QChar::Null) ||
        ::stat(QFile::encodeName(path).constData(), &attributes) != 0)
        return std::nullopt;
    return FileIdentity{.device = attributes.st_dev,
                        .inode = attributes.st_ino,
                        .size = attributes.st_size,
                        .contentTime = nanoseconds(attributes.st_mtim),
                        .metadataTime = nanoseconds(attributes.st_ctim)};
}

} // namespace lyrabox::files
