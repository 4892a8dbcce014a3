#include "app/controls/SecondsToMinutesTransformer.h"

using namespace Qt::Literals::StringLiterals;

QString lyrabox::timeText(quint64 seconds)
{
    return u"%1:%2"_s.arg(seconds / 60).arg(seconds % 60, 2, 10, QChar(u'0'));
}

QString SecondsToMinutesTransformer::transformedValue(const QVariant &seconds)
{
    if (!seconds.isValid())
        return {};
    const auto single = seconds.toFloat();
    // The largest float below 2^64. Converting a larger one to an integer would be undefined.
    constexpr float maximum = 18446742974197923840.0F;
    const quint64 whole = single > 0.0F ? static_cast<quint64>(qMin(single, maximum)) : 0;
    return lyrabox::timeText(whole);
}
