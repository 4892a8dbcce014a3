#pragma once

#include <QCoreApplication>
#include <QString>

/// The text under the track table.
class TrackCountTextTransformer {
    Q_DECLARE_TR_FUNCTIONS(TrackCountTextTransformer)

public:
    /// "" for 0, "1 song" for 1, "12 songs" for 12.
    static QString transformedValue(quint64 count);
};
