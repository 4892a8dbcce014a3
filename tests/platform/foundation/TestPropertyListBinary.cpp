#include "platform/foundation/PropertyListFormats.h"
#include "platform/foundation/PropertyListSamples.h"

#include <QTimeZone>

#include <gtest/gtest.h>

#include <random>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

/// A binary list of the given encoded objects, with offsets and references of one byte.
QByteArray binary(const QList<QByteArray> &objects, int root = 0)
{
    QByteArray bytes = "bplist00";
    QByteArray offsets;
    for (const QByteArray &object : objects) {
        offsets += static_cast<char>(bytes.size());
        bytes += object;
    }
    const auto table = static_cast<char>(bytes.size());
    bytes += offsets;
    bytes += QByteArray(6, '\0') + '\1' + '\1';
    bytes += QByteArray(7, '\0') + static_cast<char>(objects.size());
    bytes += QByteArray(7, '\0') + static_cast<char>(root);
    bytes += QByteArray(7, '\0') + table;
    return bytes;
}

} // namespace

TEST(PropertyListBinary, ReadsContainersThatAreReferencedTwice)
{
    const auto read = parsePropertyList(binary({"\xA2\1\1", "\xA1\2", "\x10\7"}));
    EXPECT_EQ(read,
              PropertyList(PropertyList::Array{PropertyList::Array{7}, PropertyList::Array{7}}));
}

TEST(PropertyListBinary, ReadsEveryFormOfScalar)
{
    const auto scalar = [](const QByteArray &object) {
        return parsePropertyList(binary({object}));
    };
    EXPECT_EQ(scalar("\x10\xFF"_ba), PropertyList(255));
    EXPECT_EQ(scalar("\x13\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFB"_ba), PropertyList(-5));
    EXPECT_EQ(scalar('\x14' + QByteArray(8, '\0') + QByteArray(8, '\xFF')),
              PropertyList(18446744073709551615.0));
    EXPECT_EQ(scalar("\x14" + QByteArray(15, '\xFF') + '\xFB'), PropertyList(-5));
    EXPECT_EQ(scalar("\x22\x3F\x80\0\0"_ba), PropertyList(1.0));
    EXPECT_EQ(scalar("\x33\x3F\xF0\0\0\0\0\0\0"_ba),
              PropertyList(QDateTime(QDate(2001, 1, 1), QTime(0, 0, 1), QTimeZone::utc())));
    EXPECT_EQ(scalar("\x61\x00\xC4"_ba), PropertyList(u"Ä"_s));
    EXPECT_EQ(scalar("\x53"
                     "a\0b"_ba),
              PropertyList(u"a\uFFFDb"_s));
    EXPECT_EQ(scalar("\x62\xD8\x00\x00\x61"_ba), PropertyList(u"\uFFFDa"_s))
        << "half a surrogate pair";
    EXPECT_EQ(scalar("\x62\xFE\xFF\x00\x61"_ba), PropertyList(u"\uFEFFa"_s)) << "a byte-order mark";
    EXPECT_EQ(scalar("\x09"_ba), PropertyList(true));
    EXPECT_FALSE(scalar("\x33\x7F\xF0\0\0\0\0\0\0"_ba)) << "an infinite date";
    EXPECT_FALSE(scalar("\x1F\0"_ba));
    EXPECT_FALSE(scalar("\xE0"_ba));
}

TEST(PropertyListBinary, AKeyMayHoldAnyText)
{
    const auto read = parsePropertyList(binary({"\xD1\1\2", "\x53k\0y"_ba, "\x09"}));
    ASSERT_TRUE(read && read->dictionary());
    EXPECT_EQ(read->dictionary()->front().first, u"k\uFFFDy"_s);
    EXPECT_FALSE(parsePropertyList(binary({"\xD1\2\2", "\x51k", "\x09"})))
        << "a key that is not a text";
}

TEST(PropertyListBinary, AContainerThatContainsItselfIsRejected)
{
    EXPECT_FALSE(parsePropertyList(binary({"\xA1"_ba + '\0'})));
    EXPECT_FALSE(parsePropertyList(binary({"\xA1\1", "\xD1\2"_ba + '\0', "\x51k"})));
}

TEST(PropertyListBinary, AFewBytesThatReferToMillionsOfValuesAreRejected)
{
    QList<QByteArray> objects;
    for (char i = 1; i <= 20; ++i)
        objects.append("\xAA" + QByteArray(10, i));
    objects.append("\x10\1");
    EXPECT_FALSE(parsePropertyList(binary(objects)));
}

TEST(PropertyListBinary, DepthIsLimited)
{
    const auto nested = [](int depth) {
        QList<QByteArray> objects;
        for (int i = 1; i <= depth; ++i)
            objects.append("\xA1"_ba + static_cast<char>(i));
        objects.append("\x08");
        QByteArray bytes = "bplist00";
        QByteArray offsets;
        for (const QByteArray &object : std::as_const(objects)) {
            offsets += static_cast<char>(bytes.size() >> 8);
            offsets += static_cast<char>(bytes.size());
            bytes += object;
        }
        const qsizetype table = bytes.size();
        bytes += offsets + QByteArray(6, '\0') + '\2' + '\1' + QByteArray(7, '\0') +
                 static_cast<char>(objects.size()) + QByteArray(8, '\0') + QByteArray(6, '\0') +
                 static_cast<char>(table >> 8) + static_cast<char>(table);
        return bytes;
    };
    EXPECT_TRUE(parsePropertyList(nested(propertyListLimit::depth)));
    EXPECT_FALSE(parsePropertyList(nested(propertyListLimit::depth + 1)));
    EXPECT_FALSE(parsePropertyList(nested(250)));
}

TEST(PropertyListBinary, ReferencesOutOfRangeAreRejected)
{
    EXPECT_FALSE(parsePropertyList(binary({"\xA1\x09"})));
    EXPECT_FALSE(parsePropertyList(binary({"\xAF\x13\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"})));
    EXPECT_FALSE(parsePropertyList(binary({"\xA9\1"})));
    EXPECT_FALSE(parsePropertyList(binary({"\x08"}, 3)));
    EXPECT_FALSE(parsePropertyList("bplist00" + QByteArray(32, '\xFF')));
    EXPECT_FALSE(parsePropertyList("bplist00" + QByteArray(32, '\0')));
}

TEST(PropertyListBinary, DamagedListsAreRejectedWithoutHarm)
{
    const QByteArray whole = binaryOf(sample());
    std::mt19937 random(7);
    for (int round = 0; round < 5000; ++round) {
        QByteArray damaged = whole;
        for (int i = 0; i < 3; ++i)
            damaged[static_cast<qsizetype>(random() % static_cast<unsigned>(damaged.size()))] =
                static_cast<char>(random());
        const auto read = parsePropertyList(damaged);
        if (read) {
            EXPECT_FALSE(propertyListXml(*read).isEmpty());
        }
    }
    for (qsizetype length = 0; length < whole.size(); ++length)
        EXPECT_FALSE(parsePropertyList(whole.left(length)));
}
