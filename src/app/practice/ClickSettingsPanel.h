#pragma once

#include "app/practice/SettingsPanel.h"

class LB_Slider;

namespace lyrabox {

class Metronome;

/// The settings of the click. Main thread.
class ClickSettingsPanel : public SettingsPanel {
    Q_OBJECT

public:
    /// `metronome` must outlive the panel.
    explicit ClickSettingsPanel(Metronome *metronome, QWidget *parent = nullptr);

private:
    void addLoudness();
    void addBars();
    void showSettings();
    void changeSettings();

    Metronome *m_metronome;
    LB_Slider *m_loudness = nullptr;
    QLabel *m_loudnessText = nullptr;
    SegmentedControl *m_timbre = nullptr;
    SegmentedControl *m_side = nullptr;
    SegmentedControl *m_accents = nullptr;
    SegmentedControl *m_beats = nullptr;
    SegmentedControl *m_subdivision = nullptr;
    NumberField *m_barsOn = nullptr;
    NumberField *m_barsOff = nullptr;
};

} // namespace lyrabox
