#pragma once

#include <QCoreApplication>
#include <QString>

/// Formats the text below the track table. Main thread.
class TrackCountTextTransformer {
    Q_DECLARE_TR_FUNCTIONS(TrackCountTextTransformer)

public:
    /// "" for 0, "1 song" for 1, "12 songs" for 12. Translated.
    static QString transformedValue(quint64 count);
};
