#include "support/program/RunningProgram.h"

#include <QFile>

#include <csignal>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class EndingProgram : public RunningProgram {};

class SignalledProgram : public RunningProgram, public testing::WithParamInterface<int> {};

TEST_P(SignalledProgram, WritesItsThreeFilesAndEnds)
{
    const QString folder = makeFolder(u"Tones"_s, {{u"Alpha"_s}});
    showFolder(folder);
    start();
    ASSERT_TRUE(waitForSongs(1));
    for (const QString &name : {u"UserSettings.plist"_s, u"Folders.plist"_s})
        ASSERT_TRUE(QFile::remove(settingsFile(name)));
    ASSERT_FALSE(QFile::exists(settingsFile(u"EQPresets.plist"_s)));

    EXPECT_EQ(sendSignalAndWait(GetParam()), 0);
    const auto folders = settingsList(u"Folders.plist"_s);
    ASSERT_TRUE(folders);
    EXPECT_EQ(*folders, PropertyList(PropertyList::Array{PropertyList(folder)}));
    const auto settings = settingsList(u"UserSettings.plist"_s);
    ASSERT_TRUE(settings);
    const PropertyList::Array *sorts = settings->value(u"sorts").array();
    ASSERT_NE(sorts, nullptr);
    EXPECT_EQ(sorts->size(), 1U);
    const auto presets = settingsList(u"EQPresets.plist"_s);
    ASSERT_TRUE(presets);
    ASSERT_NE(presets->array(), nullptr);
    EXPECT_GT(presets->array()->size(), 20U);
}

INSTANTIATE_TEST_SUITE_P(Signals, SignalledProgram, testing::Values(SIGTERM, SIGINT, SIGHUP),
                         [](const auto &signal) {
                             return signal.param == SIGTERM  ? "Terminate"
                                    : signal.param == SIGINT ? "Interrupt"
                                                             : "HangUp";
                         });

TEST_F(EndingProgram, ASecondInstanceBringsTheFirstToTheFrontAndEnds)
{
    start();
    display.key(u"ctrl+2"_s);
    const QString equalizer = display.waitForWindow(u"^Equalizer"_s);
    ASSERT_TRUE(waitUntil([&] { return display.activeWindow() == equalizer; }));
    EXPECT_EQ(startSecond(), 0);
    EXPECT_TRUE(waitUntil([this] { return display.activeWindow() == mainWindow(); }));

    if (display.isWayland())
        GTEST_SKIP() << "the rest is not tried: this compositor minimizes nothing";
    display.minimize(mainWindow());
    ASSERT_TRUE(waitUntil([this] { return !display.hasWindow(u"^Lyrabox$"_s); }));
    EXPECT_EQ(startSecond(), 0);
    EXPECT_TRUE(waitUntil([this] { return display.activeWindow() == mainWindow(); }));
    EXPECT_TRUE(isRunning());
}

} // namespace
