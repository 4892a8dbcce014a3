#pragma once

#include "app/export/ExportPlan.h"

#include <QWidget>

#include <vector>

class QGridLayout;

namespace lyrabox {

class ChoiceButton;
class NumberField;
class SegmentedControl;
class TextButton;

/// What is exported and how: the upper part of the export window. Main thread.
class ExportForm : public QWidget {
    Q_OBJECT

public:
    enum class What { Loop, Song, EveryLoop };

    explicit ExportForm(QWidget *parent = nullptr);

    /// What can be chosen and what of the sound differs from the song's own.
    struct Offer {
        QStringList loops;
        int present = 0; ///< the loop that is chosen at first
        QString ladder;  ///< the ladder of what is chosen; empty if there is none
        bool hasSpeedOrPitch = false;
        bool hasEqualizer = false;
        bool hasChannels = false;
        bool hasClick = false;
    };
    /// Shows an offer. A loop stays chosen if there is one of the same name.
    void setOffer(const Offer &offer);

    What what() const;
    void setWhat(What what);
    /// The number of the loop in the offer; -1 if there is none.
    int loop() const;
    exportPlan::Wanted wanted() const;

    /// The formats that can be written. Without any the choice is gray, as before the first call.
    void setFormats(const std::vector<SongFormat> &formats, SongFormat present);
    bool hasFormats() const { return !m_formats.empty(); }
    /// FLAC if there is none.
    SongFormat format() const;

    /// Adds a row below.
    void addRow(const QString &label, QWidget *control);

Q_SIGNALS:
    /// The user has chosen something.
    void changed();
    /// What the user has chosen is exported under another name.
    void subjectChanged();

private:
    void addSubject();
    void addTimes();
    void addSwitches();
    /// A part of what is heard, which may be left out.
    struct Switch {
        TextButton *button = nullptr;
        bool isWanted = true;
    };
    void makeSwitch(Switch &made, const QString &text);
    static void offer(const Switch &offered, bool applies);
    void chooseAgain();

    QGridLayout *m_rows;
    SegmentedControl *m_what;
    ChoiceButton *m_loop;
    NumberField *m_times;
    TextButton *m_ladder;
    Switch m_speed;
    Switch m_equalizer;
    Switch m_channels;
    Switch m_click;
    ChoiceButton *m_format;
    Offer m_offer;
    std::vector<SongFormat> m_formats;
};

} // namespace lyrabox
