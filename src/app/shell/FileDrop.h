#pragma once

#include <QObject>
#include <QUrl>

#include <functional>

class QAbstractScrollArea;

namespace lyrabox {

/// Lets a view take local files dropped from the file manager. It lives as long as the view.
class FileDrop : public QObject {
    Q_OBJECT

public:
    FileDrop(QAbstractScrollArea *view, std::function<void(const QList<QUrl> &urls)> dropped);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::function<void(const QList<QUrl> &urls)> m_dropped;
};

} // namespace lyrabox
