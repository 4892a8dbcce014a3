#pragma once

#include <QStringList>
#include <QWidget>

namespace lyrabox {

/// A row of segments of which one is selected; a segment's index is also its tag. Arrow keys move
/// the selection.
class SegmentedControl : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QStringList segments READ segments WRITE setSegments)

public:
    explicit SegmentedControl(QWidget *parent = nullptr);

    QStringList segments() const { return m_segments; }
    void setSegments(const QStringList &titles);

    int selectedSegment() const { return m_selected; }

    /// Selects without sending pressed(). An index outside is ignored.
    void setSelectedSegment(int index);

    /// Selects and sends pressed(), as a click would.
    void pressSegment(int index);

    QRect segmentRect(int index) const;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user chose a segment, which is selected already.
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
