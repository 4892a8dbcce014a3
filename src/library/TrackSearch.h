#pragma once

#include "engine/TrackRecord.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <vector>

namespace lyrabox {

/// Returns `text` in UTF-8 without case and diacritics. Texts that differ only in these give the
/// same bytes, and one text contains another if its bytes contain the other's.
QByteArray foldedText(const QString &text);

/// Finds records whose title, artist or album contains a text, ignoring case and diacritics. Folds
/// each record once, at the first search. A search text that contains the previous one is searched
/// only among the previous results. One thread at a time.
class TrackSearch {
public:
    /// Sets the records to search and applies the current text. The records are not kept.
    void setRecords(const TrackRecordList &records);

    /// Sets the search text. An empty text lets every record pass. `records` must be those of
    /// setRecords().
    void setText(const QString &text, const TrackRecordList &records);

    bool isFiltering() const { return !m_text.isEmpty(); }

    /// Whether the record at `index` passes. Call it only while filtering.
    bool passes(std::size_t index) const { return m_passes[index] != 0; }

private:
    enum class Scope { AllRecords, PreviousResults };

    void fold(const TrackRecordList &records);
    void search(const QByteArray &needle, Scope scope);

    QString m_text;
    QByteArray m_needle; // The text that m_passes was computed for.
    bool m_isFolded = false;
    std::vector<char> m_folded;      // All records, each followed by a byte that UTF-8 does not
                                     // use.
    std::vector<std::size_t> m_ends; // One past each record's last byte.
    std::vector<std::uint8_t> m_passes;
};

} // namespace lyrabox
