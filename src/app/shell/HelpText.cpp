#include "app/shell/HelpText.h"

#include "app/practice/PracticeCommands.h"

#include <QCoreApplication>
#include <QMessageBox>

namespace lyrabox {

namespace {
struct HelpText {
    Q_DECLARE_TR_FUNCTIONS(HelpText)
};
} // namespace

namespace {

/// The keys of the practice pane, from the table that its menu is made of.
QString practiceKeysText()
{
    QString text;
    for (const PracticeKeyLine &line : practiceKeyLines())
        text += QStringLiteral("\n%1: %2").arg(line.keys, line.what);
    return text;
}

} // namespace

QString keysHelpText()
{
    const QString keys = HelpText::tr(
        "Space: play or pause\n"
        "Left, Right: click to go back or to the next song, hold to move through the song\n"
        "Shift+Left, Shift+Right: 5 seconds back and forward\n"
        "L: mark the start of a loop, then its end, then clear it\n"
        "- and =: slower and faster; 0: normal speed\n"
        "[ and ]: a semitone down and up; \\: original pitch\n"
        "Ctrl+Up, Ctrl+Down: volume\n"
        "Return: play the selected song\n"
        "Ctrl+S: keep the speed and pitch of the song\n"
        "Ctrl+F: search\n"
        "Ctrl+L, Ctrl+B: the list of songs, the playlists and folders\n"
        "Delete, Insert: remove a folder or preset, add a preset\n"
        "Tab and the arrow keys: every other control\n"
        "Ctrl+1, Ctrl+2: the main window, the equalizer");
    const QString pedals = QKeySequence(Qt::CTRL | Qt::Key_4).toString(QKeySequence::NativeText);
    return keys + QLatin1Char('\n') + HelpText::tr("%1: pedals and keys").arg(pedals) +
           QLatin1Char('\n') +
           HelpText::tr("%1: the practice pane; while it is open:")
               .arg(practicePaneKey.toString(QKeySequence::NativeText)) +
           practiceKeysText();
}

QString aboutText()
{
    return HelpText::tr("Version %1\nA music-practice player.\n"
                        "Free software under the GNU General Public License, version 3 or later.")
        .arg(QStringLiteral(LYRABOX_VERSION));
}

void showHelp(QWidget *window, const QString &title, const QString &text)
{
    QMessageBox box(window);
    box.setWindowTitle(title);
    box.setTextFormat(Qt::PlainText);
    box.setText(title);
    box.setInformativeText(text);
    box.exec();
}

} // namespace lyrabox
