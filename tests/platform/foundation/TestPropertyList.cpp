#include "platform/foundation/PropertyListFormats.h"
#include "platform/foundation/PropertyListSamples.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <plist/plist.h>

#include <bit>
#include <cmath>
#include <cstdlib>
#include <random>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

QByteArray inPlist(const QByteArray &content)
{
    return "<plist version=\"1.0\">" + content + "</plist>";
}

std::optional<PropertyList> parsed(const QByteArray &content)
{
    return parsePropertyList(inPlist(content));
}

QByteArray nestedArrays(int depth)
{
    return QByteArray("<array>").repeated(depth) + QByteArray("</array>").repeated(depth);
}

} // namespace

TEST(PropertyList, AWrittenListIsReadBackWithItsKeysInOrder)
{
    EXPECT_EQ(parsePropertyList(propertyListXml(sample())), sample());
}

TEST(PropertyList, ABinaryListIsReadLikeItsXml)
{
    const QByteArray bytes = binaryOf(sample());
    ASSERT_TRUE(isBinaryPropertyList(bytes));
    EXPECT_EQ(parsePropertyList(bytes), sample());
}

TEST(PropertyList, LibplistReadsWhatIsWritten)
{
    const QByteArray xml = propertyListXml(sample());
    plist_t node = nullptr;
    plist_from_xml(xml.constData(), static_cast<std::uint32_t>(xml.size()), &node);
    ASSERT_NE(node, nullptr);
    char *text = nullptr;
    plist_get_string_val(plist_dict_get_item(node, "text"), &text);
    EXPECT_EQ(QString::fromUtf8(text), *sample().value(u"text").string());
    std::free(text);
    plist_free(node);
}

TEST(PropertyList, FloatsSurviveBitForBit)
{
    std::mt19937 random(1);
    PropertyList::Array written{0.1F,          -0.0F,      85.2F,  1e-45F,
                                3.4028235e38F, 33.333332F, 100.0F, 16777216.0F};
    for (int i = 0; i < 20000; ++i) {
        const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        if (std::isfinite(value))
            written.emplace_back(value);
    }
    const auto read = parsePropertyList(propertyListXml(written));
    ASSERT_TRUE(read && read->array() && read->array()->size() == written.size());
    for (std::size_t i = 0; i < written.size(); ++i) {
        ASSERT_EQ(std::bit_cast<std::uint32_t>(static_cast<float>(*read->array()->at(i).real())),
                  std::bit_cast<std::uint32_t>(static_cast<float>(*written[i].real())));
    }
}

TEST(PropertyList, AWholeRealStaysAReal)
{
    const auto read = parsePropertyList(propertyListXml(PropertyList::Array{100.0, 1e300, 100}));
    EXPECT_EQ(read, PropertyList(PropertyList::Array{100.0, 1e300, 100}));
}

TEST(PropertyList, NotANumberAndInfinityAreReadAsReals)
{
    const auto read =
        parsePropertyList(propertyListXml(PropertyList::Array{NAN, INFINITY, -INFINITY}));
    ASSERT_TRUE(read && read->array());
    EXPECT_TRUE(std::isnan(*read->array()->at(0).real()));
    EXPECT_EQ(read->array()->at(1).real(), INFINITY);
    EXPECT_EQ(read->array()->at(2).real(), -INFINITY);
    EXPECT_FALSE(read->array()->at(1).integer().has_value());
}

TEST(PropertyList, OtherReadersUnderstandTheFile)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"list.plist"_s);
    ASSERT_TRUE(writePropertyList(sample(), path));
    QProcess python;
    python.start(u"python3"_s,
                 {u"-c"_s,
                  u"import plistlib, sys, datetime, struct\n"
                  "d = plistlib.load(open(sys.argv[1], 'rb'))\n"
                  "assert list(d) == ['zebra', 'apple', 'text', 'empty', 'data', 'date'], list(d)\n"
                  "assert d['apple'][:4] == [True, False, -5, -2**63]\n"
                  "assert struct.pack('f', d['apple'][5]) == struct.pack('f', 85.2)\n"
                  "assert d['text'].endswith('\\U0001F600\\r\\n\\ttab'), d['text']\n"
                  "assert d['data'] == bytes([0, 1, 2, 255])\n"
                  "assert d['date'] == datetime.datetime(2001, 2, 3, 4, 5, 6)\n"_s,
                  path});
    ASSERT_TRUE(python.waitForFinished());
    EXPECT_EQ(python.exitCode(), 0) << python.readAllStandardError().constData();
}

