#pragma once

#include "app/practice/SettingsPanel.h"

namespace lyrabox {

class SongSound;

/// The limits of what counts as the middle. Main thread.
class CentrePanel : public SettingsPanel {
    Q_OBJECT

public:
    /// `sound` must outlive the panel.
    explicit CentrePanel(SongSound *sound, QWidget *parent = nullptr);

private:
    void showLimits();
    void changeLimits();

    SongSound *m_sound;
    NumberField *m_from;
    NumberField *m_upTo;
};

} // namespace lyrabox
