#pragma once

#include <QObject>

class QAbstractItemView;

namespace lyrabox {

/// Makes Home and End go to the first and the last row of a list. By default the toolkit's tables
/// go to the ends of the current row instead, which is useless where whole rows are selected. With
/// Ctrl, Shift or Alt the keys keep the toolkit's meaning. The view owns the object. Main thread.
class ListEndKeys : public QObject {
    Q_OBJECT

public:
    explicit ListEndKeys(QAbstractItemView *view);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QAbstractItemView *m_view;
};

} // namespace lyrabox
