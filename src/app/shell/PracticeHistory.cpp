#include "app/shell/PracticeHistory.h"

#include "app/practice/HistoryCommands.h"
#include "app/practice/PracticeFooter.h"
#include "app/practice/PracticePane.h"
#include "app/shell/ProgramParts.h"
#include "app/shell/WindowMemory.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"
#include "practice/PracticeFiles.h"

namespace lyrabox {

namespace {

const QString windowName = QStringLiteral("historyWindow");

HistoryWindow *makeWindow(ProgramParts &parts)
{
    auto *window =
        new HistoryWindow(parts.practiceDiary.get(), parts.songPractice.get(), &parts.mainWindow);
    parts.historyWindow.reset(window);
    windowMemory::restoreWindow(window, windowName);
    const auto save = [window] { windowMemory::saveWindow(window, windowName); };
    QObject::connect(window, &QDialog::finished, window, save);
    NotificationCenter::defaultCenter().addObserver(window, notification::applicationWillTerminate,
                                                    [window, save] {
                                                        if (window->isVisible())
                                                            save();
                                                    });
    return window;
}

} // namespace

void addPracticeHistory(ProgramParts &parts, PracticePane *pane)
{
    parts.practiceDiary = std::make_unique<PracticeDiary>(
        parts.audio.get(), parts.songPractice.get(), practiceFolder());
    pane->footer()->setDiary(parts.practiceDiary.get());
    auto *commands = new HistoryCommands(pane);
    pane->addCommands(commands);
    QObject::connect(commands, &HistoryCommands::historyWanted, pane, [&parts] {
        HistoryWindow *window = parts.historyWindow ? parts.historyWindow.get() : makeWindow(parts);
        bringToFront(window);
    });
}

} // namespace lyrabox
