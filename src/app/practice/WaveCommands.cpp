#include "app/practice/WaveCommands.h"

#include "app/practice/WaveView.h"

namespace lyrabox {

WaveCommands::WaveCommands(WaveView *wave, QObject *parent) : CommandSet(parent), m_wave(wave)
{
    connect(wave, &WaveView::followingChanged, this, &WaveCommands::changed);
}

bool WaveCommands::canPerform(PracticeCommand command, int) const
{
    switch (command) {
    case PracticeCommand::ZoomIn:
    case PracticeCommand::ZoomOut:
    case PracticeCommand::ZoomToLoop:
    case PracticeCommand::WholeSong:
    case PracticeCommand::Follow:
        return true;
    default:
        return false;
    }
}

void WaveCommands::perform(PracticeCommand command, int)
{
    switch (command) {
    case PracticeCommand::ZoomIn:
        m_wave->zoomIn();
        break;
    case PracticeCommand::ZoomOut:
        m_wave->zoomOut();
        break;
    case PracticeCommand::ZoomToLoop:
        m_wave->zoomToLoop();
        break;
    case PracticeCommand::WholeSong:
        m_wave->showWholeSong();
        break;
    case PracticeCommand::Follow:
        m_wave->setFollowing(!m_wave->isFollowing());
        break;
    default:
        break;
    }
}

bool WaveCommands::isChecked(PracticeCommand command, int) const
{
    return command == PracticeCommand::Follow && m_wave->isFollowing();
}

} // namespace lyrabox
