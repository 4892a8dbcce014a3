#include "platform/foundation/FileStamp.h"

#include <QFile>

#include <sys/stat.h>

namespace lyrabox::files {

namespace {

std::int64_t nanoseconds(const timespec &time)
{
    return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

} // namespace

std::optional<FileStamp> fileStamp(const QString &path)
{
    const std::optional<FileIdentity> identity = fileIdentity(path);
    return identity ? std::optional(identity->stamp) : std::nullopt;
}

std::optional<FileIdentity> fileIdentity(const QString &path)
{
    struct stat attributes = {};
    if (path.isEmpty() || path.contains(QChar::Null) ||
        ::stat(QFile::encodeName(path).constData(), &attributes) != 0 ||
        !S_ISREG(attributes.st_mode))
        return std::nullopt;
    return FileIdentity{.stamp = {.device = attributes.st_dev,
                                  .inode = attributes.st_ino,
                                  .size = attributes.st_size,
                                  .changed = nanoseconds(attributes.st_mtim)},
                        .attributesChanged = nanoseconds(attributes.st_ctim)};
}

} // namespace lyrabox::files
