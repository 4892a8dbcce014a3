#pragma once

#include "platform/foundation/PropertyList.h"
#include "support/PrivateSoundServer.h"
#include "support/program/VirtualDisplay.h"

#include <QHash>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <vector>

namespace lyrabox::test {

/// Runs the real program on a private screen and a private sound server, with its own home folder.
/// Tests use it with mouse and keys, listen to it, end it and start it again. A failed test saves a
/// picture of the screen in the build folder's "screenshots".
class RunningProgram : public testing::Test {
protected:
    explicit RunningProgram(PrivateSoundServer::Kind server = PrivateSoundServer::chosenKind(),
                            VirtualDisplay::Kind kind = VirtualDisplay::usualKind());
    ~RunningProgram() override;

    /// A song with one tone: frequency in hertz, length in seconds, linear amplitude.
    struct Tone {
        QString title;
        double frequency = 440.0;
        double seconds = 12.0;
        double amplitude = 0.4;
    };
    /// Creates a folder of songs and returns its path. The song table lists the songs in the order
    /// of their titles, whatever their files are called.
    QString makeFolder(const QString &name, const std::vector<Tone> &songs);
    /// Puts the folder into the folder list, selects it and sorts its songs by title. Call it
    /// before the first start.
    void showFolder(const QString &path);
    /// Adds a song whose tone rises every second: second n has the frequency stepFrequency(n).
    void addStepSong(const QString &folder, const QString &title, int seconds);
    static double stepFrequency(double second) { return 400.0 + 50.0 * second; }

    /// Sets an environment variable of the program. Call it before the start.
    void setVariable(const QString &name, const QString &value) { m_variables.insert(name, value); }

    /// Starts the program and waits for its window. Size::Usual moves and resizes the window to the
    /// frame that click() and the pictures expect; Size::ItsOwn leaves it.
    enum class Size { Usual, ItsOwn };
    void start(Size size = Size::Usual, const QStringList &arguments = {});
    /// Starts the program and does not wait.
    void startWithoutWindow(const QStringList &arguments = {});
    /// Quits the program. Returns its exit status, or -1 with a test failure if it does not end.
    int quit();
    int sendSignalAndWait(int signal);
    /// Runs a second process in the working folder `folder`. Returns its exit status, or -1 if it
    /// does not end.
    int startSecond(const QStringList &arguments = {}, const QString &folder = {});
    /// The same with one argument: the bytes that the shell's printf writes for `format`.
    int startSecondWithBytes(const QString &format);
    /// Waits until the program ends by itself. Returns its exit status, or -1 if it does not end.
    int waitForEnd() { return waitForEnd(m_program); }
    /// Kills the program and returns when it is gone.
    void killAtOnce();
    pid_t processId() const { return static_cast<pid_t>(m_program.processId()); }
    bool isRunning() const { return m_program.state() == QProcess::Running; }

    QString homeFolder() const { return m_home.filePath(QStringLiteral("h")); }
    QString settingsFile(const QString &name) const;
    std::optional<PropertyList> settingsList(const QString &name) const;
    /// The value of a key in Lyrabox.conf on disk.
    QVariant userDefault(const QString &key) const;
    /// Stores a value in Lyrabox.conf. Call it before the start.
    void setUserDefault(const QString &key, const QVariant &value);

    /// Clicks a point of the main window, in window coordinates.
    void click(QPoint point, int times = 1);
    void doubleClickSong(int row);
    QImage window() const;
    QString mainWindow() const { return m_window; }
    /// Whether a row of the song table shows no text.
    bool songRowIsEmpty(int row) const;
    /// Whether the message line shows a message.
    bool showsMessage() const;
    bool waitForSongs(int count) const;
    /// Whether the progress panel is shown over the song table.
    bool showsProgress() const;
    /// Whether the program has a file in `folder` open now.
    bool reads(const QString &folder) const;
    /// Waits until `row` of the folder tree is selected. False if that does not happen.
    bool waitForSelectedSource(int row) const;

    /// The navigation bar's rectangle on the screen, in window coordinates.
    QRect navigationBar() const;
    /// The width of its played part in pixels.
    int playedPixels() const;

    /// Holds the key that seeks forward until the played part has grown by a tenth of the bar.
    bool seekForward();

    /// Waits up to `seconds` for a tone of that frequency, within half a percent, in the last fifth
    /// of a second. Returns whether it was heard.
    bool hears(double frequency, double seconds = 10.0) const;
    bool hearsSilence(double seconds = 10.0) const;
    bool hearsAnything(double seconds = 10.0) const;
    /// The frequency of the last fifth of a second; 0 without a tone.
    double toneNow() const;
    /// The frequency in a part of the recording; 0 without a tone.
    double toneAt(std::size_t sample, double seconds = 0.2) const;

    /// The address of the program's session bus. Set it before the start.
    QString busAddress = QStringLiteral("disabled:");
    /// If not empty, the program reads this file as if from a slow disk, or all files of a folder
    /// if it ends with a slash. Set it before the start.
    QString slowFile;
    /// Makes file permissions count even if root runs the test. Set it before the start.
    bool heedsPermissions = false;
    /// The path of the program. Set it before the start.
    QString program = QStringLiteral(LYRABOX_BINARY_DIR "/lyrabox");

private:
    std::unique_ptr<VirtualDisplay> m_display;

protected:
    VirtualDisplay &display;
    PrivateSoundServer sound;
    std::unique_ptr<Recorder> recorder;

private:
    QProcessEnvironment environment() const;
    /// Waits until the program has handled the event that gives it the keyboard; until then its
    /// shortcuts do nothing. Resizes the window and waits until it is painted in the new size,
    /// which shows that the event loop has run.
    void waitForEventLoop();
    int waitForEnd(QProcess &process) const;
    int runBeside(const QString &file, const QStringList &arguments, const QString &folder) const;
    std::vector<float> lastSamples() const;

    QTemporaryDir m_home;
    QHash<QString, QString> m_variables;
    QProcess m_program;
    QString m_window;
    QRect m_frame;
};

} // namespace lyrabox::test
