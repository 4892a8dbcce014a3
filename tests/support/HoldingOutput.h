#pragma once

#include "platform/audio/AudioUnit.h"

#include <string>
#include <vector>

namespace lyrabox::test {

/// An output that plays out an ended song for as long as the test wants. It pulls nothing. The test
/// owns `Log`, which outlives the unit.
class HoldingOutput final : public OutputUnit {
public:
    struct Log {
        bool isRunning = false;
        bool isPlayingOut = false;
        std::vector<std::string> calls{}; ///< "start", "stop", "reset"
    };
    explicit HoldingOutput(Log &log) : m_log(log) {}

    Status initialize() override { return status::noError; }
    float parameter(std::uint32_t) const override { return 0.0F; }
    Status setParameter(std::uint32_t, float) override { return status::noError; }
    void reset() override { m_log.calls.emplace_back("reset"); }
    Status connect(RenderingUnit *) override { return status::noError; }
    Status start() override
    {
        m_log.calls.emplace_back("start");
        m_log.isRunning = true;
        return status::noError;
    }
    Status stop() noexcept override
    {
        m_log.calls.emplace_back("stop");
        m_log.isRunning = false;
        m_log.isPlayingOut = false;
        return status::noError;
    }
    bool isRunning() const noexcept override { return m_log.isRunning; }
    bool isPlayingOut() const noexcept override { return m_log.isPlayingOut; }

private:
    Log &m_log;
};

/// `factory` with a HoldingOutput in place of its output.
inline AudioUnitFactory withHoldingOutput(AudioUnitFactory factory, HoldingOutput::Log &log)
{
    factory.output = [&log] { return std::make_unique<HoldingOutput>(log); };
    return factory;
}

} // namespace lyrabox::test
