#pragma once

#include "platform/audio/AudioUnit.h"
#include "platform/audio/StreamFormat.h"

#include <memory>
#include <vector>

/// The chain of stages that the engine plays through.
///
/// A new stage needs: a member of AudioUnitFactory with its entry in platformAudioUnits(), a member
/// of Chain, its steps in buildChain(), its place in resetChain(), and its parameters in
/// carriedParameters(). The last three are in Chain.cpp. Everything else follows.
namespace lyrabox::engine {

/// The stages of one build. The output is the last member, so it is destroyed first.
struct Chain {
    std::unique_ptr<EqualizerUnit> equalizer;
    std::unique_ptr<TimePitchUnit> timePitch;
    std::unique_ptr<ClickUnit> click; ///< null: the chain has no metronome
    std::unique_ptr<OutputUnit> output;
    AudioStreamBasicDescription format{};
};

/// Makes, initialises and connects the stages, from the song to the output. Stops at the first step
/// that fails and returns its status. Makes the engine's watcher if there is none. The caller holds
/// the engine's mutex.
Status buildChain(Chain &chain);

/// What resetChain() does with the last frames of an ended song, which the stages still hold.
enum class HeldSound { Drop, PlayOut };

/// Drops the frames that the stages hold, from the output back to the equalizer. Control side.
void resetChain(const Chain &chain, HeldSound held);

/// A parameter that keeps its value when the output device changes.
struct CarriedParameter {
    AudioUnit *unit;
    std::uint32_t id;
};

/// Every such parameter of a complete chain, always in the same order. Control side.
std::vector<CarriedParameter> carriedParameters(const Chain &chain);

} // namespace lyrabox::engine
