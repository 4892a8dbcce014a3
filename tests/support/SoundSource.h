#pragma once

#include "platform/audio/AudioUnit.h"

#include <cstdint>

namespace lyrabox::test {

/// A source of sound without parameters. The test writes render(), which makes the sound.
class SoundSource : public RenderingUnit {
public:
    Status initialize() override { return status::noError; }
    float parameter(std::uint32_t) const override { return 0.0F; }
    Status setParameter(std::uint32_t, float) override { return status::invalidParameter; }
    void reset() override {}
};

} // namespace lyrabox::test
