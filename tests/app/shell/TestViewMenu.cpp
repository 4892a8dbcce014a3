// Tests of the "View" menu's commands that change the list of songs.

#include "app/shell/WholeProgram.h"
#include "library/LB_TrackController.h"
#include "library/TrackTableModel.h"
#include "platform/foundation/UserDefaults.h"
#include "platform/ui/EmptyViewText.h"
#include "support/SampleAudio.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTableView>
#include <QTemporaryDir>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class ViewMenu : public testing::Test {
protected:
    ViewMenu()
    {
        forget();
        program.composition->launch();
        window = WholeProgram::window(u"MainWindow"_s);
        table = window->findChild<QTableView *>(u"trackTableView"_s);
        emptyText = table->findChild<EmptyViewText *>();
    }
    ~ViewMenu() override { forget(); }

    static void forget()
    {
        userDefaults().remove(LB_TrackController::includeSubfoldersKey);
        userDefaults().remove(defaultsKey::folderPath);
    }

    /// Creates songs in a folder, adds the folder and selects it.
    void showFolderWith(const QStringList &songs)
    {
        for (const QString &song : songs) {
            const QString path = root.filePath(song);
            ASSERT_TRUE(QDir().mkpath(path.section(u'/', 0, -2)));
            ASSERT_TRUE(QFile::copy(sampleFile({.seconds = 0.1}), path));
        }
        program.composition->open({QUrl::fromLocalFile(root.path())});
    }

    /// The command with the last title, in the menus with the titles before it.
    QAction *command(const QStringList &path) const
    {
        QList<QAction *> level = window->menuBar()->actions();
        QAction *found = nullptr;
        for (const QString &title : path) {
            found = nullptr;
            for (QAction *action : level) {
                if (QString(action->text()).remove(u'&') == title)
                    found = action;
            }
            if (found == nullptr) {
                ADD_FAILURE() << "no command " << title.toStdString();
                return nullptr;
            }
            if (found->menu() != nullptr)
                level = found->menu()->actions();
        }
        return found;
    }

    QStringList shownTitles() const
    {
        QStringList titles;
        for (int row = 0; row < table->model()->rowCount(); ++row)
            titles.append(table->model()->index(row, TrackTableModel::Title).data().toString());
        return titles;
    }

    WholeProgram program;
    QTemporaryDir root;
    QMainWindow *window;
    QTableView *table;
    EmptyViewText *emptyText;
};

TEST_F(ViewMenu, IncludeSubfoldersShowsTheSongsOfSubfolders)
{
    showFolderWith({u"own.wav"_s, u"below/deeper/inner.wav"_s});
    QAction *include = command({u"View"_s, u"Include Subfolders"_s});
    EXPECT_FALSE(include->isChecked());
    EXPECT_EQ(shownTitles(), (QStringList{u"own.wav"_s}));
    include->trigger();
    EXPECT_TRUE(include->isChecked());
    EXPECT_EQ(shownTitles(), (QStringList{u"own.wav"_s, u"inner.wav"_s}));
    include->trigger();
    EXPECT_FALSE(include->isChecked());
    EXPECT_EQ(shownTitles(), (QStringList{u"own.wav"_s}));
}

TEST_F(ViewMenu, OwnOrderUndoesTheSort)
{
    showFolderWith({u"b.wav"_s, u"a.wav"_s, u"c.wav"_s});
    const QStringList own = shownTitles();
    QAction *ownOrder = command({u"View"_s, u"Sort By"_s, u"Own Order"_s});
    QAction *title = command({u"View"_s, u"Sort By"_s, u"Title"_s});
    QAction *reverse = command({u"View"_s, u"Sort By"_s, u"Reverse Order"_s});
    EXPECT_TRUE(ownOrder->isChecked());
    title->trigger();
    reverse->trigger();
    EXPECT_EQ(shownTitles(), (QStringList{u"c.wav"_s, u"b.wav"_s, u"a.wav"_s}));
    EXPECT_FALSE(ownOrder->isChecked());
    EXPECT_TRUE(title->isChecked());
    ownOrder->trigger();
    EXPECT_EQ(shownTitles(), own);
    EXPECT_TRUE(ownOrder->isChecked());
    EXPECT_FALSE(title->isChecked());
    EXPECT_FALSE(reverse->isEnabled());
    ownOrder->trigger();
    EXPECT_TRUE(ownOrder->isChecked()) << "choosing it again does not uncheck it";
}

TEST_F(ViewMenu, TheEmptyTableShowsAHint)
{
    ASSERT_NE(emptyText, nullptr);
    showFolderWith({u"one/1.wav"_s, u"two/2.wav"_s});
    EXPECT_TRUE(emptyText->isVisible());
    EXPECT_EQ(emptyText->text(),
              u"No songs here. Open the folder with its arrow: 2 folders inside."_s);
    command({u"View"_s, u"Include Subfolders"_s})->trigger();
    EXPECT_FALSE(emptyText->isVisible());
    window->findChild<QLineEdit *>(u"searchField"_s)->setText(u"zzz"_s);
    EXPECT_TRUE(emptyText->isVisible());
    EXPECT_EQ(emptyText->text(), u"Nothing matches 'zzz'."_s);
}

} // namespace
