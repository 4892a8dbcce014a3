#include "app/controls/SecondsToMinutesTransformer.h"

using namespace Qt::Literals::StringLiterals;

QString SecondsToMinutesTransformer::transformedValue(const QVariant &seconds)
{
    if (!seconds.isValid())
        return {};
    const auto single = seconds.toFloat();
    // The largest float below 2^64: a conversion of more would be undefined.
    constexpr float most = 18446742974197923840.0F;
    const quint64 whole = single > 0.0F ? static_cast<quint64>(qMin(single, most)) : 0;
    return u"%1:%2"_s.arg(whole / 60).arg(whole % 60, 2, 10, QChar(u'0'));
}
