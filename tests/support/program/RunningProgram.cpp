#include "support/program/RunningProgram.h"

#include "program/Places.h"
#include "support/SampleAudio.h"

#include <QDir>
#include <QSettings>

#include <algorithm>
#include <cmath>
#include <csignal>
#include <linux/capability.h>
#include <sys/prctl.h>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::test {
namespace {

constexpr int patienceMilliseconds = 20'000;
const QString mainWindowTitle = u"^Lyrabox$"_s;

bool isDark(QRgb pixel)
{
    return qGray(pixel) < 140;
}

bool hasText(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (isDark(image.pixel(x, y)))
                return true;
        }
    }
    return false;
}

} // namespace

RunningProgram::RunningProgram(PrivateSoundServer::Kind server, VirtualDisplay::Kind kind)
    : m_display(VirtualDisplay::make(kind)),
      display(*m_display),
      sound(server),
      m_home(u"/tmp/lbXXXXXX"_s)
{
    for (const QString &folder : {u"h"_s, u"d/Lyrabox"_s, u"c/Lyrabox"_s, u"r"_s})
        EXPECT_TRUE(QDir(m_home.path()).mkpath(folder));
    const auto onlyOwner = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    EXPECT_TRUE(QFile::setPermissions(m_home.filePath(u"r"_s), onlyOwner));
    recorder = sound.record(u"a"_s);
}

RunningProgram::~RunningProgram()
{
    if (HasFailure()) {
        const testing::TestInfo *test = testing::UnitTest::GetInstance()->current_test_info();
        const QDir folder(QStringLiteral(LYRABOX_BINARY_DIR "/screenshots"));
        folder.mkpath(u"."_s);
        display.screen().save(
            folder.filePath(QString::fromLatin1(test->name()).replace(u'/', u'-') + u".png"_s));
    }
    EXPECT_NE(m_program.exitStatus(), QProcess::CrashExit) << "the program has crashed";
    // Not killed, because a sanitizer reports leaks only at the regular end.
    if (isRunning()) {
        EXPECT_EQ(sendSignalAndWait(SIGTERM), 0) << "the program did not end normally";
    }
    m_program.kill();
    m_program.waitForFinished(patienceMilliseconds);
}

QString RunningProgram::makeFolder(const QString &name, const std::vector<Tone> &songs)
{
    const QString folder = QDir(homeFolder()).filePath(name);
    EXPECT_TRUE(QDir().mkpath(folder));
    for (const Tone &song : songs) {
        const SampleSpec spec{
            .extension = u"flac"_s,
            .frequency = song.frequency,
            .amplitude = song.amplitude,
            .seconds = song.seconds,
            .tags = {{u"title"_s, song.title}, {u"artist"_s, u"The "_s + song.title}}};
        makeSampleAt(QDir(folder).filePath(song.title.toLower() + u".flac"_s), spec);
    }
    return folder;
}

void RunningProgram::addStepSong(const QString &folder, const QString &title, int seconds)
{
    // The tones join without a jump, because each has a whole number of periods in a second.
    runFfmpeg({u"-f"_s, u"lavfi"_s, u"-i"_s,
               u"aevalsrc=0.4*sin(2*PI*(400+50*floor(t))*t):s=44100:d=%1"_s.arg(seconds), u"-ac"_s,
               u"2"_s, u"-metadata"_s, u"title="_s + title,
               QDir(folder).filePath(title.toLower() + u".flac"_s)});
}

void RunningProgram::showFolder(const QString &path)
{
    using List = PropertyList;
    EXPECT_TRUE(writePropertyList(List(List::Array{List(path)}), settingsFile(u"Folders.plist"_s)));
    const List sort(List::Dictionary{
        {u"id"_s, List(path)}, {u"key"_s, List(u"title"_s)}, {u"ascending"_s, List(true)}});
    const List settings(List::Dictionary{{u"sorts"_s, List(List::Array{sort})},
                                         {u"songSettings"_s, List(List::Array{})}});
    EXPECT_TRUE(writePropertyList(settings, settingsFile(u"UserSettings.plist"_s)));
    setUserDefault(u"lastTab"_s, 1);
    setUserDefault(u"folderPath"_s, path);
}

void RunningProgram::startWithoutWindow(const QStringList &arguments)
{
    m_program.setProcessEnvironment(environment());
    m_program.setProcessChannelMode(QProcess::ForwardedChannels);
    dieWithTheTest(m_program);
    if (heedsPermissions)
        m_program.setChildProcessModifier([] {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            // The program must not inherit these rights of root. An ordinary user has none.
            prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE);
            prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH);
        });
    m_program.start(program, arguments);
    ASSERT_TRUE(m_program.waitForStarted(patienceMilliseconds)) << "the program does not start";
}

