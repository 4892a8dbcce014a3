#pragma once

#include <QLabel>

class QAbstractScrollArea;

namespace lyrabox {

/// A gray text in the middle of a view that has nothing to show. The view still gets all mouse,
/// keyboard and drop events. Assistive technologies read the text as a label. Main thread.
class EmptyViewText : public QLabel {
    Q_OBJECT

public:
    /// Covers the viewport of `view`, which owns the new object. Hidden until showText() gets a
    /// text.
    explicit EmptyViewText(QAbstractScrollArea *view);

    /// Shows `text` as plain text. An empty text hides the object.
    void showText(const QString &text);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void fitViewport();

    QAbstractScrollArea *m_view;
};

} // namespace lyrabox
