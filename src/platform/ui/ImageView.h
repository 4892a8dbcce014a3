#pragma once

#include <QPixmap>
#include <QWidget>

namespace lyrabox {

/// Shows one image with rounded corners. The image is scaled to fit and keeps its proportions. Main
/// thread.
class ImageView : public QWidget {
    Q_OBJECT

public:
    explicit ImageView(QWidget *parent = nullptr);

    /// A null image shows nothing.
    const QImage &image() const { return m_image; }
    void setImage(const QImage &image);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QImage m_image;
    QPixmap m_scaled; ///< m_image at the size it was last painted
};

} // namespace lyrabox
