#pragma once

#include <QLabel>

class QAbstractScrollArea;

namespace lyrabox {

/// A gray text in the middle of a view that has nothing to show. The view keeps its mouse, keyboard
/// and drops; assistive programs read the text as a label. Main thread.
class EmptyViewText : public QLabel {
    Q_OBJECT

public:
    /// Lies over the viewport of `view`, which owns it. Hidden while its text is empty.
    explicit EmptyViewText(QAbstractScrollArea *view);

    /// Plain text; an empty one hides it.
    void showText(const QString &text);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void fitViewport();

    QAbstractScrollArea *m_view;
};

} // namespace lyrabox
