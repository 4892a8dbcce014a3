// The program on a Wayland compositor, even if the other tests of this folder run on X: it works,
// and some things are different there.

#include "program/Places.h"
#include "support/Heard.h"
#include "support/program/RunningProgram.h"
#include "support/program/WaylandDisplay.h"

#include <QDir>
#include <QFile>
#include <QWidget>
#include <QtEndian>

#include <cmath>
#include <numbers>
#include <utility>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class ProgramOnWayland : public RunningProgram {
protected:
    ProgramOnWayland()
        : RunningProgram(PrivateSoundServer::chosenKind(), VirtualDisplay::Kind::Wayland)
    {}

    WaylandDisplay &compositor() { return dynamic_cast<WaylandDisplay &>(display); }

    /// The screen has the same size in points at every scale.
    void setScale(double scale)
    {
        const QSize pixels = (QSizeF(VirtualDisplay::size) * scale).toSize();
        compositor().run(u"output * resolution %1x%2 scale %3"_s.arg(pixels.width())
                             .arg(pixels.height())
                             .arg(scale));
    }

    /// Waits until the last fifth of a second has this level, in decibels relative to a song with
    /// amplitude 0.1.
    bool hearsLevel(double decibels) const
    {
        const double level = 0.1 / std::numbers::sqrt2 * std::pow(10.0, decibels / 20.0);
        return waitUntil([&] {
            const std::size_t size = recorder->size();
            const double now = levelOf(recorder->samples(size - Recorder::sampleRate / 5));
            return std::abs(now / level - 1.0) < 0.06;
        });
    }
};

TEST_F(ProgramOnWayland, StartsPlaysLoopsEqualizesAndQuits)
{
    const QString folder = makeFolder(u"Tones"_s, {{u"Tone"_s, 1000.0, 60.0, 0.1}});
    addStepSong(folder, u"Steps"_s, 12);
    showFolder(folder);
    start();
    ASSERT_TRUE(waitForSongs(2));
    EXPECT_EQ(compositor().applicationOf(mainWindow()), u"org.lyrabox.Lyrabox"_s)
        << "the desktop cannot tell whose window it is";

    doubleClickSong(0);
    EXPECT_TRUE(hears(stepFrequency(2)));
    display.key(u"l"_s);
    EXPECT_TRUE(hears(stepFrequency(4)));
    display.key(u"l"_s);
    for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(hears(stepFrequency(2)));
        EXPECT_TRUE(hears(stepFrequency(4)));
    }

    doubleClickSong(1);
    ASSERT_TRUE(hears(1000.0));
    EXPECT_TRUE(hearsLevel(0.0));
    display.key(u"ctrl+2"_s);
    const QString equalizer = display.waitForWindow(u"^Equalizer"_s);
    display.place(equalizer, place::equalizerWindow);
    ASSERT_TRUE(waitUntil([&] { return display.activeWindow() == equalizer; }));
    const QPoint corner = place::equalizerWindow.topLeft();
    display.drag(corner + place::oneKilohertzMiddle, corner + place::oneKilohertzTop);
    EXPECT_TRUE(hearsLevel(12.0));

    display.key(u"ctrl+1"_s);
    EXPECT_TRUE(waitUntil([this] { return display.activeWindow() == mainWindow(); }));
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramOnWayland, ALostCompositorEndsTheProgramButTheSettingsAreWritten)
{
    // The toolkit leaves main() without a return, so threads that have ended are not joined.
    const QString options = qEnvironmentVariable("TSAN_OPTIONS");
    setVariable(u"TSAN_OPTIONS"_s, options + u":report_thread_leaks=0"_s);
    showFolder(makeFolder(u"Tones"_s, {{u"Alpha"_s, 300.0}}));
    start();
    ASSERT_TRUE(waitForSongs(1));
    ASSERT_FALSE(settingsList(u"EQPresets.plist"_s));
    display.kill();
    EXPECT_EQ(waitForEnd(), 1);
    EXPECT_TRUE(settingsList(u"EQPresets.plist"_s));
}

