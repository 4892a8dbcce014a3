#include "practice/SongTime.h"

namespace lyrabox {

namespace {

constexpr std::uint64_t decimalsPerSecond = 100'000;

std::optional<std::uint64_t> digits(QStringView text, qsizetype atMost)
{
    if (text.isEmpty() || text.size() > atMost)
        return std::nullopt;
    std::uint64_t number = 0;
    for (const QChar digit : text) {
        if (digit < u'0' || digit > u'9')
            return std::nullopt;
        number = number * 10 + static_cast<std::uint64_t>(digit.unicode() - u'0');
    }
    return number;
}

} // namespace

QString songTimeText(std::uint64_t frames)
{
    // 10 microseconds are less than half a frame, so rounding to them loses nothing.
    const std::uint64_t inSecond =
        (frames % practiceRate * decimalsPerSecond + practiceRate / 2) / practiceRate;
    const std::uint64_t seconds = frames / practiceRate + inSecond / decimalsPerSecond;
    const QChar zero = u'0';
    return QStringLiteral("%1:%2.%3")
        .arg(seconds / 60)
        .arg(seconds % 60, 2, 10, zero)
        .arg(inSecond % decimalsPerSecond, 5, 10, zero);
}

std::optional<std::uint64_t> framesOfSongTime(QStringView text)
{
    const qsizetype colon = text.indexOf(u':');
    if (colon < 0)
        return std::nullopt;
    const auto minutes = digits(text.first(colon), 5);
    QStringView rest = text.sliced(colon + 1);
    const qsizetype point = rest.indexOf(u'.');
    const QStringView wholeText = point < 0 ? rest : rest.first(point);
    const auto seconds = wholeText.size() == 2 ? digits(wholeText, 2) : std::nullopt;
    if (!minutes || !seconds || *seconds >= 60)
        return std::nullopt;
    std::uint64_t frames = (*minutes * 60 + *seconds) * practiceRate;
    if (point >= 0) {
        const QStringView decimals = rest.sliced(point + 1);
        const auto fraction = digits(decimals, 9);
        if (!fraction)
            return std::nullopt;
        std::uint64_t unit = 1;
        for (qsizetype i = 0; i < decimals.size(); ++i)
            unit *= 10;
        frames += (*fraction * practiceRate + unit / 2) / unit;
    }
    return frames <= lastSongPlace ? std::optional(frames) : std::nullopt;
}

} // namespace lyrabox
