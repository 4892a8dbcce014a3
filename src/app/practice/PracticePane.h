#pragma once

#include "app/practice/PracticeCommands.h"
#include "app/practice/SongPeaks.h"

#include <QList>
#include <QWidget>

#include <functional>

class LB_AudioController;

namespace lyrabox {

class CommandSet;
class LoopCommands;
class LoopsPage;
class Metronome;
class MetronomeButtons;
class OverviewBar;
class PaneDivider;
class PracticeFooter;
class PracticeHeader;
class PracticeLane;
class PracticePages;
class PracticeSharing;
class SharingBar;
class SongBeats;
class SongCopies;
class SongPractice;
class SongSound;
class SongTones;
class SoundPage;
class TextButton;
class TrainerPage;
class TrainerRun;
class WaveView;

/// The practice pane: the wave of the playing song with its loops and markers, the list of them,
/// and the controls of the wave. While it is hidden it does nothing, and it keeps no song but the
/// player's. Main thread.
class PracticePane : public QWidget {
    Q_OBJECT

public:
    /// `audio`, `practice`, `metronome` and `sound` must outlive the use of the pane. `seek` seeks
    /// to a frame by the navigation bar's rule.
    PracticePane(LB_AudioController *audio, SongPractice *practice, Metronome *metronome,
                 SongSound *sound, std::function<void(quint64)> seek, QWidget *parent = nullptr);
    ~PracticePane() override;

    /// Lets the pane carry out more commands. The set belongs to somebody else and must outlive
    /// the use of the pane.
    void addCommands(CommandSet *commands);

    /// Carries out a command of the menu.
    void perform(PracticeCommand command, int argument = 0);
    /// Whether a command would do something now.
    bool canPerform(PracticeCommand command, int argument = 0) const;

    /// Whether the check mark of a command is set.
    bool isChecked(PracticeCommand command, int argument = 0) const;

    /// Gives up the song. The pane takes the player's song again when it is shown.
    void releaseSong();

    PaneDivider *divider() const { return m_divider; }
    WaveView *wave() const { return m_wave; }
    PracticeLane *lane() const { return m_lane; }
    PracticeHeader *header() const { return m_header; }
    PracticePages *pages() const { return m_pages; }
    LoopsPage *loops() const { return m_loops; }
    PracticeFooter *footer() const { return m_footer; }
    TrainerPage *trainerPage() const { return m_trainerPage; }
    SongBeats *beats() const { return m_beats; }
    SongPractice *practice() const { return m_practice; }
    TrainerRun *trainer() const { return m_trainer; }
    Metronome *metronome() const { return m_metronome; }
    SongSound *sound() const { return m_sound; }
    SongTones *tones() const { return m_tones; }
    SongPeaks &peaks() { return m_peaks; }
    SongCopies *copies() const { return m_copies; }
    PracticeSharing *sharing() const { return m_sharing; }
    SharingBar *sharingBar() const { return m_sharingBar; }

    QSize sizeHint() const override { return {400, 320}; }

Q_SIGNALS:
    /// canPerform() or isChecked() of some command may have changed.
    void commandsChanged();

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void addMetronome();
    void addTrainer();
    void fillHeader();
    void addBeats();
    void addBeatPage();
    void addSound();
    QLayout *makeMiddle();
    void connectLoops(SongPractice *practice);
    TextButton *addButton(const QString &text, PracticeCommand command, int argument = 0);
    void adoptButton(TextButton *button, const QString &text, PracticeCommand command,
                     int argument = 0);
    void updateButtons();
    void takeSong();
    void showLoop();

    LB_AudioController *m_audio;
    SongPractice *m_practice;
    Metronome *m_metronome;
    SongSound *m_sound;
    SongPeaks m_peaks;
    SongBeats *m_beats;
    SongTones *m_tones;
    SongCopies *m_copies;
    PracticeSharing *m_sharing;
    QList<CommandSet *> m_commands;
    PaneDivider *m_divider;
    PracticeHeader *m_header;
    WaveView *m_wave;
    PracticeLane *m_lane;
    OverviewBar *m_overview;
    PracticePages *m_pages;
    LoopsPage *m_loops;
    SharingBar *m_sharingBar;
    PracticeFooter *m_footer;
    TrainerRun *m_trainer;
    TrainerPage *m_trainerPage;
    MetronomeButtons *m_metronomeButtons;
    /// A button and the command that it carries out.
    struct CommandButton {
        TextButton *button;
        PracticeCommand command;
        int argument;
    };
    QList<CommandButton> m_buttons;
};

} // namespace lyrabox
