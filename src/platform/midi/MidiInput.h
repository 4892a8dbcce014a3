#pragma once

#include <QString>

#include <chrono>
#include <cstdint>
#include <span>
#include <vector>

namespace lyrabox {

/// A port of the system from which MIDI can be received. A number names it while it exists; devices
/// of one name have different numbers.
struct MidiPort {
    std::uint32_t device = 0;
    QString name; ///< "FS-2: FS-2 MIDI 1"

    bool operator==(const MidiPort &) const = default;
};

/// All MIDI ports of the system, as they come and go. One thread.
class MidiInput {
public:
    /// What is called by open() and read().
    class Listener {
    public:
        virtual ~Listener() = default;

        /// A port appeared, or changed its name.
        virtual void portFound(const MidiPort &port) = 0;
        virtual void portGone(std::uint32_t device) = 0;
        /// A whole message arrived, at a time of the steady clock.
        virtual void received(std::uint32_t device, std::span<const std::uint8_t> bytes,
                              std::chrono::microseconds time) = 0;
        /// Messages of some devices were lost, because they were not read in time.
        virtual void messagesLost() = 0;
    };

    virtual ~MidiInput() = default;

    /// Opens the system's sequencer and receives from all its ports. False if there is none.
    /// `listener` must outlive this object.
    virtual bool open(Listener &listener) = 0;

    /// Become readable when something arrives. Valid after open().
    virtual std::vector<int> descriptors() const = 0;

    enum class Rest {
        Nothing, ///< everything was read
        More,    ///< there is more than was asked for: call read() again
        Broken   ///< the sequencer is gone
    };
    /// Reads at most so many events, and never blocks.
    virtual Rest read(int events) = 0;
};

} // namespace lyrabox
