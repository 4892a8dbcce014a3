#pragma once

#include "app/pedals/AssignmentList.h"

#include <QObject>

#include <optional>

class QWidget;

namespace lyrabox {

/// Learns a key or a pedal for a command: listens until one is pressed in its window or on a
/// device, and asks if something else has it. Main thread.
class Learner : public QObject {
    Q_OBJECT

public:
    /// What is learnt.
    struct Wish {
        QString id;
        bool isValue = false;
        PedalGesture gesture = PedalGesture::Tap;         ///< of a switch
        PedalDial::Form form = PedalDial::Form::Position; ///< of a dial
    };

    enum class State {
        Idle,
        Listening, ///< until something is pressed
        Asking     ///< until take() or cancel(): something else has it
    };

    /// Keys are learnt in `window`. Both must outlive this object.
    Learner(PedalAssignments *pedals, const QWidget *window, QObject *parent = nullptr);
    ~Learner() override;

    void begin(const Wish &wish);
    /// Assigns what was pressed to the wish, and takes it from what has it.
    void take();
    void cancel();

    State state() const { return m_state; }
    const Wish &wish() const { return m_wish; }

    /// What there is to say: what to do, what was pressed and who has it, or how it ended.
    const QString &message() const { return m_message; }

Q_SIGNALS:
    /// state() or message() changed.
    void changed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void takeKey(const QKeySequence &key);
    void takeControl(const PedalControl &control, const MidiMessage &message);
    void propose(const Assignment &assignment, const QString &owner);
    void listen();
    void end(const QString &message);
    QString ownerOf(const Assignment &assignment) const;

    PedalAssignments *m_pedals;
    const QWidget *m_window;
    State m_state = State::Idle;
    Wish m_wish;
    Assignment m_pressed;
    QString m_message;
};

} // namespace lyrabox
