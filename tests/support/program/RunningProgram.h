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

/// The program as it is built, on a screen and a sound server of the test's own and with a home
/// folder of its own: started, used with mouse and keys, heard, ended and started again. A test
/// that fails leaves a picture of the screen in the build folder's "screenshots".
class RunningProgram : public testing::Test {
protected:
    explicit RunningProgram(PrivateSoundServer::Kind server = PrivateSoundServer::chosenKind(),
                            VirtualDisplay::Kind kind = VirtualDisplay::usualKind());
    ~RunningProgram() override;

    /// Before the first start: a folder of songs in the folder list, selected and sorted by title.
    /// Songs are listed in the order of their titles, whatever their files are called.
    struct Tone {
        QString title;
        double frequency = 440.0;
        double seconds = 12.0;
        double amplitude = 0.4;
    };
    QString makeFolder(const QString &name, const std::vector<Tone> &songs);
    void showFolder(const QString &path);
    /// A song in that folder whose tone rises every second: second n is heard at stepFrequency(n).
    void addStepSong(const QString &folder, const QString &title, int seconds);
    static double stepFrequency(double second) { return 400.0 + 50.0 * second; }

    /// Before a start: an environment variable of the program's.
    void setVariable(const QString &name, const QString &value) { m_variables.insert(name, value); }

    /// Starts the program and waits for its window, which it then puts to its place unless
    /// `size` says that its own is of interest.
    enum class Size { Usual, ItsOwn };
    void start(Size size = Size::Usual, const QStringList &arguments = {});
    /// Starts it and waits for nothing.
    void startWithoutWindow(const QStringList &arguments = {});
    /// The exit status; -1, with a test failure, when it does not end.
    int quit();
    int sendSignalAndWait(int signal);
    /// A second process beside the first, started in `folder`: its exit status, -1 when it does not
    /// end.
    int startSecond(const QStringList &arguments = {}, const QString &folder = {});
    /// The same with one argument, whose bytes the shell's printf makes of `format`.
    int startSecondWithBytes(const QString &format);
    /// Waits for the end that something else brings about: the exit status, -1 when it stays.
    int waitForEnd() { return waitForEnd(m_program); }
    /// Ends it at once, and returns when it is gone.
    void killAtOnce();
    pid_t processId() const { return static_cast<pid_t>(m_program.processId()); }
    bool isRunning() const { return m_program.state() == QProcess::Running; }

    QString homeFolder() const { return m_home.filePath(QStringLiteral("h")); }
    QString settingsFile(const QString &name) const;
    std::optional<PropertyList> settingsList(const QString &name) const;
    /// What Lyrabox.conf holds under a key, of what is on disk.
    QVariant userDefault(const QString &key) const;
    /// Before a start.
    void setUserDefault(const QString &key, const QVariant &value);

    /// Of the main window, in its own coordinates.
    void click(QPoint point, int times = 1);
    void doubleClickSong(int row);
    QImage window() const;
    QString mainWindow() const { return m_window; }
    /// Whether a row of the song table shows texts.
    bool songRowIsEmpty(int row) const;
    /// Whether the line for messages about songs shows one.
    bool showsMessage() const;
    bool waitForSongs(int count) const;
    /// Whether the panel over the song table tells how far a long work has come.
    bool showsProgress() const;
    /// Whether the program has a file of that folder open now.
    bool reads(const QString &folder) const;
    /// Which row of the folder tree is selected.
    bool waitForSelectedSource(int row) const;

    /// The navigation bar as it is on the screen, in window coordinates.
    QRect navigationBar() const;
    /// Where its played part ends: pixels from its left edge.
    int playedPixels() const;

    /// Holds the key that seeks forward until the song is further by a tenth of the bar.
    bool seekForward();

    /// Whether a tone of that frequency (within half a percent) becomes the sound of the last fifth
    /// of a second before `seconds` are over.
    bool hears(double frequency, double seconds = 10.0) const;
    bool hearsSilence(double seconds = 10.0) const;
    bool hearsAnything(double seconds = 10.0) const;
    /// The frequency of the last fifth of a second; 0 without a tone.
    double toneNow() const;
    /// The frequency in a part of the recording; 0 without a tone.
    double toneAt(std::size_t sample, double seconds = 0.2) const;

    /// Where the program finds the session bus; set before the start.
    QString busAddress = QStringLiteral("disabled:");
    /// Where there is one, the program reads it as from a slow disk; set before the start. With a
    /// slash at its end it is a folder, all of whose files are slow.
    QString slowFile;
    /// The program may read no more than the files' permissions say, whoever runs the test; set
    /// before the start.
    bool heedsPermissions = false;
    /// The program's file; set before the start.
    QString program = QStringLiteral(LYRABOX_BINARY_DIR "/lyrabox");

private:
    std::unique_ptr<VirtualDisplay> m_display;

protected:
    VirtualDisplay &display;
    PrivateSoundServer sound;
    std::unique_ptr<Recorder> recorder;

private:
    QProcessEnvironment environment() const;
    /// A compositor names the window that is to have the keyboard; the program takes notice of that
    /// in its event loop, and until then its shortcuts do nothing. That it draws a new size shows
    /// that it has.
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
