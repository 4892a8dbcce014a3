#pragma once

#include <QObject>
#include <QUrl>

#include <functional>

class QAbstractScrollArea;
class QWidget;

namespace lyrabox {

/// Lets a view accept local files dropped from the file manager. Main thread.
class FileDrop : public QObject {
    Q_OBJECT

public:
    /// `view` owns the object. `dropped` is called with the local files of each drop; other URLs
    /// are ignored, and a drop without local files is refused.
    FileDrop(QAbstractScrollArea *view, std::function<void(const QList<QUrl> &urls)> dropped);
    /// The same for a widget whose children accept no drops.
    FileDrop(QWidget *widget, std::function<void(const QList<QUrl> &urls)> dropped);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::function<void(const QList<QUrl> &urls)> m_dropped;
};

} // namespace lyrabox
