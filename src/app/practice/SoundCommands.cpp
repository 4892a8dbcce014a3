#include "app/practice/SoundCommands.h"

#include "app/practice/SongSound.h"
#include "app/practice/SongTones.h"

namespace lyrabox {

SoundCommands::SoundCommands(SongSound *sound, SongTones *tones, QObject *parent)
    : CommandSet(parent), m_sound(sound), m_tones(tones)
{
    connect(sound, &SongSound::changed, this, &SoundCommands::changed);
    connect(tones, &SongTones::changed, this, &SoundCommands::changed);
}

bool SoundCommands::canPerform(PracticeCommand command, int) const
{
    switch (command) {
    case PracticeCommand::Channels:
        return m_sound->canChange();
    case PracticeCommand::Centre:
        return m_sound->canChange() && !m_sound->isMono();
    case PracticeCommand::HearOriginal:
        return !m_sound->kept().isNeutral();
    case PracticeCommand::NormalChannels:
        return m_sound->canChange() && m_sound->kept() != ChannelTools();
    case PracticeCommand::TuneToA:
        return m_tones->canTune();
    default:
        return false;
    }
}

void SoundCommands::perform(PracticeCommand command, int argument)
{
    if (!canPerform(command, argument))
        return;
    ChannelTools tools = m_sound->kept();
    switch (command) {
    case PracticeCommand::Channels:
        tools.mode = static_cast<ChannelMode>(argument);
        m_sound->change(tools);
        break;
    case PracticeCommand::Centre:
        m_sound->toggleCentre();
        break;
    case PracticeCommand::HearOriginal:
        m_sound->hearOriginal(!m_sound->originalIsHeard());
        break;
    case PracticeCommand::NormalChannels:
        m_sound->change(ChannelTools());
        break;
    case PracticeCommand::TuneToA:
        m_tones->tune();
        break;
    default:
        break;
    }
}

bool SoundCommands::isChecked(PracticeCommand command, int argument) const
{
    switch (command) {
    case PracticeCommand::Channels:
        return m_sound->kept().mode == static_cast<ChannelMode>(argument);
    case PracticeCommand::Centre:
        return m_sound->kept().centre != 0;
    case PracticeCommand::HearOriginal:
        return m_sound->originalIsHeard();
    default:
        return false;
    }
}

} // namespace lyrabox
