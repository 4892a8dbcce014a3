#include "practice/BeatGridText.h"

#include "practice/SongTime.h"

#include <QList>

#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

/// A whole number of up to five digits, without a sign.
std::optional<int> number(QStringView text)
{
    const bool isDigits =
        std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    if (text.isEmpty() || text.size() > 5 || !isDigits)
        return std::nullopt;
    return text.toInt();
}

/// An anchor; its bars have no length if the text names none.
std::optional<BeatAnchor> anchorOf(QStringView text)
{
    QList<QStringView> words = text.split(u' ');
    BeatAnchor anchor{.beatsPerBar = 0};
    if (words.size() > 2 && words.back() == "lost"_L1) {
        anchor.isLost = true;
        words.pop_back();
    }
    if (words.size() == 4 && words[2] == "bar"_L1) {
        anchor.beatsPerBar = number(words[3]).value_or(0);
        if (anchor.beatsPerBar < BeatGrid::shortestBar || anchor.beatsPerBar > BeatGrid::longestBar)
            return std::nullopt;
        words.resize(2);
    }
    if (words.size() != 2)
        return std::nullopt;
    const auto frame = framesOfSongTime(words[0]);
    const qsizetype point = words[1].indexOf(u'.');
    if (!frame || point < 0)
        return std::nullopt;
    const auto bar = number(words[1].first(point));
    const auto beat = number(words[1].sliced(point + 1));
    if (!bar || !beat)
        return std::nullopt;
    anchor.frame = *frame;
    anchor.bar = *bar;
    anchor.beat = *beat;
    return anchor;
}

} // namespace

QString beatAnchorText(const BeatAnchor &anchor, int beatsPerBar)
{
    QString text = songTimeText(anchor.frame) + u' ' + QString::number(anchor.bar) + u'.' +
                   QString::number(anchor.beat);
    if (anchor.beatsPerBar != beatsPerBar)
        text += u" bar "_s + QString::number(anchor.beatsPerBar);
    if (anchor.isLost)
        text += u" lost"_s;
    return text;
}

BeatGrid beatGridOf(const std::vector<QString> &anchors, int beatsPerBar, bool &isWhole)
{
    std::vector<BeatAnchor> read;
    for (const QString &text : anchors) {
        if (const auto anchor = anchorOf(text))
            read.push_back(*anchor);
    }
    std::stable_sort(read.begin(), read.end(),
                     [](const BeatAnchor &a, const BeatAnchor &b) { return a.frame < b.frame; });
    for (BeatAnchor &anchor : read) {
        if (anchor.beatsPerBar == 0)
            anchor.beatsPerBar = beatsPerBar;
        beatsPerBar = anchor.beatsPerBar;
    }
    BeatGrid grid(std::move(read));
    isWhole = isWhole && grid.anchors().size() == anchors.size();
    return grid;
}

} // namespace lyrabox
