#pragma once

#include <QLabel>

namespace lyrabox {

/// A one-line plain-text label that shortens its text in the middle where it does not fit; the
/// whole text is its tool tip then. text() is always whole.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget *parent = nullptr);

    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    bool event(QEvent *event) override;

private:
    QString elidedText() const;
};

} // namespace lyrabox
