#include "pedals/PedalControl.h"

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

using Kind = PedalControl::Kind;

struct KindName {
    Kind kind;
    QLatin1StringView name;
    bool hasNumber;
};

constexpr KindName kindNames[] = {
    {Kind::Controller, "controller"_L1, true}, {Kind::Note, "note"_L1, true},
    {Kind::Program, "program"_L1, true},       {Kind::PitchBend, "pitch bend"_L1, false},
    {Kind::Pressure, "pressure"_L1, false},
};

constexpr int mostNumber = 127;

} // namespace

QString controlText(const PedalControl &control)
{
    for (const KindName &name : kindNames) {
        if (name.kind == control.kind)
            return name.hasNumber ? u"%1 %2"_s.arg(name.name).arg(control.number)
                                  : QString(name.name);
    }
    return {};
}

std::optional<PedalControl> controlOf(const QString &text)
{
    for (const KindName &name : kindNames) {
        if (!name.hasNumber && text == name.name)
            return PedalControl{.kind = name.kind};
        if (!name.hasNumber || !text.startsWith(name.name + ' '_L1))
            continue;
        bool isNumber = false;
        const int number = text.sliced(name.name.size() + 1).toInt(&isNumber);
        if (isNumber && number >= 0 && number <= mostNumber)
            return PedalControl{.kind = name.kind, .number = number};
    }
    return std::nullopt;
}

PedalControl controlOf(const MidiMessage &message, const QString &port)
{
    PedalControl control{.port = port, .channel = message.channel, .number = message.number};
    switch (message.kind) {
    case MidiMessage::Kind::NoteOff:
    case MidiMessage::Kind::NoteOn:
    case MidiMessage::Kind::KeyPressure:
        control.kind = Kind::Note;
        break;
    case MidiMessage::Kind::Controller:
        control.kind = Kind::Controller;
        break;
    case MidiMessage::Kind::Program:
        control.kind = Kind::Program;
        break;
    case MidiMessage::Kind::ChannelPressure:
        control.kind = Kind::Pressure;
        break;
    case MidiMessage::Kind::PitchBend:
        control.kind = Kind::PitchBend;
        break;
    }
    return control;
}

bool includes(const PedalControl &control, const PedalControl &sent)
{
    return control.kind == sent.kind && control.number == sent.number &&
           (control.channel == 0 || control.channel == sent.channel) &&
           (control.port.isEmpty() || control.port == sent.port);
}

bool overlap(const PedalControl &one, const PedalControl &other)
{
    return one.kind == other.kind && one.number == other.number &&
           (one.channel == 0 || other.channel == 0 || one.channel == other.channel) &&
           (one.port.isEmpty() || other.port.isEmpty() || one.port == other.port);
}

int specificity(const PedalControl &control)
{
    return (control.port.isEmpty() ? 0 : 2) + (control.channel == 0 ? 0 : 1);
}

} // namespace lyrabox
