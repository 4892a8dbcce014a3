#pragma once

#include "WholeProgram.h"
#include "app/practice/PracticePane.h"
#include "app/practice/WaveView.h"
#include "platform/foundation/UserDefaults.h"
#include "platform/ui/MenuText.h"
#include "platform/ui/SegmentedControl.h"
#include "platform/ui/SplitView.h"
#include "support/SampleAudio.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

namespace lyrabox::test {

/// The whole program, with the practice pane still closed and nothing remembered of it.
class PracticeRoom : public testing::Test {
protected:
    PracticeRoom()
    {
        forget();
        launch();
    }
    ~PracticeRoom() override
    {
        program.reset();
        forget();
    }

    static void forget()
    {
        for (const QString &key :
             {QStringLiteral("practicePane"), QStringLiteral("practicePaneHeight"),
              QStringLiteral("mainWindowGeometry"), QStringLiteral("mainWindowSize")})
            userDefaults().remove(key);
    }

    void launch()
    {
        program.reset();
        program = std::make_unique<WholeProgram>();
        program->composition->launch();
        window = WholeProgram::window(QStringLiteral("MainWindow"));
        lists = window->findChild<SplitView *>(QStringLiteral("splitView"));
    }

    void endAndLaunch()
    {
        program->composition->terminate();
        launch();
    }

    QAction *command(const QString &text) const
    {
        for (QAction *action : window->findChildren<QAction *>()) {
            if (withoutMnemonic(action->text()) == text)
                return action;
        }
        ADD_FAILURE() << "no command " << text.toStdString();
        return nullptr;
    }

    void open() { command(QStringLiteral("Practice Pane"))->trigger(); }
    void resize(int height)
    {
        window->resize(1120, height);
        QCoreApplication::processEvents();
    }
    /// Opens the pane and plays a song of 20 s. Waits until the pane has it.
    void openWithSong()
    {
        program->song->frames = 20 * 44100;
        open();
        resize(860);
        const QString path = m_disk.filePath(QStringLiteral("a.flac"));
        ASSERT_TRUE(makeSampleAt(path, {.extension = QStringLiteral("flac"), .seconds = 0.1}));
        QSignalSpy changed(&pane()->peaks(), &SongPeaks::songChanged);
        program->composition->open({QUrl::fromLocalFile(path)});
        ASSERT_TRUE(pane()->peaks().frames() > 0 || changed.wait());
    }

    LB_AudioController *audio() const { return pane()->wave()->audio(); }

    PracticePane *pane() const { return window->findChild<PracticePane *>(); }
    QMenu *menu() const
    {
        for (QAction *action : window->menuBar()->actions()) {
            if (action->text().remove(u'&') == QStringLiteral("Practice"))
                return action->menu();
        }
        return nullptr;
    }
    bool menuIsShown() const { return menu()->menuAction()->isVisible(); }
    /// The visible switch between songs and pane; null if there is none.
    SegmentedControl *paneSwitch() const
    {
        for (auto *control : window->findChildren<SegmentedControl *>()) {
            if (control->accessibleName() == QStringLiteral("Shown part") && control->isVisible())
                return control;
        }
        return nullptr;
    }

    std::unique_ptr<WholeProgram> program;
    QMainWindow *window = nullptr;
    SplitView *lists = nullptr;
    QTemporaryDir m_disk;
};

} // namespace lyrabox::test
