#include "platform/ui/DesktopWindows.h"

#include <QCoreApplication>
#include <QThread>

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <thread>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {
namespace {

constexpr const char *lastWords = "The Wayland connection broke. Did the Wayland compositor die?";

TEST(DesktopWindows, TheActivationTokenIsRemovedFromTheEnvironment)
{
    qputenv("XDG_ACTIVATION_TOKEN", "abc");
    EXPECT_EQ(takeActivationToken(), u"abc"_s);
    EXPECT_FALSE(qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN"));
    EXPECT_EQ(takeActivationToken(), QString());
}

TEST(DesktopWindowsDeathTest, LosingTheDisplayStillRunsTheExitHandlers)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            exitWhenDisplayIsLost();
            std::atexit([] { std::fputs("in order", stderr); });
            qWarning("%s", lastWords);
            std::_Exit(3); // as the toolkit does after it
        },
        testing::ExitedWithCode(EXIT_FAILURE), "in order");
}

TEST(DesktopWindowsDeathTest, ALossNoticedOnAnotherThreadIsHandledByTheMainThread)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            exitWhenDisplayIsLost();
            std::atexit([] {
                if (QThread::currentThread() == qApp->thread())
                    std::fputs("on the main thread", stderr);
            });
            std::thread([] {
                qWarning("%s", lastWords);
                std::_Exit(3);
            }).detach();
            QCoreApplication::exec();
        },
        testing::ExitedWithCode(EXIT_FAILURE), "on the main thread");
}

TEST(DesktopWindowsDeathTest, OtherWarningsDoNotEndTheProcess)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            exitWhenDisplayIsLost();
            qWarning("The connection is slow");
            std::_Exit(3);
        },
        testing::ExitedWithCode(3), "The connection is slow");
}

} // namespace
} // namespace lyrabox
