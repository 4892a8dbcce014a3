#pragma once

#include "engine/TrackRecord.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <vector>

namespace lyrabox {

/// `text` without case and diacritics, in UTF-8: two texts that differ in nothing else fold to the
/// same bytes, and a text contains another, ignoring both, when its folded bytes contain the
/// other's.
QByteArray foldedText(const QString &text);

/// Finds the records whose title, artist or album contains a text, ignoring case and diacritics.
/// Each record is folded once, at the first search. A search that contains the one before it looks
/// only at what that one found.
class TrackSearch {
public:
    /// The records to search; they are not kept. `text` goes on filtering.
    void setRecords(const TrackRecordList &records);

    /// An empty text lets every record pass. `records` are those given to setRecords().
    void setText(const QString &text, const TrackRecordList &records);

    bool isFiltering() const { return !m_text.isEmpty(); }

    /// Whether the record at `index` passes. Only while filtering.
    bool passes(std::size_t index) const { return m_passes[index] != 0; }

private:
    void fold(const TrackRecordList &records);
    void search(const QByteArray &needle, bool withinResult);

    QString m_text;
    QByteArray m_needle; // what m_passes was computed for
    bool m_isFolded = false;
    std::vector<char> m_folded;      // all records, each closed by a byte that UTF-8 does not have
    std::vector<std::size_t> m_ends; // one past each record's closing byte
    std::vector<std::uint8_t> m_passes;
};

} // namespace lyrabox
