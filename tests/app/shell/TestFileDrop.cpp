#include "app/shell/FileDrop.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QTableView>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {
namespace {

struct Dropping : testing::Test {
    bool drop(const QList<QUrl> &urls)
    {
        QMimeData data;
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view.viewport(), &enter);
        QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        event.ignore();
        QApplication::sendEvent(view.viewport(), &event);
        return event.isAccepted();
    }

    QTableView view;
    QList<QUrl> dropped;
    FileDrop *target = new FileDrop(&view, [this](const QList<QUrl> &urls) { dropped = urls; });
};

TEST_F(Dropping, AcceptsLocalFilesInOrder)
{
    const QList<QUrl> files{QUrl::fromLocalFile(u"/b.mp3"_s), QUrl::fromLocalFile(u"/a.mp3"_s)};
    EXPECT_TRUE(drop(files));
    EXPECT_EQ(dropped, files);
}

TEST_F(Dropping, LeavesOutUrlsOfOtherMachines)
{
    const QUrl file = QUrl::fromLocalFile(u"/a.mp3"_s);
    EXPECT_TRUE(drop({QUrl(u"https://lyrabox.example/b.mp3"_s), file}));
    EXPECT_EQ(dropped, QList<QUrl>({file}));
}

TEST_F(Dropping, RefusesADropWithoutLocalFiles)
{
    EXPECT_FALSE(drop({QUrl(u"https://lyrabox.example/b.mp3"_s)}));
    EXPECT_TRUE(dropped.isEmpty());
}

} // namespace
} // namespace lyrabox
