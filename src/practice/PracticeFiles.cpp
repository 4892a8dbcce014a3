#include "practice/PracticeFiles.h"

#include "practice/PracticeIndex.h"

#include "platform/foundation/FileReplacement.h"
#include "platform/foundation/Files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

constexpr auto extension = ".json"_L1;

/// The assignments of pedals and keys, in the same folder.
constexpr auto pedalsName = "Pedals.json"_L1;

/// Leaves room for the hash, the extension, and what is added to the names of temporary files.
constexpr qsizetype titleBytes = 150;

QString safeTitle(const QString &title)
{
    QString result;
    for (const QChar unit : title) {
        const bool isReserved =
            u"/\\:*?\"<>|"_s.contains(unit) || unit.category() == QChar::Other_Control;
        result += isReserved ? u' ' : unit;
    }
    result = result.simplified();
    while (result.startsWith(u'.'))
        result = result.sliced(1).trimmed();
    while (result.toUtf8().size() > titleBytes)
        result.chop(result.back().isLowSurrogate() ? 2 : 1);
    result = result.trimmed();
    return result.isEmpty() ? u"Song"_s : result;
}

bool isThere(const QString &path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

/// Makes sure that nothing is lost when the file is replaced.
bool keepWhatMustStay(const PracticeWrite &write, const QString &path, PracticeWritten &written)
{
    if (!isThere(path))
        return true;
    if (write.keepsOld)
        return files::keepAside(path, u"unreadable"_s);
    if (write.expected && files::fileStamp(path) == write.expected)
        return true;
    written.keptOther = files::keepAside(path, u"changed"_s);
    return written.keptOther;
}

} // namespace

QString practiceFolder()
{
    const QStringList folders = files::applicationSupportDirectories();
    return folders.isEmpty() ? QString() : QDir(folders.first()).filePath(u"Lyrabox/Practice"_s);
}

bool isPracticeFileName(const QString &name)
{
    return name.size() > extension.size() && name.endsWith(extension) && !name.startsWith(u'.') &&
           !name.contains(u'/') && !name.contains(QChar::Null) && name != practiceIndexName && name != pedalsName;
}

QString practiceFileName(const QString &title, const QString &audio,
                         const std::function<bool(const QString &)> &isTaken)
{
    const QString end =
        audio.isEmpty() ? QString() : u" - "_s + audio.first(std::min<qsizetype>(8, audio.size()));
    const QString start = safeTitle(title);
    QString name = start + end + extension;
    for (int number = 2; !isPracticeFileName(name) || isTaken(name); ++number)
        name = start + u" ("_s + QString::number(number) + u')' + end + extension;
    return name;
}

PracticeFile loadPractice(const QString &path)
{
    PracticeFile result;
    result.stamp = files::fileStamp(path);
    // Only a regular file: a pipe would block.
    if (!result.stamp || result.stamp->size > PracticeLimits::fileBytes)
        return result;
    QFile file(path);
    if (file.open(QIODevice::ReadOnly))
        result.reading = readPractice(file.read(PracticeLimits::fileBytes + 1));
    return result;
}

PracticeWritten writePractice(const PracticeWrite &write)
{
    PracticeWritten written;
    const QDir folder(write.folder);
    const QString path = folder.filePath(write.name);
    if (!folder.mkpath(u"."_s) || !keepWhatMustStay(write, path, written) ||
        !files::replaceFile(path, write.text)) {
        qWarning("Unable to write practice file %s", qUtf8Printable(path));
        return written;
    }
    written.isWritten = true;
    written.stamp = files::fileStamp(path);
    if (!write.supersedes.isEmpty() && write.supersedes != write.name)
        QFile::remove(folder.filePath(write.supersedes));
    if (!write.index.isEmpty() &&
        !files::replaceFile(folder.filePath(practiceIndexName), write.index))
        qWarning("Unable to write the index of %s", qUtf8Printable(write.folder));
    return written;
}

} // namespace lyrabox
