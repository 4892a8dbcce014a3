#pragma once

#include <QPixmap>
#include <QWidget>

namespace lyrabox {

/// Shows one image scaled to fit, with its proportions kept, in rounded corners.
class ImageView : public QWidget {
    Q_OBJECT

public:
    explicit ImageView(QWidget *parent = nullptr);

    const QImage &image() const { return m_image; }
    void setImage(const QImage &image);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QImage m_image;
    QPixmap m_scaled;
};

} // namespace lyrabox
