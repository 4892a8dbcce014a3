#include "engine/Chain.h"

#include "engine/AudioEngineControl.h"
#include "engine/EngineFixture.h"

namespace lyrabox::test {
namespace {

class ChainTest : public EngineFixture {
protected:
    ChainTest() { EXPECT_EQ(engine::buildAudioSystem(), 0); }
};

TEST_F(ChainTest, EveryCarriedParameterKeepsItsValueOnANewDevice)
{
    const auto parameters = [] { return engine::carriedParameters(engine::control().chain); };
    float value = 0.125F;
    for (const engine::CarriedParameter &carried : parameters()) {
        carried.unit->setParameter(carried.id, value);
        value += 0.0625F;
    }
    ASSERT_TRUE(audio.fireDefaultOutputChangedOnThread());
    value = 0.125F;
    for (const engine::CarriedParameter &carried : parameters()) {
        EXPECT_EQ(carried.unit->parameter(carried.id), value) << "parameter " << carried.id;
        value += 0.0625F;
    }
}

TEST_F(ChainTest, EveryControlOfTheUserIsCarried)
{
    std::size_t equalizerParameters = 0;
    for (const engine::CarriedParameter &carried :
         engine::carriedParameters(engine::control().chain))
        equalizerParameters += carried.unit == engine::control().chain.equalizer.get() ? 1 : 0;
    EXPECT_EQ(equalizerParameters, 10U);
}

} // namespace
} // namespace lyrabox::test
