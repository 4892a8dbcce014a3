#pragma once

#include "app/practice/CommandSet.h"

namespace lyrabox {

class WaveView;

/// Carries out the commands on the wave: zoom and Follow. Main thread.
class WaveCommands : public CommandSet {
    Q_OBJECT

public:
    /// `wave` must outlive this object.
    explicit WaveCommands(WaveView *wave, QObject *parent = nullptr);

    bool canPerform(PracticeCommand command, int argument = 0) const override;
    void perform(PracticeCommand command, int argument = 0) override;
    bool isChecked(PracticeCommand command, int argument = 0) const override;

private:
    WaveView *m_wave;
};

} // namespace lyrabox
