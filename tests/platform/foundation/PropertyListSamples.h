#pragma once

#include "platform/foundation/PropertyListFormats.h"

#include <QDateTime>
#include <QTimeZone>

#include <plist/plist.h>

#include <cstdlib>
#include <limits>

namespace lyrabox::test {

using namespace Qt::Literals::StringLiterals;

/// A list with every kind of value. Its keys are not sorted.
inline PropertyList sample()
{
    return PropertyList::Dictionary{
        {u"zebra"_s, 1},
        {u"apple"_s,
         PropertyList::Array{true, false, -5, std::numeric_limits<qint64>::min(), 0.1, 85.2F}},
        {u"text"_s, u"<a> & \"b\" 'c' Ä 日本 😀\r\n\ttab"_s},
        {u"empty"_s, PropertyList::Dictionary{{u""_s, u""_s}, {u"list"_s, PropertyList::Array()}}},
        {u"data"_s, QByteArray("\0\1\2\xFF", 4)},
        {u"date"_s, QDateTime(QDate(2001, 2, 3), QTime(4, 5, 6), QTimeZone::utc())},
    };
}

/// The list of an XML text in binary form, written by libplist.
inline QByteArray binaryOfXml(const QByteArray &xml)
{
    plist_t node = nullptr;
    plist_from_xml(xml.constData(), static_cast<std::uint32_t>(xml.size()), &node);
    char *bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(node, &bytes, &length);
    const QByteArray binary(bytes, length);
    std::free(bytes); // not every version has a function for this
    plist_free(node);
    return binary;
}

/// The same for a list in memory.
inline QByteArray binaryOf(const PropertyList &list)
{
    return binaryOfXml(propertyListXml(list));
}

} // namespace lyrabox::test
