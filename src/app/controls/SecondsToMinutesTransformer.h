#pragma once

#include <QString>
#include <QVariant>

namespace lyrabox {

/// Minutes without a limit, a colon and two-digit seconds: "0:59", "61:01".
QString timeText(quint64 seconds);

} // namespace lyrabox

/// Turns a duration in seconds into the text of a time column. Any thread.
class SecondsToMinutesTransformer {
public:
    /// The timeText() of the seconds, truncated to whole ones. A string with a number is accepted,
    /// too. An invalid value gives "". A negative number, or a string that is not a number, counts
    /// as 0.
    static QString transformedValue(const QVariant &seconds);
};
