#pragma once

#include <QKeySequence>
#include <QList>
#include <QObject>
#include <QString>

namespace lyrabox {

Q_NAMESPACE

/// The commands of the menu "Practice". The files of pedals and keys are written with these names,
/// so a name stays.
enum class PracticeCommand {
    KeepLoop,
    KeepSpeed,
    ForgetSpeed,
    PlayLoop, ///< the argument is its number in the list, from 1
    NextLoop,
    PreviousLoop,
    AddMarker,
    AddNamedMarker,
    NextMarker,
    PreviousMarker,
    MoveStart, ///< the argument of these three is the way in ms, negative for earlier; with
               ///< longestMove it is a beat, if the beats are known
    MoveEnd,
    MoveLoop,
    Tidy,
    SecondHalf,
    TwiceAsLong,
    PlaySelected,
    Rename,
    Remove,
    Undo,
    Redo,
    ZoomIn,
    ZoomOut,
    ZoomToLoop,
    WholeSong,
    Follow,
    Tap,
    UseSuggestion,
    HalfTempo,
    DoubleTempo,
    ThreeHalvesTempo,
    ShiftBars, ///< the argument is the number of beats, negative for earlier
    MoveBeat,  ///< the beat at the line; the argument is the way in ms, negative for earlier
    ClearBeats,
    ShowHistory,
    Export,
    StandView,
    SharePractice, ///< the argument is 0 or shareAsLabels
    OpenPractice,
    Train,
    Rotate,
    PassMissed,
    PassRight,
    Click,
    CountIn,
    ClickSettings,
    CountInSettings,
    Channels, ///< the argument is a ChannelMode
    Centre,
    HearOriginal,
    NormalChannels,
    TuneToA,
};
Q_ENUM_NS(PracticeCommand)

/// The argument of SharePractice for a label track.
inline constexpr int shareAsLabels = 1;

/// The longest way of a key that moves a loop, in ms.
inline constexpr int longestMove = 100;

/// A command with its text and its keys. The menu, the help and the tool tips are made of these,
/// and a test compares the guide with them.
struct PracticeCommandEntry {
    /// Where the keys work. They never work in text fields, unless they contain Ctrl and the field
    /// does not need them.
    enum class Reach {
        Windows, ///< in both windows
        Pane     ///< while the keyboard is in the pane
    };

    PracticeCommand command;
    QString text;                  ///< translated, with a mnemonic
    QList<QKeySequence> keys = {}; ///< none: only the menu has it
    int argument = 0;
    QString submenu = {};  ///< its title with a mnemonic; empty for the menu itself
    QString helpText = {}; ///< what the help says of the key; empty for the name
    Reach reach = Reach::Windows;
    bool isCheckable = false;
    bool beginsGroup = false;   ///< in the menu
    bool repeats = false;       ///< while the key is held
    bool joinsPrevious = false; ///< shares its line of the help with the entry before
    bool isVariant = false;     ///< has no place in the help

    /// The text without its mnemonic.
    QString name() const;
    /// What files call it: "move start -10", in every language.
    QString id() const;
    /// The first key as the desktop writes it; empty if there is none.
    QString keyText() const;
};

/// All commands, in the order of the menu. Main thread.
QList<PracticeCommandEntry> practiceCommands();

/// The first entry of a command.
PracticeCommandEntry practiceCommand(PracticeCommand command);

/// A line of the help: "N, P" and "Next Loop, Previous Loop".
struct PracticeKeyLine {
    QString keys;
    QString what;
};

/// The keys as the help lists them, and the guide. Main thread.
QList<PracticeKeyLine> practiceKeyLines();

/// The key that shows and hides the pane.
inline const QKeySequence practicePaneKey{Qt::CTRL | Qt::Key_3};

} // namespace lyrabox
