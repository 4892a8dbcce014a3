#include "platform/ui/MenuText.h"

#include <gtest/gtest.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

TEST(MenuText, WithoutItsMnemonicHasNoMark)
{
    EXPECT_EQ(withoutMnemonic(u"Mo&ve End"_s), u"Move End"_s);
    EXPECT_EQ(withoutMnemonic(u"Folder"_s), u"Folder"_s);
}

TEST(MenuText, WithoutItsMnemonicHasNoLetterBehindIt)
{
    EXPECT_EQ(withoutMnemonic(u"Stand View (&Q)"_s), u"Stand View"_s);
    EXPECT_EQ(withoutMnemonic(u"書き出し(&J)…"_s), u"書き出し…"_s);
    EXPECT_EQ(withoutMnemonic(u"Dial (64)"_s), u"Dial (64)"_s);
}