TEST_F(ProgramOnWayland, ASecondStartHandsItsTokenOverSoThatTheFirstMayComeToTheFront)
{
    setVariable(u"WAYLAND_DEBUG"_s, u"client"_s); // prints every request
    const QString told = QDir(homeFolder()).filePath(u"told"_s);
    const QString lyrabox = std::exchange(program, u"/bin/sh"_s);
    start(Size::Usual, {u"-c"_s, u"exec \"$0\" 2>\"$1\""_s, lyrabox, told});
    program = lyrabox;
    display.key(u"ctrl+2"_s);
    const QString equalizer = display.waitForWindow(u"^Equalizer"_s);
    ASSERT_TRUE(waitUntil([&] { return display.activeWindow() == equalizer; }));

    const QString token = compositor().activationToken();
    ASSERT_FALSE(token.isEmpty());
    setVariable(u"XDG_ACTIVATION_TOKEN"_s, token);
    EXPECT_EQ(startSecond(), 0);
    EXPECT_TRUE(waitUntil([this] { return display.activeWindow() == mainWindow(); }));
    QFile requests(told);
    ASSERT_TRUE(requests.open(QIODevice::ReadOnly));
    EXPECT_TRUE(requests.readAll().contains("activate(\"" + token.toUtf8() + '"'))
        << "the desktop was not shown the token";
}

TEST_F(ProgramOnWayland, SizesAreRememberedAndAPositionStoredOnXStays)
{
    constexpr QRect onX(150, 120, 1040, 650);
    constexpr QSize later(1100, 700);
    QWidget window;
    window.setGeometry(onX);
    QByteArray stored = window.saveGeometry();
    constexpr qsizetype screenWidth = 46; // the toolkit's copy; the test has a different one
    qToBigEndian(VirtualDisplay::size.width(), stored.data() + screenWidth);
    setUserDefault(u"mainWindowGeometry"_s, stored);
    start(Size::ItsOwn);
    EXPECT_EQ(display.frameOf(mainWindow()).size(), onX.size());
    display.place(mainWindow(), QRect(QPoint(30, 40), later));
    EXPECT_EQ(quit(), 0);
    EXPECT_EQ(userDefault(u"mainWindowGeometry"_s).toByteArray(), stored);
    start(Size::ItsOwn);
    EXPECT_EQ(display.frameOf(mainWindow()).size(), later);
}

TEST_F(ProgramOnWayland, EscapeStopsAListThatIsBeingBuilt)
{
    constexpr int songs = 100; // more than any machine reads at once
    const QString fast = makeFolder(u"Tones"_s, {{u"Alpha"_s, 300.0}});
    const QString slow = makeFolder(u"Slow"_s, {{u"Slow"_s, 400.0}});
    for (int i = 1; i < songs; ++i)
        ASSERT_TRUE(QFile::copy(slow + u"/slow.flac"_s, slow + u"/copy %1.flac"_s.arg(i)));
    slowFile = slow + u'/';
    showFolder(fast);
    const PropertyList both(PropertyList::Array{PropertyList(fast), PropertyList(slow)});
    ASSERT_TRUE(writePropertyList(both, settingsFile(u"Folders.plist"_s)));
    start();
    ASSERT_TRUE(waitForSongs(1));
    click(place::sourceRow(1));
    ASSERT_TRUE(waitUntil([this] { return showsProgress(); }));
    display.key(u"Escape"_s);
    EXPECT_TRUE(waitUntil([this] { return showsMessage(); })) << "the list was not stopped";
    EXPECT_TRUE(waitUntil([this] { return !showsProgress(); }));
    EXPECT_FALSE(songRowIsEmpty(0));
    EXPECT_FALSE(reads(slow));
    EXPECT_EQ(quit(), 0);
}

/// Another program on the same desktop. It ends with this object.
class OtherProgram {
public:
    OtherProgram(const VirtualDisplay &display, const QString &name, const QStringList &arguments)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        display.addTo(environment);
        m_process.setProcessEnvironment(environment);
        dieWithTheTest(m_process);
        m_process.start(name, arguments);
        EXPECT_TRUE(m_process.waitForStarted());
    }
    ~OtherProgram()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    OtherProgram(const OtherProgram &) = delete;
    OtherProgram &operator=(const OtherProgram &) = delete;

