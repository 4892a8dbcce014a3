#pragma once

#include <QIcon>
#include <QPixmap>
#include <QSize>
#include <QString>

class QPainter;

namespace lyrabox {

/// One of the program's own images, found by name among the compiled-in drawings
/// (`:/images/NAME.svg`). It keeps its name so that callers can find a variant ("Light", "Alt").
/// Drawings are rendered at device resolution. If there is no drawing with that name, the image is
/// null but keeps the name. Main thread.
class NamedImage {
public:
    NamedImage() = default;
    explicit NamedImage(const QString &name);

    const QString &name() const { return m_name; }
    bool isNull() const { return m_size.isEmpty(); }

    /// The natural size in device-independent pixels; empty if the image is null.
    QSize size() const { return m_size; }

    QIcon icon() const;

    /// The image at its natural size, or at `size` device-independent pixels, rendered for
    /// `devicePixelRatio`. Null if the image is null or the size is empty.
    QPixmap pixmap(qreal devicePixelRatio) const;
    QPixmap pixmap(const QSize &size, qreal devicePixelRatio) const;

    /// Draws the image at its natural size, at the resolution of the painter's device. `position`
    /// is the top left corner.
    void draw(QPainter &painter, const QPoint &position) const;

private:
    QString m_name;
    QSize m_size;
};

} // namespace lyrabox
