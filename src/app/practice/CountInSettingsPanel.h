#pragma once

#include "app/practice/SettingsPanel.h"

namespace lyrabox {

class Metronome;
class TextButton;

/// The settings of the count-in, and the bars of the loop for songs whose beats are not known. Main
/// thread.
class CountInSettingsPanel : public SettingsPanel {
    Q_OBJECT

public:
    /// `metronome` must outlive the panel.
    explicit CountInSettingsPanel(Metronome *metronome, QWidget *parent = nullptr);

private:
    void addLength();
    void addLoop();
    void showSettings();
    void changeSettings();
    void changeBars();

    Metronome *m_metronome;
    SegmentedControl *m_length = nullptr;
    NumberField *m_beats = nullptr;
    SegmentedControl *m_when = nullptr;
    QWidget *m_loop = nullptr;
    NumberField *m_bars = nullptr;
    NumberField *m_beatsPerBar = nullptr;
    TextButton *m_set = nullptr;
    bool m_isShowing = false;
};

} // namespace lyrabox