private:
    QProcess m_process;
};

/// How much neighbouring pixels of a row differ. A blurred picture has less of it.
double sharpnessOf(const QImage &picture)
{
    double sum = 0.0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 1; x < picture.width(); ++x) {
            const double step = qGray(picture.pixel(x, y)) - qGray(picture.pixel(x - 1, y));
            sum += step * step;
        }
    }
    return sum;
}

TEST_F(ProgramOnWayland, AtFractionalScalesTextsAndDrawingsAreSharp)
{
    constexpr QRect menuBar(40, 26, 380, 18);
    constexpr QRect seekButton(226, 671, 40, 40);
    constexpr QRect playButton(274, 665, 52, 52);
    constexpr QRect starButton(1092, 690, 30, 24);
    constexpr double leastGain = 1.4; // against a picture that the compositor has enlarged
    start();
    const QImage usual = display.screen();
    for (const double scale : {1.25, 1.5}) {
        setScale(scale);
        const QSize size = (QSizeF(usual.size()) * scale).toSize();
        const QImage enlarged = usual.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        for (const QRect &area : {menuBar, seekButton, playButton, starButton}) {
            const QRect pixels((QPointF(area.topLeft()) * scale).toPoint(),
                               (QSizeF(area.size()) * scale).toSize());
            const double least = leastGain * sharpnessOf(enlarged.copy(pixels));
            EXPECT_TRUE(waitUntil([&] {
                const QImage picture = display.screen();
                return picture.size() == size && sharpnessOf(picture.copy(pixels)) > least;
            })) << "at "
                << area.x() << ", " << area.y() << " and scale " << scale;
        }
    }
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramOnWayland, TextOfAnotherProgramIsPastedIntoTheSearch)
{
    showFolder(makeFolder(u"Tones"_s, {{u"Alpha"_s, 300.0}, {u"Gamma"_s, 500.0}}));
    start();
    ASSERT_TRUE(waitForSongs(2));
    OtherProgram copy(display, u"wl-copy"_s, {u"--foreground"_s, u"gamma"_s});
    display.key(u"ctrl+f"_s);
    EXPECT_TRUE(waitUntil([this] {
        display.key(u"ctrl+a"_s);
        display.key(u"ctrl+v"_s); // does nothing until the other program has offered its text
        return waitUntil([this] { return songRowIsEmpty(1); }, 0.5);
    }));
    doubleClickSong(0);
    EXPECT_TRUE(hears(500.0));
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramOnWayland, AFileThatIsDraggedFromAnotherProgramIsPlayed)
{
    constexpr QRect fileManager(1145, 60, 120, 90);
    const QString folder = makeFolder(u"Tones"_s, {{u"Alpha"_s, 300.0}, {u"Gamma"_s, 500.0}});
    start();
    OtherProgram source(display, QStringLiteral(LYRABOX_DRAG_SOURCE), {folder + u"/gamma.flac"_s});
    const QString window = display.waitForWindow(u"^Drag Source"_s);
    display.place(window, fileManager);
    const auto turns = [&](Qt::GlobalColor colour) {
        return waitUntil([&] {
            return display.screen().pixelColor(fileManager.topLeft() + QPoint(5, 5)) == colour;
        });
    };
    ASSERT_TRUE(turns(Qt::white));
    display.moveTo(fileManager.center());
    display.press();
    display.moveTo(fileManager.center() + QPoint(20, 0));
    ASSERT_TRUE(turns(Qt::blue)) << "no file is dragged";
    display.moveTo(place::songRow(1));
    ASSERT_TRUE(turns(Qt::green)) << "the program would not take the file";
    display.release();
    EXPECT_TRUE(hears(500.0));
    EXPECT_FALSE(songRowIsEmpty(0));
    EXPECT_TRUE(songRowIsEmpty(1));
    display.click(place::songRow(0), 1); // the keyboard is still the other program's
    ASSERT_TRUE(waitUntil([this] { return display.activeWindow() == mainWindow(); }));
    EXPECT_EQ(quit(), 0);
}

} // namespace
