#pragma once

#include "platform/ui/NamedImage.h"

#include <QAbstractButton>

namespace lyrabox {

/// One push button of a ButtonMatrix. Only the outer corners of the row are rounded, and neighbours
/// share a line. Main thread.
class MatrixCell : public QAbstractButton {
    Q_OBJECT

public:
    /// Shows `image`, or its text() if the image is null.
    explicit MatrixCell(const NamedImage &image, QWidget *parent);

    /// Whether the cell is at the beginning or end of its row; both are true by default.
    void setIsFirst(bool first);
    void setIsLast(bool last);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    NamedImage m_image;
    bool m_first = true;
    bool m_last = true;
};

} // namespace lyrabox
