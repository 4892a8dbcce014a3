#pragma once

#include "app/pedals/KeyAssignments.h"
#include "app/pedals/PedalPlayer.h"
#include "pedals/PedalFile.h"

#include <QObject>

#include <optional>

namespace lyrabox {

/// What pedals and keys do: the user's file, and those who carry it out. Main thread.
class PedalAssignments : public QObject {
    Q_OBJECT

public:
    /// The actions of `commands` must outlive this object. `folder` is that of the practice files.
    /// PedalPlayer describes the other parameters. Nothing is read yet.
    PedalAssignments(QString folder, QList<MenuCommand> commands, PedalPlayer::Hooks hooks,
                     MidiReceiver::MakeInput makeInput = {}, QObject *parent = nullptr);

    /// Reads the file and puts it into force. Only the first call does anything.
    void load();

    const PedalMap &map() const { return m_player.map(); }
    PedalFile::Problem problem() const;

    /// Puts another map into force, and writes it. False if it could not be written, or if the file
    /// is one of a later version, which stays in force.
    bool change(const PedalMap &map);

    const KeyAssignments &keys() const { return m_keys; }
    PedalPlayer *player() { return &m_player; }
    const std::map<QString, PedalPlayer::Value> &values() const { return m_values; }

    /// The name of a command or a value for people. If it is not known, its identifier in quotes.
    QString nameOf(const QString &id) const;

Q_SIGNALS:
    /// The keys of the menu are other ones.
    void keysChanged();
    void changed();

private:
    void apply(const PedalMap &map);

    QString m_folder;
    std::optional<PedalFile> m_file; ///< none until it is read
    std::map<QString, PedalPlayer::Value> m_values;
    KeyAssignments m_keys;
    PedalPlayer m_player;
};

} // namespace lyrabox
