// What the windows show, and what stops it, while the main thread works for long.

#include "app/shell/Composition.h"
#include "app/shell/ProgressText.h"
#include "app/shell/WindowMemory.h"
#include "platform/foundation/TerminationSignals.h"
#include "platform/ui/EscapeWatch.h"
#include "platform/ui/ProgressPanel.h"

#include <QCoreApplication>

namespace lyrabox {

void Composition::showMainWindow()
{
    if (m_mainWindow.isVisible())
        return;
    m_mainWindow.show();
    windowMemory::restoreDivider(m_main.splitView); // its limits need the view's real width
}

/// The list of the remembered folder may take long. Then the window comes before it, and is kept
/// painted; what the user does to it waits for the event loop. A start that is quick draws the
/// window once, when all is there.
void Composition::paintWhileLaunching()
{
    if (!m_isLaunching)
        return;
    if (!m_mainWindow.isVisible())
        dressSleepingTransport();
    showMainWindow();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void Composition::connectProgress()
{
    using Work = InputAfterWait::Work;
    m_progress = new ProgressPanel(m_main.trackTableView);
    m_inputAfterWait =
        std::make_unique<InputAfterWait>(m_main.playPauseButton, m_main.trackTableView);
    m_audio->setProgressHook([this](qint64 seconds, qint64 total) {
        m_inputAfterWait->noteWork(Work::Load);
        m_progress->showProgress(loadProgressText(seconds, total), seconds, total);
    });
    const bool canStop = EscapeWatch::isSupported();
    m_tracks.setProgressHook([this, canStop](qint64 done, qint64 found) {
        paintWhileLaunching();
        m_inputAfterWait->noteWork(Work::List);
        const QString text = found > 0 ? listProgressText(done, found) : searchProgressText(done);
        m_progress->showProgress(canStop ? withStopHint(text) : text, done, found);
    });
    m_queue.setProgressHook([this, canStop](qint64 done, qint64 total) {
        m_inputAfterWait->noteWork(Work::Load);
        const QString text = skipProgressText(done, total);
        m_progress->showProgress(canStop ? withStopHint(text) : text, done, total);
    });
    const StopProbeMaker watchForEscape = [this]() -> StopProbe {
        paintWhileLaunching(); // the watch listens to the windows that are shown
        return [this, watch = std::make_shared<EscapeWatch>()] {
            if (TerminationSignals::haveCome())
                return true;
            const bool isPressed = watch->wasPressed();
            if (isPressed)
                m_inputAfterWait->dropEscape();
            return isPressed;
        };
    };
    m_tracks.setStopProbe(watchForEscape);
    m_queue.setStopProbe(watchForEscape);
    connect(&m_tracks, &LB_TrackController::listShown, m_main.errorField, [this] {
        const QString text = tr("Stopped: not all songs are in the list");
        if (m_tracks.isListIncomplete())
            m_main.errorField->setText(text);
        else if (m_main.errorField->text() == text)
            m_main.errorField->clear();
    });
    m_tracks.setPlayGate([this](const TrackRecordRef &track, std::function<void()> play) {
        m_inputAfterWait->pick(track, m_audio->currentTrack(), std::move(play));
    });
}

} // namespace lyrabox