TEST(PropertyList, CharactersThatXmlCannotHoldAreReplaced)
{
    const QString odd =
        u"a\x01"_s + QChar(0xD800) + u"b"_s + QChar(0xFFFF) + u"😀"_s + QChar(0xDC00);
    const auto read = parsePropertyList(propertyListXml(odd));
    ASSERT_TRUE(read && read->string());
    EXPECT_EQ(*read->string(), u"a\uFFFD\uFFFDb\uFFFD😀\uFFFD"_s);
}

TEST(PropertyList, TextsCompareTheSameBeforeAndAfterWriting)
{
    const auto numbered = parsePropertyList("<plist><string>&#1;&#xFFFF;a</string></plist>");
    ASSERT_TRUE(numbered && numbered->string());
    EXPECT_EQ(*numbered->string(), u"\uFFFD\uFFFDa"_s);
}

TEST(PropertyList, AByteOrderMarkInFrontOfATextIsKept)
{
    const QString marked = u"\uFEFF\uFEFFa"_s;
    const auto read =
        parsePropertyList(propertyListXml(PropertyList::Dictionary{{marked, marked}}));
    ASSERT_TRUE(read && read->dictionary());
    const QString *const value = read->value(marked).string();
    ASSERT_TRUE(value);
    EXPECT_EQ(*value, marked);
}

TEST(PropertyList, ReadsEntitiesCommentsAndCharacterSections)
{
    EXPECT_EQ(parsed("<string>&lt;&#65;&#x1F600;&amp;amp;</string>"), PropertyList(u"<A😀&amp;"_s));
    EXPECT_EQ(parsed("<string>a<!-- <b> -->c<![CDATA[<&d>]]>e</string>"),
              PropertyList(u"ac<&d>e"_s));
    EXPECT_EQ(parsed("<!-- x --><array><!-- > --></array >"), PropertyList(PropertyList::Array()));
    EXPECT_EQ(parsed("<string>a\r\nb\rc</string>"), PropertyList(u"a\nb\nc"_s));
    EXPECT_FALSE(parsed("<string>&unknown;</string>"));
    EXPECT_FALSE(parsed("<string>&#xD800;</string>"));
    EXPECT_FALSE(parsed("<string>&amp</string>"));
}

TEST(PropertyList, ReadsEveryFormOfScalar)
{
    EXPECT_EQ(parsed("<true></true>"), PropertyList(true));
    EXPECT_EQ(parsed("<false/>"), PropertyList(false));
    EXPECT_EQ(parsed("<integer> +7 </integer>"), PropertyList(7));
    EXPECT_EQ(parsed("<integer>0x1F</integer>"), PropertyList(31));
    EXPECT_EQ(parsed("<integer>18446744073709551615</integer>"),
              PropertyList(18446744073709551615.0));
    EXPECT_EQ(parsed("<real> +1.5e3\n</real>"), PropertyList(1500.0));
    EXPECT_TRUE(std::isnan(*parsed("<real>1e999</real>")->real()));
    EXPECT_EQ(parsed("<data>\n\tAAEC\n\t/w==\n</data>"), PropertyList(QByteArray("\0\1\2\xFF", 4)));
    EXPECT_EQ(parsed("<string/>"), PropertyList(u""_s));
    EXPECT_FALSE(parsed("<integer>12x</integer>"));
    EXPECT_FALSE(parsed("<integer></integer>"));
    EXPECT_FALSE(parsed("<real>fast</real>"));
    EXPECT_FALSE(parsed("<date>yesterday</date>"));
}

TEST(PropertyList, ReadsListsWithoutTheirEnvelopeOrInAnotherEncoding)
{
    EXPECT_EQ(parsePropertyList(
                  "\xEF\xBB\xBF<?xml version=\"1.0\"?><!DOCTYPE plist [ <!ENTITY a \">\"> ]>"
                  "<plist><true/></plist>"_ba),
              PropertyList(true));
    EXPECT_EQ(parsePropertyList(" <string>a</string> \n"), PropertyList(u"a"_s));
    const QString text = u"\uFEFF<plist version=\"1.0\"><string>Ä😀</string></plist>"_s;
    EXPECT_EQ(parsePropertyList(
                  QByteArray(reinterpret_cast<const char *>(text.utf16()), text.size() * 2)),
              PropertyList(u"Ä😀"_s));
}

TEST(PropertyList, TheFirstOfTwoEqualKeysCounts)
{
    const auto read =
        parsed("<dict><key>a</key><integer>1</integer><key>a</key><integer>2</integer></dict>");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->value(u"a"), PropertyList(1));
    EXPECT_TRUE(read->value(u"b").isNull());
    EXPECT_TRUE(PropertyList(5).value(u"a").isNull());
}

