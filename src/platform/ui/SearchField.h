#pragma once

#include <QLineEdit>

class QToolButton;

namespace lyrabox {

/// A round text field with a magnifier and, while it contains text, a cancel button. The field does
/// not clear itself: the receiver of canceled() decides what happens. Main thread.
class SearchField : public QLineEdit {
    Q_OBJECT

public:
    explicit SearchField(QWidget *parent = nullptr);

    /// Sends canceled(), as the cancel button and Escape in a non-empty field do.
    void cancel();

    QSize sizeHint() const override;

Q_SIGNALS:
    /// The user cancelled the search. The text has not changed.
    void canceled(lyrabox::SearchField *sender);

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QToolButton *m_cancelButton;
};

} // namespace lyrabox
