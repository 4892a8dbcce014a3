#include "app/shell/EngineStart.h"

#include "engine/AudioEngine.h"
#include "platform/foundation/Machine.h"
#include "support/FakeAudioUnits.h"

#include <gtest/gtest.h>

#include <optional>
#include <thread>

namespace lyrabox::test {

namespace {

class StartedEngine : public testing::Test {
protected:
    StartedEngine()
    {
        engine::tearDownAudioSystem();
        engine::setAudioUnitFactory(recordingFactory());
    }

    ~StartedEngine() override
    {
        limitThreads(std::nullopt);
        engine::tearDownAudioSystem();
        engine::setAudioUnitFactory({});
    }

    /// The fake units' factory, which records the thread that builds the chain.
    AudioUnitFactory recordingFactory()
    {
        AudioUnitFactory factory = audio.factory();
        factory.output = [this, make = factory.output] {
            builder = std::this_thread::get_id();
            return make();
        };
        return factory;
    }

    FakeAudio audio;
    std::thread::id builder;
};

TEST_F(StartedEngine, IsBuiltOnAThreadOfItsOwn)
{
    EngineStart start = startEngine();
    EXPECT_EQ(start.status.get(), status::noError);
    EXPECT_NE(builder, std::this_thread::get_id());
}

TEST_F(StartedEngine, IsBuiltByTheCallerIfThereIsNoThread)
{
    limitThreads(0);
    EngineStart start = startEngine();
    EXPECT_EQ(start.status.get(), status::noError);
    EXPECT_EQ(builder, std::this_thread::get_id());
}

} // namespace
} // namespace lyrabox::test
