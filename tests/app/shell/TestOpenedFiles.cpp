// What the windows show after files were opened from outside, and when a folder is added while the
// other window is active.

#include "WholeProgram.h"
#include "platform/foundation/UserDefaults.h"
#include "platform/ui/Popover.h"
#include "sources/SourceTreeView.h"
#include "support/SampleAudio.h"

#include <QDir>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

using namespace Qt::Literals::StringLiterals;
using namespace lyrabox;
using test::WholeProgram;

namespace {

class WithTwoWindows : public testing::Test {
protected:
    WithTwoWindows()
    {
        program.emplace();
        program->composition->launch();
        main = WholeProgram::window(u"MainWindow"_s);
        equalizer = WholeProgram::window(u"EqualizerWindow"_s);
        songs = main->findChild<QTableView *>(u"trackTableView"_s);
        folders = main->findChild<SourceTreeView *>(u"folderOutlineView"_s);
    }
    ~WithTwoWindows() override
    {
        program.reset();
        userDefaults().remove(defaultsKey::folderPath);
        userDefaults().remove(defaultsKey::lastTab);
    }

    static void activate(QMainWindow *window)
    {
        window->show();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    }

    /// Creates a song on disk, and the folders above it.
    QUrl song(const QString &name) const
    {
        const QString path = disk.filePath(name);
        EXPECT_TRUE(QDir().mkpath(path.section(u'/', 0, -2)));
        EXPECT_TRUE(test::makeSampleAt(path, {.extension = u"flac"_s, .seconds = 0.1}));
        return QUrl::fromLocalFile(path);
    }

    QTemporaryDir disk;
    std::optional<WholeProgram> program;
    QMainWindow *main;
    QMainWindow *equalizer;
    QTableView *songs;
    SourceTreeView *folders;
};

TEST_F(WithTwoWindows, OpenedFilesDeselectTheFolderSoThatAClickRestoresItsList)
{
    activate(main);
    song(u"album/a.flac"_s);
    song(u"album/b.flac"_s);
    const QUrl single = song(u"elsewhere/single.flac"_s);
    program->composition->open({QUrl::fromLocalFile(disk.filePath(u"album"_s))});
    ASSERT_EQ(songs->model()->rowCount(), 2);
    const QModelIndex album = folders->selectedRow();
    ASSERT_TRUE(album.isValid());

    program->composition->open({single});
    EXPECT_EQ(songs->model()->rowCount(), 1);
    EXPECT_FALSE(folders->selectedRow().isValid());

    QTest::mouseClick(folders->viewport(), Qt::LeftButton, {}, folders->visualRect(album).center());
    EXPECT_EQ(folders->selectedRow(), album);
    EXPECT_EQ(songs->model()->rowCount(), 2);
}

TEST_F(WithTwoWindows, FilesThatCannotBeOpenedKeepTheSelection)
{
    activate(main);
    song(u"album/a.flac"_s);
    program->composition->open({QUrl::fromLocalFile(disk.filePath(u"album"_s))});
    const QModelIndex album = folders->selectedRow();
    ASSERT_TRUE(album.isValid());
    program->composition->open({QUrl::fromLocalFile(disk.filePath(u"none.flac"_s))});
    EXPECT_EQ(folders->selectedRow(), album);
    EXPECT_EQ(songs->model()->rowCount(), 1);
}

TEST_F(WithTwoWindows, AddFolderFromTheEqualizerOpensInTheMainWindow)
{
    activate(main);
    songs->setFocus();
    activate(equalizer);
    QTest::keyClick(equalizer, Qt::Key_O, Qt::ControlModifier);
    EXPECT_TRUE(QTest::qWaitForWindowActive(main));
    auto *popover = main->findChild<Popover *>();
    ASSERT_TRUE(popover->isShown());
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), u"browserOutlineView"_s);

    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(popover->isShown());
    EXPECT_EQ(QApplication::focusWidget(), songs) << "it had the focus in this window before";
}

} // namespace
