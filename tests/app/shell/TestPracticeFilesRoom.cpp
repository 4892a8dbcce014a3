// Practice files and label tracks among the files that are opened and dropped.

#include "PracticeRoomFixture.h"
#include "app/practice/PracticeSharing.h"
#include "app/practice/SharingWords.h"

#include <QDropEvent>
#include <QFile>
#include <QLabel>
#include <QMimeData>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class OpenedPracticeFiles : public PracticeRoom {
protected:
    QUrl file(const QString &name, const QByteArray &content) const
    {
        QFile made(m_shared.filePath(name));
        EXPECT_TRUE(made.open(QIODevice::WriteOnly) && made.write(content) == content.size());
        return QUrl::fromLocalFile(made.fileName());
    }

    QString message() const { return window->findChild<QLabel *>(u"errorField"_s)->text(); }

    QTemporaryDir m_shared;
};

TEST_F(OpenedPracticeFiles, OpenThePane)
{
    program->composition->open({file(u"labels.txt"_s, "1.0\t2.0\tRiff\n")});
    ASSERT_NE(pane(), nullptr);
    EXPECT_TRUE(pane()->isVisible());
    EXPECT_EQ(pane()->sharing()->notice().text, sharingWords::noSong(u"labels.txt"_s));
    EXPECT_TRUE(message().isEmpty()) << message().toStdString();
}

TEST_F(OpenedPracticeFiles, LeaveOtherTextsAloneWhileThePaneIsClosed)
{
    program->composition->open({file(u"readme.txt"_s, "Hello.\n")});
    EXPECT_EQ(pane(), nullptr);
    EXPECT_EQ(message(), u"'readme.txt' is not an audio file"_s);
}

TEST_F(OpenedPracticeFiles, AreToldApartFromOtherTextsWhileThePaneIsOpen)
{
    open();
    program->composition->open({file(u"readme.txt"_s, "Hello.\n")});
    EXPECT_EQ(pane()->sharing()->notice().text,
              sharingWords::problem(SharedPractice::Problem::Unknown, u"readme.txt"_s));
}

TEST_F(OpenedPracticeFiles, DoNotCountBesideSongs)
{
    const QUrl label = file(u"labels.txt"_s, "1.0\t2.0\tRiff\n");
    program->composition->open({label, file(u"song.mp3"_s, "no sound")});
    EXPECT_EQ(pane(), nullptr);
}

TEST_F(OpenedPracticeFiles, CanBeDroppedOnThePane)
{
    open();
    QMimeData data;
    data.setUrls({file(u"labels.txt"_s, "1.0\t2.0\tRiff\n")});
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(pane(), &enter);
    QDropEvent event(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    event.ignore();
    QApplication::sendEvent(pane(), &event);
    EXPECT_TRUE(event.isAccepted());
    EXPECT_EQ(pane()->sharing()->notice().text, sharingWords::noSong(u"labels.txt"_s));
}

} // namespace
