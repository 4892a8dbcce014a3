#include "app/practice/TrainerCommands.h"

#include "app/practice/RotationBox.h"
#include "app/practice/TrainerRun.h"

namespace lyrabox {

TrainerCommands::TrainerCommands(TrainerRun *run, const RotationBox *rotation, QObject *parent)
    : CommandSet(parent), m_run(run), m_rotation(rotation)
{
    connect(run, &TrainerRun::changed, this, &TrainerCommands::changed);
    connect(rotation, &RotationBox::loopsChanged, this, &TrainerCommands::changed);
}

bool TrainerCommands::canPerform(PracticeCommand command, int) const
{
    constexpr std::size_t leastLoops = 2; // that can take turns
    switch (command) {
    case PracticeCommand::Train:
        return m_run->isRunning() || m_run->canStart();
    case PracticeCommand::Rotate:
        return m_run->isRotating() || m_rotation->loops().size() >= leastLoops;
    case PracticeCommand::PassMissed:
    case PracticeCommand::PassRight:
        return m_run->isRunning();
    default:
        return false;
    }
}

void TrainerCommands::perform(PracticeCommand command, int argument)
{
    if (!canPerform(command, argument))
        return;
    switch (command) {
    case PracticeCommand::Train:
        if (m_run->isRunning())
            m_run->stop();
        else
            m_run->start();
        break;
    case PracticeCommand::Rotate:
        if (m_run->isRotating())
            m_run->stop();
        else
            m_run->startRotation(m_rotation->loops(), m_rotation->turn());
        break;
    case PracticeCommand::PassMissed:
        m_run->missed();
        break;
    case PracticeCommand::PassRight:
        m_run->right();
        break;
    default:
        break;
    }
}

bool TrainerCommands::isChecked(PracticeCommand command, int) const
{
    return (command == PracticeCommand::Train && m_run->isRunning()) ||
           (command == PracticeCommand::Rotate && m_run->isRotating());
}

} // namespace lyrabox
