#include "library/StatusText.h"

#include <gtest/gtest.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

TEST(StatusText, ShowsFourPrintableBytesAsCharacters)
{
    EXPECT_EQ(statusText(1718449215), u"fmt?"_s);
    EXPECT_EQ(statusText(fourCharCode("typ?")), u"typ?"_s);
    EXPECT_EQ(statusText(fourCharCode("!dev")), u"!dev"_s);
    EXPECT_EQ(statusText(0x2020207E), u"   ~"_s);
}

TEST(StatusText, ShowsDecimalWhenAByteIsNotPrintable)
{
    EXPECT_EQ(statusText(-43), u"-43"_s);
    EXPECT_EQ(statusText(0), u"0"_s);
    EXPECT_EQ(statusText(9999), u"9999"_s);
    EXPECT_EQ(statusText(-999), u"-999"_s);
    EXPECT_EQ(statusText(0x2020207F), u"5389"_s); // Decimal 538976383.
    EXPECT_EQ(statusText(0x1F202020), u"5221"_s); // Decimal 522199072.
}

TEST(StatusText, CutsLongerDecimalsToFourCharacters)
{
    EXPECT_EQ(statusText(-10878), u"-108"_s);
    EXPECT_EQ(statusText(12345), u"1234"_s);
    EXPECT_EQ(statusText(std::numeric_limits<Status>::min()), u"-214"_s);
}
