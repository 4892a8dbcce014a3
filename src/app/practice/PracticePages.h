#pragma once

#include <QList>
#include <QWidget>

class QGridLayout;

namespace lyrabox {

class SegmentedControl;

/// The pages on the right of the practice pane, with a switch between them. Where there is room,
/// the first page stands beside the others. A single page has no switch. Main thread.
class PracticePages : public QWidget {
    Q_OBJECT

public:
    static constexpr int pageWidth = 276;

    explicit PracticePages(QWidget *parent = nullptr);

    /// Adds a page behind the others. It belongs to this widget then.
    void addPage(const QString &title, QWidget *page);

    /// Shows a page, as the switch does.
    void showPage(QWidget *page);
    /// The page that the switch has selected. Null without pages.
    QWidget *current() const;

    /// Marks a page in the switch: something on it is not as usual.
    void setMarked(QWidget *page, bool marked);

    /// Whether the first page stands beside the others.
    void setTwoColumns(bool two);

Q_SIGNALS:
    void currentChanged();

private:
    void arrange();
    bool hasFirstApart() const { return m_hasTwoColumns && m_pages.size() > 1; }

    struct Page {
        QString title;
        QWidget *widget;
        bool isMarked = false;
    };
    QGridLayout *m_grid;
    SegmentedControl *m_switch;
    QList<Page> m_pages;
    qsizetype m_current = 0;
    bool m_hasTwoColumns = false;
};

} // namespace lyrabox
