#include "export/ExportRequest.h"

#include "platform/audio/TimePitch.h"

#include <QLatin1String>

#include <algorithm>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

constexpr qsizetype longestName = 255; // bytes

/// The longest beginning of `text` of at most `bytes` bytes that ends with a whole character.
QString cutTo(const QString &text, qsizetype bytes)
{
    QString result = text;
    while (result.toUtf8().size() > bytes) {
        const bool isPair = result.size() > 1 && result.back().isLowSurrogate();
        result.chop(isPair ? 2 : 1);
    }
    return result;
}

bool isRefused(QChar character)
{
    return character.unicode() < 0x20 || character.unicode() == 0x7F ||
           uR"(/\:*?"<>|)"_s.contains(character);
}

} // namespace

std::vector<ExportPass> repeatedPass(const ExportPass &pass, int times)
{
    return std::vector<ExportPass>(static_cast<std::size_t>(std::max(times, 0)), pass);
}

double soundingRate(float rate)
{
    return static_cast<double>(std::clamp(rate, TimePitch::minimumRate, TimePitch::maximumRate));
}

std::uint64_t exportedFrames(const std::vector<ExportPass> &passes, std::uint64_t songFrames)
{
    double frames = 0.0;
    for (const ExportPass &pass : passes) {
        const std::uint64_t end = std::min(pass.end, songFrames);
        const std::uint64_t length = end > pass.start ? end - pass.start : 0;
        frames += static_cast<double>(length + pass.before.frames) / soundingRate(pass.rate);
    }
    return static_cast<std::uint64_t>(std::llround(frames));
}

QString exportFileName(const QString &title, SongFormat format, const QString &otherwise)
{
    QString name = title.left(longestName);
    std::replace_if(name.begin(), name.end(), isRefused, u'-');
    name = name.trimmed();
    while (name.startsWith(u'.'))
        name.remove(0, 1);
    const QString suffix = u'.' + QLatin1String(suffixOf(format));
    name = cutTo(name, longestName - suffix.size()).trimmed();
    return (name.isEmpty() ? otherwise : name) + suffix;
}

} // namespace lyrabox
