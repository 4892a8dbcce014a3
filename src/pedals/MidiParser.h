#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace lyrabox {

/// A channel message of MIDI. Note-on with velocity 0 is a NoteOff.
struct MidiMessage {
    enum class Kind {
        NoteOff,
        NoteOn,
        KeyPressure,
        Controller,
        Program,
        ChannelPressure,
        PitchBend
    };

    Kind kind = Kind::NoteOff;
    int channel = 1; ///< 1 to 16
    int number = 0;  ///< of the note, controller or program, 0 to 127; 0 for the other kinds
    int value = 0;   ///< velocity, position or pressure, 0 to 127; a pitch bend has 0 to 16383

    bool operator==(const MidiMessage &) const = default;
};

/// Reads the channel messages out of a stream of MIDI bytes: with running status, with real-time
/// bytes in between, and whatever else comes. System messages are skipped. One thread at a time.
class MidiParser {
public:
    /// Takes the next byte. Returns the message that it completes, if any.
    std::optional<MidiMessage> take(std::uint8_t byte);

    /// Forgets an unfinished message and the running status.
    void reset();

private:
    std::uint8_t m_status = 0; ///< 0: data bytes belong to nothing that is read here
    std::size_t m_count = 0;   ///< data bytes so far
    std::array<std::uint8_t, 2> m_data{};
};

} // namespace lyrabox
