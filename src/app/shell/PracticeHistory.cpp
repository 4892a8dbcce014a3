#include "app/shell/PracticeHistory.h"

#include "app/practice/HistoryCommands.h"
#include "app/practice/LoopList.h"
#include "app/practice/LoopListModel.h"
#include "app/practice/LoopsPage.h"
#include "app/practice/PracticeFooter.h"
#include "app/practice/PracticePane.h"
#include "app/practice/TrainerRun.h"
#include "app/shell/ProgramParts.h"
#include "app/shell/WindowMemory.h"
#include "practice/PracticeFiles.h"

#include <QPointer>

namespace lyrabox {

namespace {

const QString windowName = QStringLiteral("historyWindow");

HistoryWindow *makeWindow(ProgramParts &parts)
{
    auto *window =
        new HistoryWindow(parts.practiceDiary.get(), parts.songPractice.get(), &parts.mainWindow);
    parts.historyWindow.reset(window);
    windowMemory::keepWindow(window, windowName);
    return window;
}

/// The diary learns what the player says of a pass, and the list shows the best speeds.
void connectTrainer(PracticeDiary *diary, const PracticePane *pane)
{
    const TrainerRun *trainer = pane->trainer();
    QObject::connect(trainer, &TrainerRun::judged, diary,
                     [diary](PassVerdict verdict, double secondsIntoPass) {
                         if (verdict == PassVerdict::Missed)
                             diary->missed(secondsIntoPass);
                         else
                             diary->right(secondsIntoPass);
                     });
    QObject::connect(trainer, &TrainerRun::changed, diary,
                     [diary, trainer] { diary->setOnlyRightCounts(trainer->onlyRightCounts()); });
    LoopListModel *rows = pane->loops()->list()->rows();
    // The rows may outlive the diary.
    rows->setBestSpeed([known = QPointer(diary)](const PracticeLoop &loop) {
        return known ? known->bestSpeed(loop) : std::nullopt;
    });
    QObject::connect(diary, &PracticeDiary::bestSpeedsChanged, rows,
                     &LoopListModel::showBestSpeeds);
}

} // namespace

void addPracticeHistory(ProgramParts &parts, PracticePane *pane)
{
    parts.practiceDiary = std::make_unique<PracticeDiary>(
        parts.audio.get(), parts.songPractice.get(), practiceFolder());
    pane->footer()->setDiary(parts.practiceDiary.get());
    connectTrainer(parts.practiceDiary.get(), pane);
    auto *commands = new HistoryCommands(pane);
    pane->addCommands(commands);
    QObject::connect(commands, &HistoryCommands::historyWanted, pane, [&parts] {
        HistoryWindow *window = parts.historyWindow ? parts.historyWindow.get() : makeWindow(parts);
        bringToFront(window);
    });
}

} // namespace lyrabox
