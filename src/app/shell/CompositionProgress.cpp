// What the windows show during long work on the main thread, and how the user can stop it.

#include "app/shell/Composition.h"
#include "app/shell/ProgressText.h"
#include "app/shell/Room.h"
#include "app/shell/WindowMemory.h"
#include "platform/foundation/TerminationSignals.h"
#include "platform/ui/EscapeWatch.h"
#include "platform/ui/ProgressPanel.h"

#include <QCoreApplication>

namespace lyrabox {

namespace {
/// A list that takes so long at the start does not delay the first picture.
constexpr std::chrono::milliseconds quickStart{30};
} // namespace

void Composition::showMainWindow()
{
    if (m_parts.mainWindow.isVisible())
        return;
    m_parts.mainWindow.show();
    windowMemory::restoreDivider(m_parts.mainUi.splitView); // its limits need the real width
}

/// Building the list of the remembered folder may take long. In that case the window is shown first
/// and repainted meanwhile, and input waits for the event loop. A quick start paints the window
/// once, when everything is ready.
void Composition::paintWhileLaunching()
{
    if (!m_isLaunching)
        return;
    if (!m_parts.mainWindow.isVisible())
        showIdleTransport(m_parts);
    showMainWindow();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void Composition::connectProgress()
{
    using Work = InputAfterWait::Work;
    Ui::MainWindow &ui = m_parts.mainUi;
    m_progress = new ProgressPanel(ui.trackTableView);
    m_parts.inputAfterWait =
        std::make_unique<InputAfterWait>(ui.playPauseButton, ui.trackTableView);
    InputAfterWait *input = m_parts.inputAfterWait.get();
    const auto textWithHint = [canStop = EscapeWatch::isSupported()](const QString &text) {
        return canStop ? withStopHint(text) : text;
    };
    m_parts.audio->setProgressHook([this, input](qint64 seconds, qint64 total) {
        input->noteWork(Work::Load);
        m_progress->showProgress(loadProgressText(seconds, total), seconds, total);
    });
    m_parts.tracks.setProgressHook([this, input, textWithHint](qint64 done, qint64 found) {
        paintWhileLaunching();
        input->noteWork(Work::List);
        const QString text = found > 0 ? listProgressText(done, found) : searchProgressText(done);
        m_progress->showProgress(textWithHint(text), done, found);
    });
    m_parts.tracks.setFirstGlance([this] { paintWhileLaunching(); }, quickStart);
    m_parts.queue.setProgressHook([this, input, textWithHint](qint64 done, qint64 total) {
        input->noteWork(Work::Load);
        m_progress->showProgress(textWithHint(skipProgressText(done, total)), done, total);
    });
    m_parts.tracks.setPlayGate(
        [this, input](const TrackRecordRef &track, std::function<void()> play) {
            input->pick(track, m_parts.audio->currentTrack(), std::move(play));
        });
}

void Composition::connectStopping()
{
    const StopProbeMaker watchForEscape = [this]() -> StopProbe {
        paintWhileLaunching(); // the watch needs windows that are shown
        return [this, watch = std::make_shared<EscapeWatch>()] {
            if (TerminationSignals::haveCome())
                return true;
            const bool isPressed = watch->wasPressed();
            if (isPressed)
                m_parts.inputAfterWait->dropEscape();
            return isPressed;
        };
    };
    m_parts.tracks.setStopProbe(watchForEscape);
    m_parts.queue.setStopProbe(watchForEscape);
    QLabel *line = m_parts.mainUi.errorField;
    connect(&m_parts.tracks, &LB_TrackController::listShown, line, [this, line] {
        const QString text = tr("Stopped: not all songs are in the list");
        if (m_parts.tracks.isListIncomplete())
            line->setText(text);
        else if (line->text() == text)
            line->clear();
    });
}

} // namespace lyrabox
