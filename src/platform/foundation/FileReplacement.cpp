#include "platform/foundation/FileReplacement.h"

#include "platform/foundation/Files.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace lyrabox::files {
namespace {

bool writeAll(int file, const QByteArray &content)
{
    qsizetype done = 0;
    while (done < content.size()) {
        const ssize_t written = ::write(file, content.constData() + done,
                                        static_cast<std::size_t>(content.size() - done));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        done += written;
    }
    return true;
}

bool writeNew(const QByteArray &path, const QByteArray &content, const struct stat *old)
{
    const int file = ::open(path.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (file < 0)
        return false;
    const bool isWhole = writeAll(file, content) &&
                         (old == nullptr || ::fchmod(file, old->st_mode & 07777) == 0) &&
                         ::fsync(file) == 0;
    return ::close(file) == 0 && isWhole;
}

/// So that the new name, too, survives a power failure. Not every file system can.
void flushFolder(const QString &path)
{
    const int folder =
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return;
    ::fsync(folder);
    ::close(folder);
}

} // namespace

bool replaceFile(const QString &path, const QByteArray &content)
{
    const QString target = resolvingSymbolicLinks(path);
    const QByteArray name = QFile::encodeName(target);
    struct stat old = {};
    const bool exists = ::stat(name.constData(), &old) == 0;
    if (exists && (!S_ISREG(old.st_mode) || ::access(name.constData(), W_OK) != 0))
        return false;
    const QByteArray temporary = name + ".new";
    ::unlink(temporary.constData());
    if (!writeNew(temporary, content, exists ? &old : nullptr) ||
        ::rename(temporary.constData(), name.constData()) != 0) {
        ::unlink(temporary.constData());
        return false;
    }
    flushFolder(QFileInfo(target).path());
    return true;
}

} // namespace lyrabox::files
