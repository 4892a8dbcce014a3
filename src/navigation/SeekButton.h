#pragma once

#include "navigation/PeriodicEvents.h"
#include "platform/ui/StateButton.h"

#include <QPointer>

#include <memory>

class LB_NavigationView;
class QKeyEvent;

namespace lyrabox {

/// What the two seek buttons share: a press by mouse or key is a click when it is short, and steps
/// through the song five times a second when it is held. While a press lasts, other input is
/// swallowed. A press that is cut off (the button is disabled or hidden, the window is left) ends
/// without a click.
class SeekButton : public StateButton {
    Q_OBJECT
    Q_PROPERTY(double periodicDelay READ periodicDelay WRITE setPeriodicDelay)
    Q_PROPERTY(double periodicInterval READ periodicInterval WRITE setPeriodicInterval)
    Q_PROPERTY(int keyEquivalent READ keyEquivalent WRITE setKeyEquivalent)

public:
    /// Seconds between two steps, kept in single precision.
    static constexpr float repeatPeriod = 0.2F;

    explicit SeekButton(QWidget *parent = nullptr);
    ~SeekButton() override;

    LB_NavigationView *navView() const { return m_navView; }
    void setNavView(LB_NavigationView *view) { m_navView = view; }

    /// Reads the periodic delay and interval of the interface definition.
    void awakeFromNib();

    /// The press and hold of a key. True when the key is this button's, also when the button is
    /// disabled and nothing is done. The release is awaited by the event loop.
    bool performKeyEquivalent(QKeyEvent *event);

    quint64 clickCount() const { return m_clickCount; }
    float theDelay() const { return m_theDelay; }
    float theInterval() const { return m_theInterval; }
    bool isPressing() const { return m_press != Press::None; }

    double periodicDelay() const { return m_periodicDelay; }
    void setPeriodicDelay(double seconds) { m_periodicDelay = seconds; }
    double periodicInterval() const { return m_periodicInterval; }
    void setPeriodicInterval(double seconds) { m_periodicInterval = seconds; }
    int keyEquivalent() const { return m_keyEquivalent; }
    void setKeyEquivalent(int key) { m_keyEquivalent = key; }

    /// Replaces the source of the periodic events.
    void setPeriodicEvents(std::unique_ptr<PeriodicEvents> events) { m_events = std::move(events); }

protected:
    enum class Press { None, Mouse, Key };
    enum class AfterStep { GoOn, EndPress };

    /// One second of song, in frames.
    quint64 stepFrames() const;

    virtual AfterStep step(Press press) = 0;
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
    enum class End { Released, CutOff };
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
    QPointer<QWidget> m_keyWindow; ///< where the key was pressed
};

} // namespace lyrabox
