#include "practice/AnchorText.h"

#include "practice/SongTime.h"

#include <QJsonArray>

#include <algorithm>
#include <optional>
#include <utility>

namespace lyrabox {

namespace {

constexpr qsizetype bytesOfWord = 4;

std::optional<SongAnchor> anchorOf(const QString &text)
{
    const qsizetype space = text.indexOf(u' ');
    const auto at = framesOfSongTime(QStringView(text).first(std::max<qsizetype>(0, space)));
    if (!at)
        return std::nullopt;
    const auto decoded = QByteArray::fromBase64Encoding(text.sliced(space + 1).toLatin1(),
                                                        QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded ||
        decoded.decoded.size() != bytesOfWord * static_cast<qsizetype>(SongAnchor::steps))
        return std::nullopt;
    SongAnchor anchor{.at = *at, .words = std::vector<std::uint32_t>(SongAnchor::steps)};
    qsizetype byte = 0;
    for (std::uint32_t &word : anchor.words) {
        for (unsigned shift = 0; shift < 32; shift += 8)
            word |= std::uint32_t{static_cast<unsigned char>(decoded.decoded[byte++])} << shift;
    }
    return anchor;
}

} // namespace

QString anchorText(const SongAnchor &anchor)
{
    QByteArray bytes;
    for (const std::uint32_t word : anchor.words) {
        for (unsigned shift = 0; shift < 32; shift += 8)
            bytes += static_cast<char>(word >> shift & 0xFFU);
    }
    return songTimeText(anchor.at) + u' ' + QString::fromLatin1(bytes.toBase64());
}

SongAnchors anchorsOf(const QJsonValue &array)
{
    const QJsonArray texts = array.toArray();
    if (texts.size() != static_cast<qsizetype>(anchorsOfSong))
        return {};
    SongAnchors anchors;
    for (const QJsonValue &text : texts) {
        std::optional<SongAnchor> anchor = anchorOf(text.toString());
        if (!anchor || (!anchors.empty() && anchor->at <= anchors.back().at))
            return {};
        anchors.push_back(std::move(*anchor));
    }
    return anchors;
}

} // namespace lyrabox
