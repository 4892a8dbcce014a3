#include "platform/foundation/FileStamp.h"

#include <QFile>

#include <sys/stat.h>

namespace lyrabox::files {

std::optional<FileStamp> fileStamp(const QString &path)
{
    struct stat attributes = {};
    if (path.isEmpty() || path.contains(QChar::Null) ||
        ::stat(QFile::encodeName(path).constData(), &attributes) != 0 ||
        !S_ISREG(attributes.st_mode))
        return std::nullopt;
    return FileStamp{.device = attributes.st_dev,
                     .inode = attributes.st_ino,
                     .size = attributes.st_size,
                     .changed = std::int64_t{attributes.st_mtim.tv_sec} * 1'000'000'000 +
                                attributes.st_mtim.tv_nsec};
}

} // namespace lyrabox::files
