#include "app/pedals/Learner.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include <algorithm>

namespace lyrabox {

namespace {

/// Whether the message is that of a switch that goes down.
bool isPress(const MidiMessage &message)
{
    switch (message.kind) {
    case MidiMessage::Kind::NoteOn:
    case MidiMessage::Kind::Program:
        return true;
    case MidiMessage::Kind::Controller:
    case MidiMessage::Kind::ChannelPressure:
        return message.value >= PedalBoard::on;
    default:
        return false;
    }
}

/// Whether the message is that of something that moves.
bool isMove(const MidiMessage &message)
{
    return message.kind == MidiMessage::Kind::Controller ||
           message.kind == MidiMessage::Kind::ChannelPressure ||
           message.kind == MidiMessage::Kind::PitchBend;
}

} // namespace

Learner::Learner(PedalAssignments *pedals, const QWidget *window, QObject *parent)
    : QObject(parent), m_pedals(pedals), m_window(window)
{
    connect(pedals->player(), &PedalPlayer::heard, this, &Learner::takeControl);
}

Learner::~Learner()
{
    cancel();
}

void Learner::begin(const Wish &wish)
{
    m_wish = wish;
    m_state = State::Listening;
    const QString name = m_pedals->nameOf(wish.id);
    m_message = wish.isValue ? tr("Move the pedal or knob for “%1”. Escape cancels.").arg(name)
                             : tr("Press a key or a pedal for “%1”. Escape cancels.").arg(name);
    qApp->installEventFilter(this);
    m_pedals->player()->setLearning(true);
    Q_EMIT changed();
}

void Learner::end(const QString &message)
{
    m_state = State::Idle;
    m_message = message;
    qApp->removeEventFilter(this);
    m_pedals->player()->setLearning(false);
    Q_EMIT changed();
}

void Learner::cancel()
{
    if (m_state != State::Idle)
        end({});
}

bool Learner::eventFilter(QObject *watched, QEvent *event)
{
    if (m_state != State::Listening || !watched->isWidgetType() ||
        static_cast<QWidget *>(watched)->window() != m_window)
        return false;
    if (event->type() == QEvent::ShortcutOverride) {
        event->accept();
        return true;
    }
    if (event->type() != QEvent::KeyPress)
        return false;
    const auto &press = static_cast<QKeyEvent &>(*event);
    const QKeySequence key = keyOf(press);
    if (key == QKeySequence(Qt::Key_Escape))
        cancel();
    else if (!key.isEmpty() && !press.isAutoRepeat() && !m_wish.isValue)
        takeKey(key);
    event->accept();
    return true;
}

void Learner::takeKey(const QKeySequence &key)
{
    if (!isAssignable(key)) {
        m_message =
            tr("%1 is needed in every window. Press another key or a pedal. Escape cancels.")
                .arg(key.toString(QKeySequence::NativeText));
        Q_EMIT changed();
        return;
    }
    const MenuCommand *owner = m_pedals->keys().commandOf(key);
    propose({.kind = Assignment::Kind::Key, .key = key}, owner != nullptr ? owner->id : QString());
}

/// Something that a set assigned for every device is learnt there, not beside it.
void Learner::takeControl(const PedalControl &control, const MidiMessage &message)
{
    if (m_state != State::Listening || !(m_wish.isValue ? isMove(message) : isPress(message)))
        return;
    const PedalSwitch *const known = m_pedals->map().switchOf(control);
    const PedalDial *const dial = m_pedals->map().dialOf(control);
    Assignment pressed{.kind = m_wish.isValue ? Assignment::Kind::Dial : Assignment::Kind::Switch,
                       .control = known != nullptr  ? known->control
                                  : dial != nullptr ? dial->control
                                                    : control,
                       .gesture = m_wish.gesture};
    propose(pressed, ownerOf(pressed));
}

QString Learner::ownerOf(const Assignment &assignment) const
{
    const PedalMap &map = m_pedals->map();
    const auto dial = std::ranges::find(map.dials, assignment.control, &PedalDial::control);
    if (dial != map.dials.end())
        return dial->target;
    const auto known = std::ranges::find(map.switches, assignment.control, &PedalSwitch::control);
    if (known == map.switches.end())
        return {};
    if (assignment.kind == Assignment::Kind::Switch)
        return known->command(assignment.gesture);
    for (const QString &command : {known->tap, known->doubleTap, known->hold}) {
        if (!command.isEmpty())
            return command;
    }
    return {};
}

void Learner::propose(const Assignment &assignment, const QString &owner)
{
    m_pressed = assignment;
    const QString pressed = assignmentText(assignment);
    if (owner.isEmpty() || owner == m_wish.id) {
        take();
        return;
    }
    m_state = State::Asking;
    m_message = tr("%1 is assigned to “%2”. Use it for “%3” instead?")
                    .arg(pressed, m_pedals->nameOf(owner), m_pedals->nameOf(m_wish.id));
    Q_EMIT changed();
}

void Learner::take()
{
    PedalMap map = m_pedals->map();
    bool fits = true;
    switch (m_pressed.kind) {
    case Assignment::Kind::Key:
        fits = setKey(map, m_pedals->keys().builtIn(), keyName(m_pressed.key), m_wish.id);
        break;
    case Assignment::Kind::Switch:
        fits = setSwitch(map, m_pressed.control, m_pressed.gesture, m_wish.id);
        break;
    case Assignment::Kind::Dial:
        fits = setDial(map, m_pressed.control, m_wish.form, m_wish.id);
        break;
    }
    if (!fits) {
        end(tr("There is no room for more."));
        return;
    }
    const QString done =
        tr("%1 is now “%2”.").arg(assignmentText(m_pressed), m_pedals->nameOf(m_wish.id));
    const bool isWritten = m_pedals->change(map);
    end(isWritten ? done : QString());
}

} // namespace lyrabox
