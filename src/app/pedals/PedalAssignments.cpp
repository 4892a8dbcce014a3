#include "app/pedals/PedalAssignments.h"

#include <utility>

namespace lyrabox {

PedalAssignments::PedalAssignments(QString folder, QList<MenuCommand> commands,
                                   PedalPlayer::Hooks hooks, MidiReceiver::MakeInput makeInput,
                                   QObject *parent)
    : QObject(parent),
      m_folder(std::move(folder)),
      m_values(hooks.values),
      m_keys(std::move(commands)),
      m_player(std::move(hooks), std::move(makeInput))
{}

void PedalAssignments::load()
{
    if (m_file)
        return;
    m_file.emplace(m_folder);
    if (!m_file->map().isEmpty())
        apply(m_file->map());
}

PedalFile::Problem PedalAssignments::problem() const
{
    return m_file ? m_file->problem() : PedalFile::Problem::None;
}

bool PedalAssignments::change(const PedalMap &map)
{
    load();
    const bool isWritten = m_file->write(map);
    if (!m_file->isReadOnly())
        apply(map);
    return isWritten;
}

void PedalAssignments::apply(const PedalMap &map)
{
    m_player.setMap(map);
    m_keys.apply(map);
    Q_EMIT keysChanged();
    Q_EMIT changed();
}

QString PedalAssignments::nameOf(const QString &id) const
{
    if (const MenuCommand *command = m_keys.command(id))
        return command->name;
    const auto value = m_values.find(id);
    return value != m_values.end() ? value->second.name : tr("“%1”").arg(id);
}

} // namespace lyrabox
