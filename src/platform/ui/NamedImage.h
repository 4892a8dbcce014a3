#pragma once

#include <QIcon>
#include <QPixmap>
#include <QSize>
#include <QString>

class QPainter;

namespace lyrabox {

/// An image of the program's own, found by its name among the compiled-in drawings
/// (`:/images/NAME.svg`). It keeps its name, so that a variant ("Light", "Alt") can be found from
/// it. Drawings are rendered at device resolution. A name that no drawing has gives a null image
/// that still knows its name.
class NamedImage {
public:
    NamedImage() = default;
    explicit NamedImage(const QString &name);

    const QString &name() const { return m_name; }
    bool isNull() const { return m_size.isEmpty(); }

    /// The natural size in device-independent pixels; empty for a null image.
    QSize size() const { return m_size; }

    QIcon icon() const;

    /// The image at its natural size, sharp at `devicePixelRatio`.
    QPixmap pixmap(qreal devicePixelRatio) const;
    QPixmap pixmap(const QSize &size, qreal devicePixelRatio) const;

    /// Draws the image at its natural size, sharp on whatever `painter` draws to.
    void draw(QPainter &painter, const QPoint &position) const;

private:
    QString m_name;
    QSize m_size;
};

} // namespace lyrabox
