#pragma once

#include "app/practice/PracticeCommands.h"
#include "platform/audio/ChannelTools.h"

#include <QTimer>
#include <QWidget>

#include <functional>

class LB_Slider;
class QGridLayout;
class QHBoxLayout;
class QLabel;

namespace lyrabox {

class ChoiceButton;
class NumberField;
class Popover;
class SegmentedControl;
class SongSound;
class SongTones;
class TextButton;

/// The page with the channels of the song, its tuning and its key. Main thread.
class SoundPage : public QWidget {
    Q_OBJECT

public:
    /// Makes a button for a command. An empty text is the command's name.
    using MakeButton = std::function<TextButton *(const QString &text, PracticeCommand command)>;

    /// `sound` and `tones` must outlive the page.
    SoundPage(SongSound *sound, SongTones *tones, const MakeButton &makeButton,
              QWidget *parent = nullptr);

    /// What the page says of tuning and key.
    QString tuningText() const;
    QString keyText() const;

protected:
    /// Tells one drag of a slider from the next.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// A slider from -100 to 100 with a field for the same number.
    struct Level {
        LB_Slider *slider = nullptr;
        NumberField *field = nullptr;
        int ChannelTools::*value = nullptr;
    };

    QWidget *makeForm(const MakeButton &makeButton);
    QLayout *makeLevels();
    Level addLevel(QGridLayout *rows, const QString &label, const QString &name,
                   const QString &objectName, int ChannelTools::*value);
    QLayout *makeTones(const MakeButton &makeButton);
    void slide(const Level &level);
    void showSound();
    void showTones();
    void showLimits();

    SongSound *m_sound;
    SongTones *m_tones;
    SegmentedControl *m_mode = nullptr;
    Level m_balance;
    Level m_centre;
    TextButton *m_limits = nullptr;
    QLabel *m_hint = nullptr;
    QLabel *m_tuning = nullptr;
    QLabel *m_key = nullptr;
    ChoiceButton *m_instrument = nullptr;
    NumberField *m_ownA = nullptr;
    Popover *m_popover = nullptr; ///< made when it is first needed

    const LB_Slider *m_sliding = nullptr; ///< whose further moves join the step of the last one
    QTimer m_pause;                       ///< runs from a move by wheel or key; ends the sliding
};

} // namespace lyrabox
