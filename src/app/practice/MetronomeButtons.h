#pragma once

#include "app/practice/PracticeCommands.h"

#include <QObject>
#include <QString>

namespace lyrabox {

class ArrowButton;
class Metronome;
class MetronomeCommands;
class Popover;
class SettingsPanel;

/// The buttons "Click" and "Count-in" with their panels of settings. The pane gives them their
/// texts and commands, and owns them. Main thread.
class MetronomeButtons : public QObject {
    Q_OBJECT

public:
    /// The buttons are children of `parent`. `metronome` and `commands` must outlive the use of
    /// this object.
    MetronomeButtons(Metronome *metronome, MetronomeCommands *commands, QWidget *parent);

    ArrowButton *click() const { return m_click; }
    ArrowButton *countIn() const { return m_countIn; }

    /// What the pane should say: what is missing for what is switched on. Empty if nothing is.
    QString problem() const;

    /// The panel that is open. Null if there is none.
    SettingsPanel *openPanel() const;

private:
    void showPanel(SettingsPanel *panel, ArrowButton *button);
    void showState();

    Metronome *m_metronome;
    ArrowButton *m_click;
    ArrowButton *m_countIn;
    Popover *m_popover = nullptr; ///< made when it is first needed
};

} // namespace lyrabox
