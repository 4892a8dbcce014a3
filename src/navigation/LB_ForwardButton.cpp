#include "navigation/LB_ForwardButton.h"

#include "engine/LB_AudioController.h"
#include "library/LB_QueueController.h"
#include "navigation/LB_NavigationView.h"

LB_ForwardButton::AfterStep LB_ForwardButton::step(Press press)
{
    const LB_AudioController *audio = navView()->audio();
    const auto format = audio->audioBufferFormat();
    const auto remaining = static_cast<double>(audio->totalFrames() - audio->currentFrame());
    // Seeking with the mouse stops four seconds before the end, seeking with a key one second
    // before. (A frame of one channel has four bytes.)
    const double limit =
        press == Press::Mouse ? format.mSampleRate * format.mBytesPerFrame : format.mSampleRate;
    if (remaining > limit)
        navView()->seekToFrame(audio->currentFrame() + stepFrames());
    return AfterStep::Continue;
}

void LB_ForwardButton::clickAction()
{
    navView()->queue()->playNextTrack();
}
