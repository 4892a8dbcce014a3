#include "pedals/MidiParser.h"

namespace lyrabox {

namespace {

constexpr std::uint8_t firstStatus = 0x80;
constexpr std::uint8_t firstSystem = 0xF0;
constexpr std::uint8_t firstRealTime = 0xF8;
constexpr unsigned dataBits = 7;

using Kind = MidiMessage::Kind;

Kind kindOf(std::uint8_t status)
{
    static constexpr std::array kinds{Kind::NoteOff,    Kind::NoteOn,  Kind::KeyPressure,
                                      Kind::Controller, Kind::Program, Kind::ChannelPressure,
                                      Kind::PitchBend};
    return kinds.at((status >> 4U) & 7U);
}

std::size_t dataBytes(Kind kind)
{
    return kind == Kind::Program || kind == Kind::ChannelPressure ? 1 : 2;
}

MidiMessage messageOf(std::uint8_t status, const std::array<std::uint8_t, 2> &data)
{
    MidiMessage message{.kind = kindOf(status), .channel = (status & 0x0F) + 1};
    switch (message.kind) {
    case Kind::ChannelPressure:
        message.value = data[0];
        break;
    case Kind::PitchBend:
        message.value = data[0] | data[1] << dataBits;
        break;
    case Kind::Program:
        message.number = data[0];
        break;
    default:
        message.number = data[0];
        message.value = data[1];
        break;
    }
    if (message.kind == Kind::NoteOn && message.value == 0)
        message.kind = Kind::NoteOff;
    return message;
}

} // namespace

std::optional<MidiMessage> MidiParser::take(std::uint8_t byte)
{
    if (byte >= firstRealTime)
        return std::nullopt; // may come between any two bytes, and changes nothing
    if (byte >= firstStatus) {
        m_status = byte < firstSystem ? byte : 0;
        m_count = 0;
        return std::nullopt;
    }
    if (m_status == 0)
        return std::nullopt;
    m_data.at(m_count++) = byte;
    if (m_count < dataBytes(kindOf(m_status)))
        return std::nullopt;
    m_count = 0;
    return messageOf(m_status, m_data);
}

void MidiParser::reset()
{
    m_status = 0;
    m_count = 0;
}

} // namespace lyrabox
