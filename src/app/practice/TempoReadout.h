#pragma once

#include <QAbstractButton>
#include <QWidget>

class LB_AudioController;

namespace lyrabox {

class ElidedLabel;
class NumberField;
class SongBeats;
class WaveView;

/// The tempo that is heard, large, and the song's own tempo beside it. A click makes it a field: a
/// tempo that is typed there sets the nearest whole percent of speed. Without beats it shows the
/// tempo of the suggestion, and during taps how many there are. Main thread.
class TempoReadout : public QWidget {
    Q_OBJECT

public:
    /// All must outlive this object. `wave` tells which place is heard.
    TempoReadout(LB_AudioController *audio, const SongBeats *beats, WaveView *wave,
                 QWidget *parent = nullptr);

    /// The two texts as they are shown.
    QString tempoText() const { return m_tempo->text(); }
    QString detailText() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void showPlace();
    void showTempo();
    void showTexts(const QString &tempo, const QString &detail, const QString &spoken);
    void beginEdit();
    void endEdit();
    void enter();
    double songTempo() const;
    int beatsPerBar() const;

    LB_AudioController *m_audio;
    const SongBeats *m_beats;
    const WaveView *m_wave;
    QAbstractButton *m_tempo;
    NumberField *m_field;
    ElidedLabel *m_detail;
    double m_shownTempo = 0.0; ///< of the song
    int m_shownBar = 0;        ///< its beats
};

} // namespace lyrabox
