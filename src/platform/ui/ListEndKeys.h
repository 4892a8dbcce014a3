#pragma once

#include <QObject>

class QAbstractItemView;

namespace lyrabox {

/// Makes Home and End go to the first and the last row of a list of whole rows. The toolkit's tables
/// take them to the ends of the row, which shows nothing. With Ctrl, Shift or Alt they stay the
/// toolkit's. Owned by its view.
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
