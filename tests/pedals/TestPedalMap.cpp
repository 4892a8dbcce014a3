#include "pedals/PedalMap.h"
#include "pedals/PedalSets.h"

#include <gmock/gmock.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;

namespace {

const std::vector<KeysOfCommand> builtIn{{.command = u"play"_s, .keys = {u"Space"_s}},
                                         {.command = u"loop"_s, .keys = {u"L"_s}},
                                         {.command = u"faster"_s, .keys = {u"="_s, u"+"_s}},
                                         {.command = u"rename"_s, .keys = {}}};

QStringList keysOf(const PedalMap &map, const QString &command)
{
    const auto keys = effectiveKeys(builtIn, map);
    return std::ranges::find(keys, command, &KeysOfCommand::command)->keys;
}

TEST(PedalMap, WithoutUserKeysTheBuiltInOnesWork)
{
    EXPECT_EQ(effectiveKeys(builtIn, {}), builtIn);
}

TEST(PedalMap, ALearntKeyWorksBesidesTheBuiltInOnes)
{
    PedalMap map;
    ASSERT_TRUE(setKey(map, builtIn, u"PgDown"_s, u"play"_s));
    EXPECT_EQ(keysOf(map, u"play"_s), QStringList({u"Space"_s, u"PgDown"_s}));
    ASSERT_TRUE(setKey(map, builtIn, u"PgDown"_s, u"rename"_s));
    EXPECT_EQ(keysOf(map, u"play"_s), QStringList{u"Space"_s});
    EXPECT_EQ(keysOf(map, u"rename"_s), QStringList{u"PgDown"_s});
    ASSERT_TRUE(setKey(map, builtIn, u"PgDown"_s, {}));
    EXPECT_EQ(map, PedalMap()) << "nothing is left of it";
}

TEST(PedalMap, ABuiltInKeyThatIsTakenLeavesTheOthersOfItsCommand)
{
    PedalMap map;
    ASSERT_TRUE(setKey(map, builtIn, u"="_s, u"play"_s));
    EXPECT_EQ(keysOf(map, u"play"_s), QStringList({u"Space"_s, u"="_s}));
    EXPECT_EQ(keysOf(map, u"faster"_s), QStringList{u"+"_s});
    ASSERT_TRUE(setKey(map, builtIn, u"L"_s, {}));
    EXPECT_EQ(keysOf(map, u"loop"_s), QStringList());
    ASSERT_TRUE(setKey(map, builtIn, u"L"_s, u"loop"_s));
    EXPECT_EQ(keysOf(map, u"loop"_s), QStringList{u"L"_s});
}

TEST(PedalMap, TwoCommandsCanExchangeTheirKeys)
{
    PedalMap map;
    map.keys = {{.command = u"play"_s, .keys = {u"L"_s}, .replaces = true},
                {.command = u"loop"_s, .keys = {u"Space"_s}, .replaces = true}};
    EXPECT_EQ(keysOf(map, u"play"_s), QStringList{u"L"_s});
    EXPECT_EQ(keysOf(map, u"loop"_s), QStringList{u"Space"_s});
    // The same by a file that does not say "instead".
    map.keys = {{.command = u"play"_s, .keys = {u"L"_s}},
                {.command = u"loop"_s, .keys = {u"Space"_s}}};
    EXPECT_EQ(keysOf(map, u"play"_s), QStringList{u"L"_s});
    EXPECT_EQ(keysOf(map, u"loop"_s), QStringList{u"Space"_s});
}

TEST(PedalMap, NoKeyHasTwoCommandsWhateverAFileSays)
{
    PedalMap map;
    map.keys = {{.command = u"unknown"_s, .keys = {u"L"_s}},
                {.command = u"rename"_s, .keys = {u"L"_s}},
                {.command = u"play"_s, .keys = {u"L"_s, u"L"_s}}};
    EXPECT_EQ(keysOf(map, u"rename"_s), QStringList{u"L"_s}) << "the first one that is known";
    EXPECT_EQ(keysOf(map, u"play"_s), QStringList{u"Space"_s});
    EXPECT_EQ(keysOf(map, u"loop"_s), QStringList());
}

TEST(PedalMap, ASwitchIsGivenCommandsOneByOne)
{
    PedalMap map;
    const PedalControl control{.number = 64};
    ASSERT_TRUE(setSwitch(map, control, PedalGesture::Tap, u"loop"_s));
    ASSERT_TRUE(setSwitch(map, control, PedalGesture::Hold, u"play"_s));
    ASSERT_EQ(map.switches.size(), 1U);
    EXPECT_EQ(map.switches[0].hold, u"play"_s);
    ASSERT_TRUE(setSwitch(map, control, PedalGesture::Tap, {}));
    ASSERT_TRUE(setSwitch(map, control, PedalGesture::Hold, {}));
    EXPECT_EQ(map, PedalMap());
}

TEST(PedalMap, AControlIsEitherASwitchOrADial)
{
    PedalMap map;
    const PedalControl control{.number = 11};
    ASSERT_TRUE(setSwitch(map, control, PedalGesture::Tap, u"loop"_s));
    ASSERT_TRUE(setDial(map, control, PedalDial::Form::Position, u"volume"_s));
    EXPECT_TRUE(map.switches.empty());
    ASSERT_TRUE(setSwitch(map, control, PedalGesture::Tap, u"loop"_s));
    EXPECT_TRUE(map.dials.empty());
    EXPECT_TRUE(map.hasMidi());
}

TEST(PedalMap, HasLimits)
{
    PedalMap map;
    for (std::size_t number = 0; number < PedalLimits::switches; ++number)
        ASSERT_TRUE(setSwitch(map, {.port = QString::number(number)}, PedalGesture::Tap, u"a"_s));
    EXPECT_FALSE(setSwitch(map, {.port = u"x"_s}, PedalGesture::Tap, u"a"_s));
    for (int key = 0; key < PedalLimits::keys; ++key)
        ASSERT_TRUE(setKey(map, builtIn, u"Ctrl+"_s + QChar(u'A' + key), u"play"_s));
    const PedalMap full = map;
    EXPECT_FALSE(setKey(map, builtIn, u"F9"_s, u"play"_s));
    EXPECT_EQ(map, full);
}

TEST(PedalSets, TwoSwitchesPlayAndLoopAtOnce)
{
    PedalMap map;
    ASSERT_TRUE(addSet(map, PedalSet::TwoAndExpression, builtIn));
    ASSERT_EQ(map.switches.size(), 2U);
    EXPECT_EQ(map.switches[0].tap, u"play or pause"_s);
    EXPECT_EQ(map.switches[1].tap, u"loop"_s);
    EXPECT_EQ(map.switches[1].inUse(), (GesturesInUse{.tap = true})) << "it must not wait";
    ASSERT_EQ(map.dials.size(), 1U);
    EXPECT_EQ(map.dials[0].control.number, 11);
    const PedalMap once = map;
    ASSERT_TRUE(addSet(map, PedalSet::TwoSwitches, builtIn));
    EXPECT_EQ(map, once) << "what is there already stays";
}

TEST(PedalSets, APageTurnerUsesItsKeys)
{
    PedalMap map;
    const PedalSetCommands commands{.playOrPause = u"play"_s, .loop = u"loop"_s};
    ASSERT_TRUE(addSet(map, PedalSet::PageKeys, builtIn, commands));
    EXPECT_FALSE(map.hasMidi());
    EXPECT_EQ(keysOf(map, u"play"_s), QStringList({u"Space"_s, u"PgDown"_s}));
    ASSERT_TRUE(addSet(map, PedalSet::ArrowKeys, builtIn, commands));
    EXPECT_EQ(keysOf(map, u"loop"_s), QStringList({u"L"_s, u"PgUp"_s, u"Up"_s}));
}

} // namespace
