#include "library/TrackSearch.h"

#include "platform/foundation/ByteSearch.h"

#include <algorithm>
#include <string_view>

namespace lyrabox {

using namespace Qt::Literals::StringLiterals;

namespace {

// Not a byte of UTF-8, so that no match crosses fields or records.
constexpr char fieldEnd = '\xFF';

bool isAscii(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
}

// Letters with a stroke, and the dotless i, have no decomposition, but should match the plain
// letter.
QChar withoutStroke(QChar c)
{
    switch (c.unicode()) {
    case u'ø':
        return u'o';
    case u'ł':
        return u'l';
    case u'đ':
        return u'd';
    case u'ħ':
        return u'h';
    case u'ŧ':
        return u't';
    case u'ı':
        return u'i';
    default:
        return c;
    }
}

void appendFolded(std::vector<char> &buffer, const QString &text)
{
    if (isAscii(text)) {
        for (const QChar c : text) {
            const auto byte = static_cast<char>(c.unicode());
            buffer.push_back(byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A'))
                                                        : byte);
        }
        return;
    }
    const QByteArray folded = foldedText(text);
    buffer.insert(buffer.end(), folded.begin(), folded.end());
}

} // namespace

QByteArray foldedText(const QString &text)
{
    QString decomposed = text.normalized(QString::NormalizationForm_D);
    decomposed.removeIf([](QChar c) { return c.category() == QChar::Mark_NonSpacing; });
    decomposed = decomposed.toCaseFolded();
    std::transform(decomposed.begin(), decomposed.end(), decomposed.begin(), withoutStroke);
    decomposed.replace(u'ß', "ss"_L1);
    // Compose again. Otherwise half a Hangul syllable would match a whole one.
    return decomposed.normalized(QString::NormalizationForm_C).toUtf8();
}

void TrackSearch::setRecords(const TrackRecordList &records)
{
    m_isFolded = false;
    m_folded.clear();
    m_ends.clear();
    if (!isFiltering())
        return;
    fold(records);
    search(foldedText(m_text), Scope::AllRecords);
}

void TrackSearch::setText(const QString &text, const TrackRecordList &records)
{
    const bool wasFiltering = isFiltering();
    m_text = text;
    if (text.isEmpty())
        return;
    if (!m_isFolded)
        fold(records);
    const QByteArray needle = foldedText(text);
    search(needle,
           wasFiltering && needle.contains(m_needle) ? Scope::PreviousResults : Scope::AllRecords);
}

void TrackSearch::fold(const TrackRecordList &records)
{
    constexpr std::size_t usualLength = 64;
    m_folded.clear();
    m_folded.reserve(records.size() * usualLength);
    m_ends.clear();
    m_ends.reserve(records.size());
    for (const TrackRecordRef &record : records) {
        if (record->title) {
            appendFolded(m_folded, *record->title);
            m_folded.push_back(fieldEnd);
        }
        appendFolded(m_folded, record->artist);
        m_folded.push_back(fieldEnd);
        appendFolded(m_folded, record->album);
        m_folded.push_back(fieldEnd);
        m_ends.push_back(m_folded.size());
    }
    m_isFolded = true;
}

void TrackSearch::search(const QByteArray &needle, Scope scope)
{
    const std::size_t count = m_ends.size();
    if (scope == Scope::AllRecords)
        m_passes.assign(count, 1);
    m_needle = needle;
    const auto needleSize = static_cast<std::size_t>(needle.size());

    // Search adjacent candidates in one pass. The record of a match is the first one that ends
    // after it.
    std::size_t index = 0;
    while (index < count) {
        if (m_passes[index] == 0) {
            ++index;
            continue;
        }
        std::size_t runEnd = index + 1;
        while (runEnd < count && m_passes[runEnd] != 0)
            ++runEnd;
        const std::size_t bytesEnd = m_ends[runEnd - 1];
        std::size_t begin = index == 0 ? 0 : m_ends[index - 1];
        while (index < runEnd) {
            const std::size_t found = findBytes({m_folded.data() + begin, bytesEnd - begin},
                                                {needle.constData(), needleSize});
            const std::size_t hit = found == std::string_view::npos ? bytesEnd : begin + found;
            while (index < runEnd && m_ends[index] <= hit)
                m_passes[index++] = 0;
            if (index < runEnd)
                begin = m_ends[index++];
        }
    }
}

} // namespace lyrabox
