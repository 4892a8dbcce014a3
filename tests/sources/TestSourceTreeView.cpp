#include "sources/LB_DirectoryItem.h"
#include "sources/SourceTreeModel.h"
#include "sources/SourceTreeView.h"

#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {
namespace {

struct Outline : testing::Test {
    Outline()
    {
        view.setModel(&model);
        view.resize(240, 300);
        QObject::connect(&view, &SourceTreeView::foldersDropped, &view,
                         [this](const QList<QUrl> &folders) { dropped = folders; });
    }

    void drop(const QList<QUrl> &urls)
    {
        QMimeData data;
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view.viewport(), &enter);
        QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view.viewport(), &event);
    }

    bool showsGrayText()
    {
        const QImage image = view.grab().toImage();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) == QColor(0x6b, 0x77, 0x7a))
                    return true;
            }
        }
        return false;
    }

    QTemporaryDir disk;
    SourceTreeModel model;
    SourceTreeView view;
    QList<QUrl> dropped;
};

TEST_F(Outline, AcceptsDroppedFoldersAndNothingElse)
{
    view.setAcceptsFolders(true);
    const QUrl folder = QUrl::fromLocalFile(disk.path());
    QFile file(disk.filePath(u"song.mp3"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    drop({QUrl::fromLocalFile(file.fileName()), folder, QUrl(u"https://lyrabox.example/"_s)});
    EXPECT_EQ(dropped, QList<QUrl>({folder}));
    dropped.clear();
    drop({QUrl::fromLocalFile(file.fileName())});
    EXPECT_TRUE(dropped.isEmpty());
}

TEST_F(Outline, AcceptsNoFoldersByDefault)
{
    drop({QUrl::fromLocalFile(disk.path())});
    EXPECT_TRUE(dropped.isEmpty());
}

TEST_F(Outline, EmptyTreeShowsItsPlaceholderTextInGray)
{
    view.setPlaceholderText(u"No folders yet. Press + to add one."_s);
    EXPECT_TRUE(showsGrayText());
    model.appendRoot(std::make_shared<LB_DirectoryItem>(folderURL(disk.path()), nullptr));
    EXPECT_FALSE(showsGrayText());
}

TEST_F(Outline, LastVisibleRowIsTheDeepestExpandedOne)
{
    EXPECT_FALSE(view.lastVisibleRow().isValid());
    ASSERT_TRUE(QDir(disk.path()).mkpath(u"a"_s));
    model.appendRoot(std::make_shared<LB_DirectoryItem>(folderURL(disk.path()), nullptr));
    const QModelIndex root = model.index(0, 0);
    EXPECT_EQ(view.lastVisibleRow(), root);
    view.expand(root);
    EXPECT_EQ(view.lastVisibleRow(), model.index(0, 0, root));
}

} // namespace
} // namespace lyrabox
