#pragma once

#include "pedals/MidiParser.h"

#include <QString>

#include <compare>
#include <optional>

namespace lyrabox {

/// One switch, pedal or knob of a MIDI device: the messages that it sends.
struct PedalControl {
    enum class Kind { Controller, Note, Program, PitchBend, Pressure };

    QString port = {}; ///< the name of its port; empty for every port
    Kind kind = Kind::Controller;
    int channel = 0; ///< 1 to 16; 0 for every channel
    int number = 0;  ///< of the controller, note or program, 0 to 127; 0 for the other kinds

    bool operator==(const PedalControl &) const = default;
};

/// "controller 64", "note 60", "program 3", "pitch bend", "pressure": a control without its port
/// and channel, as the file has it.
QString controlText(const PedalControl &control);

/// Reads a controlText(). None if it is something else.
std::optional<PedalControl> controlOf(const QString &text);

/// The control that sends a message. Releases belong to the same control as presses.
PedalControl controlOf(const MidiMessage &message, const QString &port);

/// Whether `control` means what `sent` is, which has a port and a channel.
bool includes(const PedalControl &control, const PedalControl &sent);

/// Whether some message would be meant by both.
bool overlap(const PedalControl &one, const PedalControl &other);

/// Higher for a control that names more: its port, then its channel.
int specificity(const PedalControl &control);

} // namespace lyrabox
