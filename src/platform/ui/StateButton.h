#pragma once

#include "platform/ui/NamedImage.h"

#include <QAbstractButton>

namespace lyrabox {

/// A push button with two or three states, drawn as an image on a round or plain ground.
/// A click advances the state off (0), mixed (-1), on (1), off; without mixed states off, on, off.
/// The state has changed before clicked() is sent. A button whose states have no texts is
/// momentary: a click changes nothing about it.
class StateButton : public QAbstractButton {
    Q_OBJECT
    Q_PROPERTY(int state READ state WRITE setState NOTIFY stateChanged)

public:
    /// What a press shows: nothing, the pressed look with the alternate image, or a pushed-in look.
    enum class Highlight { None = 0, PushIn = 1 };
    Q_ENUM(Highlight)

    /// What the image stands on: nothing, a white disc with a hairline, a disc of the accent
    /// colour, or a box.
    enum class Ground { None, Round, RoundAccent, Box };
    Q_ENUM(Ground)

    explicit StateButton(QWidget *parent = nullptr);

    int state() const { return m_state; }
    void setState(int state);

    bool allowsMixedState() const { return m_allowsMixedState; }
    void setAllowsMixedState(bool allowed) { m_allowsMixedState = allowed; }

    const NamedImage &image() const { return m_image; }
    void setImage(const NamedImage &image);
    const NamedImage &alternateImage() const { return m_alternateImage; }
    void setAlternateImage(const NamedImage &image);

    Highlight highlightMode() const { return m_highlightMode; }
    void setHighlightMode(Highlight mode);

    /// Whether the image is drawn paler while the button is disabled; true at first.
    bool imageDimsWhenDisabled() const { return m_imageDimsWhenDisabled; }
    void setImageDimsWhenDisabled(bool dims);

    Ground ground() const { return m_ground; }
    void setGround(Ground ground);

    /// What the button is called in each state, as its tool tip and for assistive programs. A
    /// momentary button is named with setAccessibleName().
    void setStateTexts(const QString &off, const QString &mixed, const QString &on);
    bool isMomentary() const { return m_stateTexts.isEmpty(); }

    /// Shows the button pressed, whatever the mouse does.
    bool isHighlighted() const { return m_highlighted || isDown(); }
    void setHighlighted(bool highlighted);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    void stateChanged(int state);

protected:
    void nextCheckState() override;
    void paintEvent(QPaintEvent *event) override;
    bool hitButton(const QPoint &position) const override;

    /// Draws the image of the present state into `rect`. Subclasses choose the image.
    virtual void drawImage(QPainter &painter, const QRect &rect);

    /// Draws `image` at its natural size, centred in `rect` on whole pixels.
    void drawCentered(QPainter &painter, const NamedImage &image, const QRect &rect) const;

private:
    void showStateText();
    QRectF groundRect() const;
    void drawGround(QPainter &painter) const;

    NamedImage m_image;
    NamedImage m_alternateImage;
    QStringList m_stateTexts;
    int m_state = 0;
    bool m_allowsMixedState = false;
    bool m_imageDimsWhenDisabled = true;
    bool m_highlighted = false;
    Highlight m_highlightMode = Highlight::PushIn;
    Ground m_ground = Ground::None;
};

} // namespace lyrabox
