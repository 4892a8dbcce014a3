#include "navigation/LB_BackButton.h"

#include "engine/LB_AudioController.h"
#include "library/LB_QueueController.h"
#include "navigation/LB_NavigationView.h"

namespace {
/// In seconds. From here on a click restarts the song instead of playing the previous one.
constexpr qint64 restartThreshold = 4;
} // namespace

LB_BackButton::AfterStep LB_BackButton::step(Press)
{
    const LB_AudioController *audio = navView()->audio();
    if (audio->currentSeconds() == 0) {
        navView()->seekToFrame(0);
        return AfterStep::EndPress;
    }
    const quint64 target = audio->currentFrame() - stepFrames();
    if (audio->loopStartIsSet() && target <= audio->loopStartFrame()) {
        navView()->seekToFrame(audio->loopStartFrame());
        return AfterStep::EndPress;
    }
    navView()->seekToFrame(target);
    return AfterStep::Continue;
}

void LB_BackButton::clickAction()
{
    const LB_AudioController *audio = navView()->audio();
    LB_QueueController *queue = navView()->queue();
    if (queue->canPlayPreviousTrack() && audio->currentSeconds() < restartThreshold &&
        !audio->loopStartIsSet())
        queue->playPreviousTrack();
    else
        navView()->seekToFrame(0);
}