void RunningProgram::start(Size size, const QStringList &arguments)
{
    startWithoutWindow(arguments);
    m_window = display.waitForWindow(mainWindowTitle);
    if (size == Size::Usual)
        display.place(m_window, place::mainWindow);
    m_frame = display.frameOf(m_window);
    EXPECT_TRUE(waitUntil([this] { return display.activeWindow() == m_window; }))
        << "the window is not active";
    EXPECT_TRUE(waitUntil([this] { return !navigationBar().isEmpty(); }))
        << "the window is not drawn";
    if (display.isWayland() && size == Size::Usual && slowFile.isEmpty())
        waitForEventLoop();
    EXPECT_TRUE(isRunning());
}

void RunningProgram::waitForEventLoop()
{
    for (const int wider : {10, 0}) {
        m_frame = place::mainWindow.adjusted(0, 0, wider, 0);
        display.place(m_window, m_frame);
        EXPECT_TRUE(waitUntil([this] {
            constexpr int light = 200; // brighter than the background of the screen
            return qGray(window().pixel(m_frame.width() - 2, m_frame.height() / 2)) > light;
        })) << "the window does not follow its size";
    }
}

int RunningProgram::quit()
{
    display.key(u"ctrl+q"_s);
    return waitForEnd(m_program);
}

int RunningProgram::sendSignalAndWait(int signal)
{
    ::kill(static_cast<pid_t>(m_program.processId()), signal);
    return waitForEnd(m_program);
}

void RunningProgram::killAtOnce()
{
    ::kill(processId(), SIGKILL);
    m_program.waitForFinished(patienceMilliseconds);
}

int RunningProgram::startSecond(const QStringList &arguments, const QString &folder)
{
    return runBeside(program, arguments, folder);
}

int RunningProgram::startSecondWithBytes(const QString &format)
{
    return runBeside(u"/bin/sh"_s,
                     {u"-c"_s, u"exec \"$0\" \"$(printf \"$1\")\""_s, program, format}, {});
}

int RunningProgram::runBeside(const QString &file, const QStringList &arguments,
                              const QString &folder) const
{
    QProcess second;
    second.setProcessEnvironment(environment());
    second.setWorkingDirectory(folder);
    dieWithTheTest(second);
    second.start(file, arguments);
    return waitForEnd(second);
}

int RunningProgram::waitForEnd(QProcess &process) const
{
    if (process.state() != QProcess::NotRunning && !process.waitForFinished(patienceMilliseconds)) {
        ADD_FAILURE() << "the program does not end";
        process.kill();
        process.waitForFinished(patienceMilliseconds);
        return -1;
    }
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit) << "the program has crashed";
    return process.exitCode();
}

QProcessEnvironment RunningProgram::environment() const
{
    QProcessEnvironment environment =
        QProcessEnvironment::systemEnvironment(); // leads to the sound server
    display.addTo(environment);
    environment.insert(u"HOME"_s, homeFolder());
    environment.insert(u"XDG_DATA_HOME"_s, m_home.filePath(u"d"_s));
    environment.insert(u"XDG_CONFIG_HOME"_s, m_home.filePath(u"c"_s));
    environment.insert(u"XDG_CACHE_HOME"_s, m_home.filePath(u"x"_s));
    environment.insert(u"XDG_RUNTIME_DIR"_s, m_home.filePath(u"r"_s));
    environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, busAddress);
    if (!slowFile.isEmpty()) {
        environment.insert(u"LYRABOX_SLOW_FILE"_s, slowFile);
        environment.insert(u"LD_PRELOAD"_s, QStringLiteral(LYRABOX_SLOW_READING));
        // Otherwise the sanitizer refuses to start, because it is not the first library.
        environment.insert(u"ASAN_OPTIONS"_s,
                           environment.value(u"ASAN_OPTIONS"_s) + u":verify_asan_link_order=0"_s);
    }
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    for (auto variable = m_variables.cbegin(); variable != m_variables.cend(); ++variable)
        environment.insert(variable.key(), variable.value());
    return environment;
}

QString RunningProgram::settingsFile(const QString &name) const
{
    return m_home.filePath(u"d/Lyrabox/"_s + name);
}

std::optional<PropertyList> RunningProgram::settingsList(const QString &name) const
{
    return readPropertyList(settingsFile(name));
}

