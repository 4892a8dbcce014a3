// A window like a file manager's: a drag from it carries the files that the arguments name. It is
// white at first, blue while files are dragged, and green while the program under the pointer would
// take them.

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <QWidget>

namespace {

class DragSource : public QWidget {
public:
    explicit DragSource(const QStringList &files)
    {
        for (const QString &file : files)
            m_urls.append(QUrl::fromLocalFile(file));
        setColour(Qt::white);
    }

protected:
    void mouseMoveEvent(QMouseEvent *) override
    {
        auto *files = new QMimeData;
        files->setUrls(m_urls);
        QDrag drag(this);
        drag.setMimeData(files);
        connect(&drag, &QDrag::actionChanged, this, [this](Qt::DropAction action) {
            setColour(action == Qt::CopyAction ? Qt::green : Qt::blue);
        });
        setColour(Qt::blue);
        drag.exec(Qt::CopyAction);
    }

private:
    void setColour(Qt::GlobalColor colour)
    {
        QPalette palette;
        palette.setColor(QPalette::Window, colour);
        setPalette(palette);
    }

    QList<QUrl> m_urls;
};

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    DragSource window(QApplication::arguments().mid(1));
    window.setWindowTitle(QStringLiteral("Drag Source"));
    window.show();
    return QApplication::exec();
}
