#pragma once

#include <QStringList>
#include <QWidget>

namespace lyrabox {

/// A row of segments, one of which is selected. Segments are numbered from 0. Arrow keys move the
/// selection. Main thread.
class SegmentedControl : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QStringList segments READ segments WRITE setSegments)

public:
    explicit SegmentedControl(QWidget *parent = nullptr);

    QStringList segments() const { return m_segments; }
    /// Sets the titles; there is one segment per title.
    void setSegments(const QStringList &titles);

    int selectedSegment() const { return m_selected; }

    /// Selects a segment without sending pressed(). An index outside the range is ignored.
    void setSelectedSegment(int index);

    /// Selects a segment and sends pressed(), as a click does. An index outside the range is
    /// ignored.
    void pressSegment(int index);

    /// The segment's rectangle in widget coordinates.
    QRect segmentRect(int index) const;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user chose a segment. It is already selected.
    void pressed(lyrabox::SegmentedControl *sender);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QStringList m_segments;
    int m_selected = 0;
};

} // namespace lyrabox
