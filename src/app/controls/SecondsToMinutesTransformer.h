#pragma once

#include <QString>
#include <QVariant>

/// Turns a duration in seconds into the text of a time column.
class SecondsToMinutesTransformer {
public:
    /// Minutes without bound, a colon and two-digit seconds, the fraction cut off: "0:59", "61:01".
    /// The number may come as text; "" for none (an invalid value). A negative number and text that
    /// is no number count as 0.
    static QString transformedValue(const QVariant &seconds);
};
