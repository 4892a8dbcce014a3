#pragma once

#include <QByteArray>
#include <QtEndian>

/// Numbers in the byte orders that files use.
namespace lyrabox::test {

template <typename T>
QByteArray raw(T value)
{
    return {reinterpret_cast<const char *>(&value), static_cast<qsizetype>(sizeof value)};
}

inline QByteArray little16(quint16 value)
{
    return raw(qToLittleEndian(value));
}
inline QByteArray little32(quint32 value)
{
    return raw(qToLittleEndian(value));
}
inline QByteArray big32(quint32 value)
{
    return raw(qToBigEndian(value));
}
inline QByteArray big64(quint64 value)
{
    return raw(qToBigEndian(value));
}

} // namespace lyrabox::test
