// Streams that the server drops.

#include "device/Fixtures.h"
#include "device/SineSource.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <thread>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

TEST_F(CubebOutputOnServer, ALostStreamIsReportedOnceOnAThreadOfItsOwnAndCountsAsNoDevice)
{
    std::promise<std::thread::id> lost;
    output.setLossListener(
        [&] { lost.set_value(std::this_thread::get_id()); }); // a second call throws
    SineSource source(440.0);
    open(source);
    output.start();
    ASSERT_GE(recorder->waitForSound(0), 0);
    server.killStreams();
    auto told = lost.get_future();
    ASSERT_EQ(told.wait_for(std::chrono::seconds(20)), std::future_status::ready);
    EXPECT_NE(told.get(), std::this_thread::get_id());
    EXPECT_EQ(output.deviceStatus(), status::noAudioDevice);
    EXPECT_TRUE(output.isRunning());
    EXPECT_EQ(output.start(), status::noAudioDevice);
    EXPECT_EQ(output.stop(), status::noError);
    EXPECT_FALSE(output.isRunning());
}

TEST(CubebOutputWithoutServer, IsClosedWhileItPlaysThroughAlsa)
{
    QTemporaryDir folder;
    const QString settings = folder.filePath(u"asound.conf"_s);
    QFile file(settings);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("pcm.default { type null }\n");
    file.close();
    qputenv("ALSA_CONFIG_PATH", settings.toUtf8());
    qputenv("PULSE_SERVER", "unix:" + folder.filePath(u"no server"_s).toUtf8());
    SineSource source(440.0);
    {
        CubebOutput output;
        output.connect(&source);
        ASSERT_EQ(output.initialize(), status::noError);
        EXPECT_EQ(output.start(), status::noError);
        while (source.rendered == 0)
            std::this_thread::yield();
    }
    const std::uint64_t before = source.rendered;
    CubebOutput next; // the device was given back
    next.connect(&source);
    ASSERT_EQ(next.initialize(), status::noError);
    EXPECT_EQ(next.start(), status::noError);
    while (source.rendered == before)
        std::this_thread::yield();
    qunsetenv("PULSE_SERVER");
    qunsetenv("ALSA_CONFIG_PATH");
}

TEST_F(SoundFaults, AStreamThatIsLostWhileItsDeviceStaysIsReplacedAtOnce)
{
    ASSERT_EQ(engine::loadAudioFile(tone(240.0)), status::noError);
    engine::setPitchCents(0.0F);
    engine::setOutputRunning(true);
    expectTone(u"a"_s);
    for (int round = 0; round < 3; ++round) {
        const std::uint64_t before = engine::currentFrame();
        server.killStreams();
        EXPECT_TRUE(engine::outputIsRunning());
        expectTone(u"a"_s);
        EXPECT_GE(engine::currentFrame(), before);
    }
    EXPECT_EQ(engine::soundStatus(), status::noError);
}

TEST_F(SoundFaults, AStreamThatIsLostInAPauseIsReplacedForPlay)
{
    ASSERT_EQ(engine::loadAudioFile(tone(240.0)), status::noError);
    server.killStreams();
    engine::setOutputRunning(true);
    EXPECT_EQ(engine::soundStatus(), status::noError);
    expectTone(u"a"_s);
}

TEST_F(SoundFaults, TheEngineReportsAMissingDeviceUntilThereIsOneAgain)
{
    ASSERT_EQ(engine::loadAudioFile(tone(240.0)), status::noError);
    engine::setOutputRunning(true);
    expectTone(u"a"_s);
    server.kill();
    EXPECT_TRUE(waitForSoundStatus(status::noAudioDevice));
    EXPECT_TRUE(engine::outputIsRunning());
    ASSERT_TRUE(server.restart());
    EXPECT_TRUE(waitForSoundStatus(status::noError));
    expectTone(u"a"_s);
}

} // namespace
