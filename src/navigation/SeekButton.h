#pragma once

#include "navigation/PeriodicEvents.h"
#include "platform/ui/StateButton.h"

#include <QPointer>

#include <memory>

class LB_NavigationView;
class QKeyEvent;

namespace lyrabox {

/// Base of the two seek buttons. A short press by mouse or key is a click. A held press steps
/// through the song five times a second. Other input is swallowed during a press. A press that is
/// interrupted (the button is disabled or hidden, or its window is left) ends without a click. Main
/// thread.
class SeekButton : public StateButton {
    Q_OBJECT
    Q_PROPERTY(double periodicDelay READ periodicDelay WRITE setPeriodicDelay)
    Q_PROPERTY(double periodicInterval READ periodicInterval WRITE setPeriodicInterval)
    Q_PROPERTY(int keyEquivalent READ keyEquivalent WRITE setKeyEquivalent)

public:
    /// Seconds between two steps, in single precision.
    static constexpr float repeatPeriod = 0.2F;

    explicit SeekButton(QWidget *parent = nullptr);
    ~SeekButton() override;

    LB_NavigationView *navView() const { return m_navView; }
    void setNavView(LB_NavigationView *view) { m_navView = view; }

    /// Adopts the periodic delay and interval of the interface definition.
    void awakeFromNib();

    /// Begins a press if the event's key is this button's. Returns whether it is, even if the
    /// button is disabled and nothing happens. Returns at once; the event loop delivers the
    /// release.
    bool performKeyEquivalent(QKeyEvent *event);

    /// Number of steps of the current or last press.
    quint64 clickCount() const { return m_clickCount; }

    /// Seconds before the first step.
    float theDelay() const { return m_theDelay; }

    /// Has no effect: steps come every repeatPeriod. See docs/kept-on-purpose.md.
    float theInterval() const { return m_theInterval; }
    bool isPressing() const { return m_press != Press::None; }

    double periodicDelay() const { return m_periodicDelay; }
    void setPeriodicDelay(double seconds) { m_periodicDelay = seconds; }
    double periodicInterval() const { return m_periodicInterval; }
    void setPeriodicInterval(double seconds) { m_periodicInterval = seconds; }

    /// The key (Qt::Key) that presses the button.
    int keyEquivalent() const { return m_keyEquivalent; }
    void setKeyEquivalent(int key) { m_keyEquivalent = key; }

    /// Replaces the source of the periodic events. For tests.
    void setPeriodicEvents(std::unique_ptr<PeriodicEvents> events) { m_events = std::move(events); }

protected:
    enum class Press { None, Mouse, Key };
    enum class AfterStep { Continue, EndPress };

    /// Number of frames in one second.
    quint64 stepFrames() const;

    /// Seeks by one step. Called periodically while the button is held.
    virtual AfterStep step(Press press) = 0;

    /// Carries out a click.
    virtual void clickAction() = 0;

    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    enum class End { Released, Interrupted };
    void beginPress(Press press);
    void endPress(End end);
    void periodicEvent();

    LB_NavigationView *m_navView = nullptr;
    std::unique_ptr<PeriodicEvents> m_events;
    quint64 m_clickCount = 0;
    float m_theDelay = 0.4F;
    float m_theInterval = repeatPeriod;
    double m_periodicDelay = 0.4;
    double m_periodicInterval = 0.2;
    int m_keyEquivalent = 0;
    Press m_press = Press::None;
    QPointer<QWidget> m_keyWindow; ///< The window where the key was pressed.
};

} // namespace lyrabox
