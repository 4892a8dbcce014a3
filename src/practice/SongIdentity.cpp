#include "practice/SongIdentity.h"

#include "practice/PracticeFiles.h"

#include "platform/foundation/DiskPatience.h"

#include <QDir>

#include <memory>
#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

/// The digits of the hash that a name ends with; empty for other names.
QString digitsIn(const QString &name)
{
    constexpr qsizetype digits = 8;
    const qsizetype start = name.size() - ".json"_L1.size() - digits;
    if (start < 3 || QStringView(name).sliced(start - 3, 3) != u" - ")
        return {};
    const QString found = name.sliced(start, digits);
    for (const QChar digit : found) {
        if (!(digit >= u'0' && digit <= u'9') && !(digit >= u'a' && digit <= u'f'))
            return {};
    }
    return found;
}

QString audioOf(const QString &path)
{
    const PracticeFile file = loadPractice(path);
    return file.reading ? file.reading->record.song.audio : QString();
}

std::optional<QByteArray> hashOf(const SongReaderFactory &makeReader, const QString &path,
                                 const std::stop_token &stop)
{
    if (!files::mountThatMayHang(path))
        return makeReader()->payloadHash(path, stop);
    const auto hash = std::make_shared<std::optional<QByteArray>>();
    const bool hasEnded = files::runAbandonable(
        [hash, makeReader, path, stop] { *hash = makeReader()->payloadHash(path, stop); },
        [&stop] { return !stop.stop_requested(); });
    return hasEnded ? *hash : std::nullopt;
}

} // namespace

SongIdentity identifySong(const SongReaderFactory &makeReader, const QString &path,
                          const QString &folder, const std::stop_token &stop)
{
    SongIdentity identity;
    if (const auto hash = hashOf(makeReader, path, stop)) {
        identity.audio = QString::fromLatin1(*hash);
        identity.file = practiceFileOf(identity.audio, folder, stop);
    }
    return identity;
}

QString practiceFileOf(const QString &audio, const QString &folder, const std::stop_token &stop)
{
    const QDir directory(folder);
    QStringList others;
    for (const QString &name : directory.entryList(QDir::Files, QDir::Name)) {
        if (stop.stop_requested() || audio.isEmpty())
            return {};
        if (!isPracticeFileName(name))
            continue;
        const QString digits = digitsIn(name);
        if (digits.isEmpty())
            others.append(name);
        else if (audio.startsWith(digits) && audioOf(directory.filePath(name)) == audio)
            return name;
    }
    for (const QString &name : others) {
        if (stop.stop_requested())
            return {};
        if (audioOf(directory.filePath(name)) == audio)
            return name;
    }
    return {};
}

} // namespace lyrabox