QVariant RunningProgram::userDefault(const QString &key) const
{
    return QSettings(m_home.filePath(u"c/Lyrabox/Lyrabox.conf"_s), QSettings::IniFormat).value(key);
}

void RunningProgram::setUserDefault(const QString &key, const QVariant &value)
{
    QSettings(m_home.filePath(u"c/Lyrabox/Lyrabox.conf"_s), QSettings::IniFormat)
        .setValue(key, value);
}

void RunningProgram::click(QPoint point, int times)
{
    display.click(m_frame.topLeft() + point, times);
}

void RunningProgram::doubleClickSong(int row)
{
    click(place::songRow(row), 2);
}

QImage RunningProgram::window() const
{
    return display.screen(m_frame);
}

bool RunningProgram::songRowIsEmpty(int row) const
{
    return !hasText(window().copy(place::songRowTitle(row)));
}

bool RunningProgram::showsMessage() const
{
    return hasText(window().copy(place::messageLine));
}

bool RunningProgram::waitForSongs(int count) const
{
    // The progress panel may be mistaken for the text of a row.
    return waitUntil([&] {
        return !showsProgress() && (count == 0 || !songRowIsEmpty(count - 1)) &&
               songRowIsEmpty(count);
    });
}

bool RunningProgram::showsProgress() const
{
    constexpr QRect middleOfTheList(540, 300, 280, 90);
    constexpr int besideThePanel = 400; // where a selected row has the same colour
    const QImage image = window();
    const auto isBlue = [&image](int x, int y) {
        return image.pixelColor(x, y) == QColor(0x34, 0x98, 0xDB);
    };
    for (int y = middleOfTheList.top(); y <= middleOfTheList.bottom(); ++y) {
        if (isBlue(besideThePanel, y))
            continue;
        for (int x = middleOfTheList.left(); x <= middleOfTheList.right(); ++x) {
            if (isBlue(x, y))
                return true;
        }
    }
    return false;
}

bool RunningProgram::reads(const QString &folder) const
{
    const QDir files(u"/proc/%1/fd"_s.arg(processId()));
    const QStringList names =
        files.entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System | QDir::Hidden);
    return std::any_of(names.begin(), names.end(), [&](const QString &name) {
        return QFile::symLinkTarget(files.filePath(name)).startsWith(folder);
    });
}

bool RunningProgram::waitForSelectedSource(int row) const
{
    // The background of a selected row is darker than the list's, with or without the focus.
    return waitUntil([&] { return qGray(window().pixel(place::sourceRowEnd(row))) < 215; });
}

QRect RunningProgram::navigationBar() const
{
    const QImage image = window();
    const auto isBar = [&image](int x, int y) {
        const QColor color = image.pixelColor(x, y);
        const auto near = [&color](int red, int green, int blue) {
            return std::abs(color.red() - red) < 4 && std::abs(color.green() - green) < 4 &&
                   std::abs(color.blue() - blue) < 4;
        };
        return near(0xBD, 0xC3, 0xC7) || near(0x34, 0x98, 0xDB);
    };
    const QPoint inside = place::navigationBar(image.size());
    if (!image.rect().contains(inside) || !isBar(inside.x(), inside.y()))
        return {};
    int top = inside.y();
    while (isBar(inside.x(), top - 1))
        --top;
    int bottom = inside.y();
    while (isBar(inside.x(), bottom + 1))
        ++bottom;
    const int y = top + 10; // clear of the rounded corners and of the texts
    const auto isGround = [&image, y](int x) {
        return qGray(image.pixel(x, y)) > 225 && qGray(image.pixel(x, y)) < 250;
    };
    int left = inside.x();
    while (left > 0 && !isGround(left - 1))
        --left;
    int right = inside.x();
    while (right + 1 < image.width() && !isGround(right + 1))
        ++right;
    return {QPoint(left, top), QPoint(right, bottom)};
}

int RunningProgram::playedPixels() const
{
    const QRect bar = navigationBar();
    const QImage image = window();
    const int y = bar.top() + 10;
    int end = bar.right() + 1;
    while (end > bar.left() && image.pixelColor(end - 1, y).red() > 0x78)
        --end;
    return end - bar.left();
}

bool RunningProgram::seekForward()
{
    const int goal = playedPixels() + navigationBar().width() / 10;
    display.keyDown(u"Right"_s); // a short press would play the next song
    const bool arrived = waitUntil([&] { return playedPixels() > goal; });
    display.keyUp(u"Right"_s);
    return arrived;
}

} // namespace lyrabox::test
