#pragma once

#include <QLineEdit>

class QToolButton;

namespace lyrabox {

/// A round text field with a magnifier and, while it holds text, a cancel button. The field does
/// not clear itself: what cancelling means is the receiver's to say.
class SearchField : public QLineEdit {
    Q_OBJECT

public:
    explicit SearchField(QWidget *parent = nullptr);

    /// As a press of the cancel button or Escape in a field that holds text.
    void cancel();

    QSize sizeHint() const override;

Q_SIGNALS:
    void canceled(lyrabox::SearchField *sender);
    /// The text has changed, by whomever.
    void searchChanged(const QString &text);

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QToolButton *m_cancelButton;
};

} // namespace lyrabox
