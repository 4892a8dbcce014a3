#include "app/pedals/AssignmentList.h"

#include <QAction>
#include <QCoreApplication>

namespace lyrabox {

namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(lyrabox::PedalsWindow)
};

QString shortName(const PedalControl &control)
{
    switch (control.kind) {
    case PedalControl::Kind::Controller:
        return Text::tr("Controller %1").arg(control.number);
    case PedalControl::Kind::Note:
        return Text::tr("Note %1").arg(control.number);
    case PedalControl::Kind::Program:
        return Text::tr("Program %1").arg(control.number);
    case PedalControl::Kind::PitchBend:
        return Text::tr("Pitch bend");
    case PedalControl::Kind::Pressure:
        return Text::tr("Pressure");
    }
    return {};
}

} // namespace

QString controlName(const PedalControl &control)
{
    return control.port.isEmpty() ? shortName(control)
                                  : Text::tr("%1 of %2").arg(shortName(control), control.port);
}

std::vector<Assignment> assignmentsOf(const PedalAssignments &pedals, const QString &id)
{
    std::vector<Assignment> result;
    if (const MenuCommand *command = pedals.keys().command(id)) {
        for (const QKeySequence &key : command->action->shortcuts())
            result.push_back({.kind = Assignment::Kind::Key, .key = key});
    }
    for (const PedalSwitch &each : pedals.map().switches) {
        for (const PedalGesture gesture :
             {PedalGesture::Tap, PedalGesture::DoubleTap, PedalGesture::Hold}) {
            if (each.command(gesture) == id)
                result.push_back({.kind = Assignment::Kind::Switch,
                                  .control = each.control,
                                  .gesture = gesture});
        }
    }
    for (const PedalDial &dial : pedals.map().dials) {
        if (dial.target == id)
            result.push_back({.kind = Assignment::Kind::Dial, .control = dial.control});
    }
    return result;
}

QString assignmentText(const Assignment &assignment)
{
    if (assignment.kind == Assignment::Kind::Key)
        return assignment.key.toString(QKeySequence::NativeText);
    const QString name = controlName(assignment.control);
    if (assignment.kind == Assignment::Kind::Dial)
        return name;
    switch (assignment.gesture) {
    case PedalGesture::DoubleTap:
        return Text::tr("%1, double tap").arg(name);
    case PedalGesture::Hold:
        return Text::tr("%1, hold").arg(name);
    case PedalGesture::Tap:
        break;
    }
    return name;
}

void removeAssignment(PedalMap &map, const std::vector<KeysOfCommand> &builtIn,
                      const Assignment &assignment)
{
    switch (assignment.kind) {
    case Assignment::Kind::Key:
        setKey(map, builtIn, keyName(assignment.key), {});
        break;
    case Assignment::Kind::Switch:
        setSwitch(map, assignment.control, assignment.gesture, {});
        break;
    case Assignment::Kind::Dial:
        removeDial(map, assignment.control);
        break;
    }
}

} // namespace lyrabox
