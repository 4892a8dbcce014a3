#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

class LB_AudioController;
class QLabel;

namespace lyrabox {

/// Shows a message while there is no sound and clears it when the sound is back. Leaves other
/// messages in the line alone. Main thread.
class SoundProblemLine : public QObject {
    Q_OBJECT

public:
    /// Shows the problems of `audio` in `line`, which owns the object. `audio` is not owned.
    SoundProblemLine(LB_AudioController *audio, QLabel *line);

private:
    void update();

    LB_AudioController *m_audio;
    QLabel *m_line;
    QTimer m_checkTimer; ///< runs while a song plays
    QString m_shownText; ///< the message as it was last shown; empty for none
};

} // namespace lyrabox
