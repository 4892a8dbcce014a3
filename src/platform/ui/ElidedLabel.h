#pragma once

#include <QLabel>

namespace lyrabox {

/// A one-line plain-text label. If the text does not fit, the label shortens it in the middle and
/// shows the whole text as its tool tip. text() always returns the whole text. Main thread.
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
