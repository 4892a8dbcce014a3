#pragma once

#include "platform/ui/NamedImage.h"

#include <QAbstractButton>

namespace lyrabox {

/// A push button with two or three states, drawn as an image on an optional background. A click
/// advances the state: off (0), mixed (-1), on (1), off; or off, on, off without a mixed state. The
/// state changes before clicked() is sent. A button without state texts is momentary: a click does
/// not change its state. Main thread.
class StateButton : public QAbstractButton {
    Q_OBJECT
    Q_PROPERTY(int state READ state WRITE setState NOTIFY stateChanged)

public:
    /// What the button shows while it is pressed: no change, or a pushed-in look with the alternate
    /// image if there is one.
    enum class Highlight { None = 0, PushIn = 1 };
    Q_ENUM(Highlight)

    /// What is drawn behind the image: nothing, a white disc with a hairline, a disc in the accent
    /// colour, or a box.
    enum class Background { None, Round, RoundAccent, Box };
    Q_ENUM(Background)

    explicit StateButton(QWidget *parent = nullptr);

    int state() const { return m_state; }
    /// Sets the state, 0, 1 or -1, without sending clicked().
    void setState(int state);

    bool allowsMixedState() const { return m_allowsMixedState; }
    void setAllowsMixedState(bool allowed) { m_allowsMixedState = allowed; }

    const NamedImage &image() const { return m_image; }
    void setImage(const NamedImage &image);
    const NamedImage &alternateImage() const { return m_alternateImage; }
    void setAlternateImage(const NamedImage &image);

    Highlight highlightMode() const { return m_highlightMode; }
    void setHighlightMode(Highlight mode);

    /// Whether the image is drawn paler while the button is disabled; true by default.
    bool imageDimsWhenDisabled() const { return m_imageDimsWhenDisabled; }
    void setImageDimsWhenDisabled(bool dims);

    Background background() const { return m_background; }
    void setBackground(Background background);

    /// The tool tip and accessible name for each state. Name a momentary button with
    /// setAccessibleName() instead.
    void setStateTexts(const QString &off, const QString &mixed, const QString &on);
    bool isMomentary() const { return m_stateTexts.isEmpty(); }

    /// Whether the button is drawn pressed: because setHighlighted() asks for it, or because the
    /// mouse holds it down.
    bool isHighlighted() const { return m_highlighted || isDown(); }
    void setHighlighted(bool highlighted);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    /// The state changed, by a click or by setState().
    void stateChanged(int state);

protected:
    void nextCheckState() override;
    void paintEvent(QPaintEvent *event) override;
    bool hitButton(const QPoint &position) const override;

    /// Draws the image of the current state into `rect`. Subclasses choose the image.
    virtual void drawImage(QPainter &painter, const QRect &rect);

    /// Draws `image` at its natural size in the middle of `rect`, on whole pixels.
    void drawCentered(QPainter &painter, const NamedImage &image, const QRect &rect) const;

private:
    void showStateText();
    QRectF backgroundRect() const;
    void drawBackground(QPainter &painter) const;

    NamedImage m_image;
    NamedImage m_alternateImage;
    QStringList m_stateTexts;
    int m_state = 0;
    bool m_allowsMixedState = false;
    bool m_imageDimsWhenDisabled = true;
    bool m_highlighted = false;
    Highlight m_highlightMode = Highlight::PushIn;
    Background m_background = Background::None;
};

} // namespace lyrabox
