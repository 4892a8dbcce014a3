#pragma once

#include "app/practice/PracticeCommands.h"
#include "app/practice/SongBeats.h"

#include <QWidget>

#include <cstdint>
#include <functional>
#include <optional>

class QAbstractButton;
class QGridLayout;
class QLabel;

namespace lyrabox {

class NumberField;
class TextButton;
class WaveView;

/// The page on which the beats of the song are tapped and set right. Main thread.
class BeatPage : public QWidget {
    Q_OBJECT

public:
    /// Makes a button for a command with its argument. An empty text is the command's name.
    using MakeButton =
        std::function<TextButton *(const QString &text, PracticeCommand command, int argument)>;

    /// `beats` and `wave` must outlive the page.
    BeatPage(SongBeats *beats, const WaveView *wave, const MakeButton &makeButton,
             QWidget *parent = nullptr);

    /// What the page says of the taps and the beats.
    QString stateText() const;

protected:
    void showEvent(QShowEvent *event) override;

private:
    QLayout *makeTapRow(const MakeButton &makeButton);
    QLayout *makeTempoRow(const MakeButton &makeButton);
    QLayout *makeBarRow();
    void showState();
    void showPlace();
    void enterTempo();
    void setBar(int beats);
    std::uint64_t place() const;
    std::optional<double> tempo() const;

    SongBeats *m_beats;
    const WaveView *m_wave;
    QLabel *m_state;
    NumberField *m_tempo;
    QAbstractButton *m_shorter;
    NumberField *m_bar;
    QAbstractButton *m_longer;
    TextButton *m_fromHere;
    int m_shownBar = 0;    ///< the number of the bar at the line
    int m_shownLength = 0; ///< its beats
    double m_shownTempo = 0.0;
};

/// A remark in words for the user; empty for none.
QString beatRemarkText(SongBeats::Remark remark);

/// What there is to say of taps and beats, in words for the user.
QString beatStateText(const SongBeats &beats);

} // namespace lyrabox