TEST(PropertyList, MalformedXmlIsRejected)
{
    for (const char *const content : {"",
                                      "<dict>",
                                      "<array></dict>",
                                      "<dict><integer>1</integer></dict>",
                                      "<dict><key>a</key></dict>",
                                      "<dict><key>a</key><key>b</key></dict>",
                                      "<array/><array/>",
                                      "<key>a</key>",
                                      "<array><key>a</key></array>",
                                      "text",
                                      "<string>a",
                                      "<string>a<b/></string>",
                                      "<unknown/>",
                                      "<array>text</array>",
                                      "<string>a</integer>",
                                      "<!-- ",
                                      "<!",
                                      "<![CDATA[a]]>",
                                      "</array>",
                                      "<",
                                      "<>"}) {
        EXPECT_FALSE(parsed(content)) << content;
    }
    EXPECT_FALSE(parsePropertyList(""));
    EXPECT_FALSE(parsePropertyList("<plist>"));
    EXPECT_FALSE(parsePropertyList("<plist/>"));
    EXPECT_FALSE(parsePropertyList("<plist><true/>"));
    EXPECT_FALSE(parsePropertyList("<?xml"));
    EXPECT_FALSE(parsePropertyList("bplist00"));
}

TEST(PropertyList, ATruncatedListIsRejected)
{
    const QByteArray xml = propertyListXml(sample()).trimmed();
    for (qsizetype length = 0; length < xml.size(); ++length)
        ASSERT_FALSE(parsePropertyList(xml.left(length))) << length;
}

TEST(PropertyList, DamagedListsAreRejectedWithoutHarm)
{
    const QByteArray whole = propertyListXml(sample());
    std::mt19937 random(11);
    for (int round = 0; round < 3000; ++round) {
        QByteArray damaged = whole;
        for (int i = 0; i < 3; ++i)
            damaged[static_cast<qsizetype>(random() % static_cast<unsigned>(damaged.size()))] =
                "<>/&;!-[]\"k\0\xFF"[random() % 13];
        const auto read = parsePropertyList(damaged);
        if (read) {
            EXPECT_TRUE(parsePropertyList(propertyListXml(*read)).has_value());
        }
    }
}

TEST(PropertyList, DepthIsLimited)
{
    EXPECT_TRUE(parsed(nestedArrays(propertyListLimit::depth)));
    EXPECT_FALSE(parsed(nestedArrays(propertyListLimit::depth + 1)));
    EXPECT_FALSE(parsed(nestedArrays(2000000)));
    EXPECT_FALSE(parsed(QByteArray("<dict><key>a</key>").repeated(1000000)));
}

TEST(PropertyList, TokensLongerThanAPieceOfTheFileAreRead)
{
    const QByteArray text = QByteArray("Tönung &amp; ").repeated(100000);
    const auto read = parsed("<array><string>" + text + "</string><!--" + text +
                             "--><integer>1</integer></array>");
    ASSERT_TRUE(read && read->array() && read->array()->size() == 2);
    EXPECT_EQ(read->array()->at(0), PropertyList(u"Tönung & "_s.repeated(100000)));
}

TEST(PropertyListXml, ADateThatCannotBeWrittenIsRejected)
{
    EXPECT_TRUE(parsePropertyList("<date>9999-12-31T23:59:59Z</date>"));
    EXPECT_FALSE(parsePropertyList("<date>9999-12-31T23:59:59-14:00</date>"));
    EXPECT_TRUE(parsePropertyList("<date>0001-01-01T00:00:00Z</date>"));
    EXPECT_FALSE(parsePropertyList("<date>0001-01-01T00:00:00+01:00</date>"));
}

TEST(PropertyListFile, ReadingSomethingOtherThanAFileGivesNone)
{
    const QTemporaryDir folder;
    EXPECT_FALSE(readPropertyList(folder.path()));
    EXPECT_FALSE(readPropertyList(folder.filePath(u"missing"_s)));
    EXPECT_FALSE(readPropertyList(QString()));
    EXPECT_FALSE(readPropertyList(u"/dev/zero"_s));
}

TEST(PropertyListFile, WritingKeepsThePermissionsAndLeavesNoOtherFile)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"list.plist"_s);
    ASSERT_TRUE(writePropertyList(1, path));
    ASSERT_TRUE(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner));
    const auto before = QFile::permissions(path);
    ASSERT_TRUE(writePropertyList(2, path));
    EXPECT_EQ(QFile::permissions(path), before);
    EXPECT_EQ(readPropertyList(path), PropertyList(2));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden),
              QStringList{u"list.plist"_s});
}

TEST(PropertyListFile, AFailedWriteLeavesTheOldFile)
{
    EXPECT_FALSE(writePropertyList(1, u"/nowhere/list.plist"_s));
    const QTemporaryDir folder;
    EXPECT_FALSE(writePropertyList(1, folder.path()));
    EXPECT_TRUE(QDir(folder.path()).exists());
}
