#include "app/practice/CommandTable.h"
#include "platform/audio/ChannelTools.h"

namespace lyrabox {

using Entries = QList<PracticeCommandEntry>;
using commandTable::Text;

Entries commandTable::sound()
{
    const QString submenu = Text::tr("Sou&nd");
    const auto mode = [&submenu](ChannelMode channels, const QString &text) {
        return PracticeCommandEntry{.command = PracticeCommand::Channels,
                                    .text = text,
                                    .argument = static_cast<int>(channels),
                                    .submenu = submenu,
                                    .isCheckable = true,
                                    .isVariant = true};
    };
    return {
        {.command = PracticeCommand::Centre,
         .text = Text::tr("&Centre"),
         .keys = {Qt::Key_E},
         .submenu = submenu,
         .isCheckable = true},
        {.command = PracticeCommand::HearOriginal,
         .text = Text::tr("Hear the &Original"),
         .keys = {Qt::Key_O},
         .submenu = submenu,
         .isCheckable = true,
         .joinsPrevious = true},
        {.command = PracticeCommand::TuneToA,
         .text = Text::tr("&Tune to My A"),
         .keys = {Qt::SHIFT | Qt::Key_T},
         .submenu = submenu,
         .joinsPrevious = true},
        mode(ChannelMode::Both, Text::tr("&Both Channels")),
        mode(ChannelMode::Mono, Text::tr("&Mono")),
        mode(ChannelMode::Left, Text::tr("Only the &Left Channel")),
        mode(ChannelMode::Right, Text::tr("Only the &Right Channel")),
        mode(ChannelMode::Swapped, Text::tr("Channels &Swapped")),
        {.command = PracticeCommand::NormalChannels,
         .text = Text::tr("&Normal Sound"),
         .submenu = submenu,
         .isVariant = true},
    };
}

} // namespace lyrabox
