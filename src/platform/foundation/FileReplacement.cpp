#include "platform/foundation/FileReplacement.h"

#include "platform/foundation/FileStamp.h"
#include "platform/foundation/Files.h"

#include <QFile>
#include <QFileInfo>
#include <QIODevice>
#include <QScopeGuard>

#include <cerrno>
#include <cstdio>
#include <optional>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace lyrabox::files {
namespace {

bool writeAll(int file, const char *bytes, qint64 count)
{
    qint64 done = 0;
    while (done < count) {
        const ssize_t written = ::write(file, bytes + done, static_cast<std::size_t>(count - done));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        done += written;
    }
    return true;
}

/// A file that is written once from start to end. Small writes are buffered. After a write has
/// failed, all later ones fail, so the file never has a gap.
class NewFile : public QIODevice {
public:
    explicit NewFile(int file) : m_file(file)
    {
        open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    }

    bool isSequential() const override { return true; }

    /// Writes the buffered bytes. True if everything so far has been written.
    bool finish()
    {
        m_hasFailed = m_hasFailed || !writeAll(m_file, m_collected.constData(), m_collected.size());
        m_collected.clear();
        return !m_hasFailed;
    }

protected:
    qint64 readData(char *, qint64) override { return -1; }

    qint64 writeData(const char *bytes, qint64 count) override
    {
        if (m_collected.size() + count > maxCollected && !finish())
            return -1;
        if (count <= maxCollected)
            m_collected.append(bytes, count);
        else
            m_hasFailed = !writeAll(m_file, bytes, count);
        return m_hasFailed ? -1 : count;
    }

private:
    static constexpr qint64 maxCollected = 1 << 16;

    int m_file;
    QByteArray m_collected;
    bool m_hasFailed = false;
};

bool writeNew(const QByteArray &path, const ContentWriter &write, const struct stat *old)
{
    const int file = ::open(path.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (file < 0)
        return false;
    auto closing = qScopeGuard([file] { ::close(file); });
    NewFile device(file);
    const bool isWhole = write(device) && device.finish() &&
                         (old == nullptr || ::fchmod(file, old->st_mode & 07777) == 0) &&
                         ::fsync(file) == 0;
    closing.dismiss();
    return ::close(file) == 0 && isWhole;
}

/// Makes sure that the new name also survives a power failure. Not every file system can do this,
/// so errors are ignored.
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

bool replaceFile(const QString &path, const ContentWriter &write)
{
    const QString target = resolvingSymbolicLinks(path);
    const QByteArray name = QFile::encodeName(target);
    struct stat old = {};
    const bool exists = ::stat(name.constData(), &old) == 0;
    if (exists && (!S_ISREG(old.st_mode) || ::access(name.constData(), W_OK) != 0))
        return false;
    const QByteArray temporary = name + ".new";
    ::unlink(temporary.constData());
    auto removal = qScopeGuard([&temporary] { ::unlink(temporary.constData()); });
    if (!writeNew(temporary, write, exists ? &old : nullptr) ||
        ::rename(temporary.constData(), name.constData()) != 0)
        return false;
    removal.dismiss();
    flushFolder(QFileInfo(target).path());
    return true;
}

bool replaceFile(const QString &path, const QByteArray &content)
{
    return replaceFile(path, [&content](QIODevice &file) { return file.write(content) >= 0; });
}

bool keepAside(const QString &path, const QString &mark)
{
    const std::optional<FileStamp> file = fileStamp(path);
    for (int number = 1; number < 10000; ++number) {
        const QString kept = path + u'.' + mark + u'-' + QString::number(number);
        const QFileInfo info(kept);
        if (!info.exists() && !info.isSymLink())
            return makeHardLink(path, kept) || QFile::rename(path, kept);
        const std::optional<FileStamp> other = fileStamp(kept);
        if (file && other && file->device == other->device && file->inode == other->inode)
            return true;
    }
    return false;
}

} // namespace lyrabox::files
