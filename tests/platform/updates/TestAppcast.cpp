#include "platform/updates/Appcast.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {
namespace {

QByteArray feed(const QByteArray &items)
{
    return "<?xml version=\"1.0\"?><rss version=\"2.0\" "
           "xmlns:s=\"urn:updates\"><channel><title>T</title>" +
           items + "</channel></rss>";
}

bool isOlder(const QString &a, const QString &b)
{
    return compareVersions(a, b) < 0 && compareVersions(b, a) > 0;
}

TEST(CompareVersions, ComparesNumbersByValue)
{
    EXPECT_TRUE(isOlder(u"1.9"_s, u"1.10"_s));
    EXPECT_TRUE(isOlder(u"0.9.9"_s, u"1"_s));
    EXPECT_TRUE(isOlder(u"1.2"_s, u"1.2.1"_s));
    EXPECT_TRUE(isOlder(u"1.2"_s, u"99999999999999999999999"_s));
}

TEST(CompareVersions, IgnoresTrailingZerosAndDecoration)
{
    EXPECT_TRUE(compareVersions(u"1.0"_s, u"1.0.0"_s) == 0);
    EXPECT_TRUE(compareVersions(u"1.01"_s, u"1.1"_s) == 0);
    EXPECT_TRUE(compareVersions(u"1.2-3"_s, u"1.2.3"_s) == 0);
}

TEST(CompareVersions, PutsAPreReleaseBeforeItsRelease)
{
    EXPECT_TRUE(isOlder(u"1.0b2"_s, u"1.0"_s));
    EXPECT_TRUE(isOlder(u"1.2-rc1"_s, u"1.2"_s));
    EXPECT_TRUE(isOlder(u"1.2-beta3"_s, u"1.2-rc1"_s));
    EXPECT_TRUE(isOlder(u"1.1"_s, u"1.2-rc1"_s));
}

TEST(ParseAppcast, ReadsVersionsFromElementsAndEnclosures)
{
    const auto items = parseAppcast(
        feed("<item><s:version>7</s:version><s:shortVersionString>1.2</s:shortVersionString>"
             "<link>https://lyrabox.example/1.2</link><description>New</description></item>"
             "<item><enclosure url=\"https://x\" s:version=\"1.3\"/></item>"));
    ASSERT_TRUE(items);
    ASSERT_EQ(items->size(), 2U);
    EXPECT_EQ(items->at(0).version, u"1.2"_s);
    EXPECT_EQ(items->at(0).notes, u"New"_s);
    EXPECT_EQ(items->at(0).page, QUrl(u"https://lyrabox.example/1.2"_s));
    EXPECT_EQ(items->at(1).version, u"1.3"_s);
}

TEST(ParseAppcast, LeavesOutItemsWithoutAVersionAndForOtherSystems)
{
    const auto items =
        parseAppcast(feed("<item><title>x</title></item>"
                          "<item><enclosure s:version=\"9\" s:os=\"windows\"/></item>"
                          "<item><enclosure s:version=\"2\" s:os=\"linux\"/></item>"));
    ASSERT_TRUE(items);
    ASSERT_EQ(items->size(), 1U);
    EXPECT_EQ(items->front().version, u"2"_s);
}

TEST(ParseAppcast, IgnoresPagesThatAreNotHttps)
{
    for (const char *link :
         {"http://a/", "file:///etc/passwd", "javascript:alert(1)", "not a url"}) {
        const auto items = parseAppcast(
            feed(QByteArray("<item><s:version>2</s:version><link>") + link + "</link></item>"));
        ASSERT_TRUE(items);
        EXPECT_TRUE(items->front().page.isEmpty()) << link;
    }
}

TEST(ParseAppcast, RejectsWhatIsNotAFeed)
{
    for (const char *text :
         {"", "nonsense", "<html><body/></html>", "<rss><channel><item>", "<rss><channel></rss>"})
        EXPECT_FALSE(parseAppcast(text)) << text;
}

TEST(ParseAppcast, SurvivesEntityBombs)
{
    QByteArray bomb = "<?xml version=\"1.0\"?><!DOCTYPE rss [<!ENTITY a0 \"aaaaaaaaaa\">";
    for (int i = 1; i < 12; ++i)
        bomb += "<!ENTITY a" + QByteArray::number(i) + " \"" +
                ("&a" + QByteArray::number(i - 1) + ";").repeated(10) + "\">";
    bomb += "]><rss><channel><item><description>&a11;</description></item></channel></rss>";
    EXPECT_FALSE(parseAppcast(bomb));
}

TEST(NewestUpdate, IsTheNewestItemInAnyOrder)
{
    const std::vector<AppcastItem> items{
        {u"1.1"_s, {}, {}}, {u"1.10"_s, {}, {}}, {u"1.9"_s, {}, {}}};
    EXPECT_EQ(newestUpdate(items, u"1.2"_s)->version, u"1.10"_s);
    EXPECT_FALSE(newestUpdate(items, u"1.10"_s));
    EXPECT_FALSE(newestUpdate(items, u"2"_s));
    EXPECT_FALSE(newestUpdate({}, u"1"_s));
}

TEST(PlainTextFromHtml, DropsMarkupAndKeepsLines)
{
    EXPECT_EQ(plainTextFromHtml(
                  u"<h2>New</h2>\n<ul>\n <li>Loops &amp; more</li>\n <li>A &lt;b&gt;</li>\n</ul>"
                  "<script>evil()</script>"_s),
              u"New\n• Loops & more\n• A <b>"_s);
    EXPECT_EQ(plainTextFromHtml(u"line one\nline two"_s), u"line one\nline two"_s);
    EXPECT_EQ(plainTextFromHtml(u"a<STYLE type=x>p{}</Style >b<script>1</script>c"_s), u"abc"_s);
    EXPECT_EQ(plainTextFromHtml(u"a<script>never closed"_s), u"anever closed"_s);
}

} // namespace
} // namespace lyrabox
