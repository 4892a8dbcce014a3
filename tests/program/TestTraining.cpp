// The trainer in the real program, by keys and mouse. The speed is read where media keys read it.

#include "program/PaneOnScreen.h"
#include "support/PrivateBus.h"

#include <QDBusVariant>
#include <QDirIterator>
#include <QFile>

#include <csignal>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class ProgramWithTrainer : public ProgramWithPane {
protected:
    ProgramWithTrainer() { busAddress = bus.address(); }

    /// In percent; 0 if the program does not answer.
    int speed()
    {
        const QDBusMessage reply =
            PrivateBus::call(client, u"org.mpris.MediaPlayer2.lyrabox"_s,
                             u"/org/mpris/MediaPlayer2"_s, u"org.freedesktop.DBus.Properties"_s,
                             u"Get"_s, {u"org.mpris.MediaPlayer2.Player"_s, u"Rate"_s});
        const QVariant rate = qvariant_cast<QDBusVariant>(reply.arguments().value(0)).variant();
        return qRound(100.0 * rate.toDouble());
    }

    bool comesTo(int percent)
    {
        const bool came = waitUntil([&] { return speed() == percent; });
        EXPECT_TRUE(came) << "the speed is " << speed() << " %, not " << percent;
        return came;
    }

    /// Loops half a second of the song, by keys. The speed is 90 %.
    void loopByKeys()
    {
        startAndPlay();
        openPane();
        display.key(u"minus"_s, 2);
        ASSERT_TRUE(comesTo(90));
        display.key(u"w"_s);
        display.key(u"l"_s);
        const double first = toneNow();
        ASSERT_TRUE(waitUntil([&] { return toneNow() > first + 40.0; })); // the next second
        display.key(u"l"_s);
        display.key(u"u"_s); // the half of it is enough
    }

    /// The loop is trained, and the trainer has gone up a step.
    void train()
    {
        loopByKeys();
        display.key(u"r"_s);
        ASSERT_TRUE(comesTo(60));
        ASSERT_TRUE(comesTo(65));
    }

    /// What is kept on the disk of songs, loops and the program.
    QByteArray everythingKept() const
    {
        QByteArray kept;
        QDirIterator files(QFileInfo(settingsFile(u"Practice"_s)).path(), QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            if (!file.fileName().endsWith(u"History.csv"_s) && file.open(QIODevice::ReadOnly))
                kept += file.readAll();
        }
        return kept;
    }

    PrivateBus bus;
    QDBusConnection client = bus.connect(u"client"_s);
};

TEST_F(ProgramWithTrainer, TheLadderIsWalkedFrom60To100PercentWithMissesByKeysAlone)
{
    train();
    display.key(u"x"_s); // within two seconds the last pass is meant, so it goes back
    ASSERT_TRUE(comesTo(60));
    for (int percent = 65; percent <= 85; percent += 5)
        ASSERT_TRUE(comesTo(percent));
    display.key(u"x"_s);
    ASSERT_TRUE(waitUntil([&] { return speed() < 85; }));
    for (int percent = 85; percent <= 100; percent += 5)
        ASSERT_TRUE(comesTo(percent));
    display.key(u"r"_s);
    EXPECT_TRUE(comesTo(90)) << "the speed of before";
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramWithTrainer, TheSpeedIsWhatItWasWhenTheLoopIsCleared)
{
    train();
    display.key(u"l"_s);
    EXPECT_TRUE(comesTo(90));
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramWithTrainer, TheNextSongHasItsOwnSpeedAndTheLoopIsTrainedAgainLater)
{
    train();
    display.key(u"ctrl+Right"_s);
    EXPECT_TRUE(hears(250.0));
    EXPECT_TRUE(comesTo(100));
    display.key(u"ctrl+Left"_s);
    ASSERT_TRUE(waitUntil([&] { return toneNow() >= stepFrequency(0); }));
    display.key(u"1"_s);
    display.key(u"r"_s);
    EXPECT_TRUE(comesTo(60));
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramWithTrainer, NothingOfItsSpeedIsKeptWhenTheProgramQuitsOrIsKilled)
{
    train();
    EXPECT_EQ(quit(), 0);
    const QByteArray kept = everythingKept();
    EXPECT_FALSE(kept.contains("speed\"")) << kept.toStdString();
    start();
    ASSERT_TRUE(waitForSongs(2));
    display.place(mainWindow(), frame);
    doubleClickSong(0);
    ASSERT_TRUE(hears(stepFrequency(0)));
    EXPECT_TRUE(comesTo(100));
    display.key(u"1"_s);
    display.key(u"r"_s);
    ASSERT_TRUE(comesTo(65));
    killAtOnce();
    EXPECT_EQ(everythingKept(), kept);
    start();
    ASSERT_TRUE(waitForSongs(2));
    display.place(mainWindow(), frame);
    doubleClickSong(0);
    ASSERT_TRUE(hears(stepFrequency(0)));
    EXPECT_TRUE(comesTo(100));
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramWithTrainer, TheSpeedIsWhatItWasWhenTheSoundServerDies)
{
    train();
    sound.kill();
    EXPECT_TRUE(comesTo(90));
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramWithTrainer, LoopsTakeTurnsByKeys)
{
    startAndPlay();
    openPane();
    display.key(u"minus"_s, 2);
    display.key(u"w"_s);
    for (const int second : {4, 10}) {
        display.drag(placeOf(second + 0.02), placeOf(second + 0.45));
        ASSERT_TRUE(hears(stepFrequency(second), 3.0));
        display.key(u"k"_s);
    }
    display.key(u"shift+r"_s);
    ASSERT_TRUE(comesTo(60));
    for (const int second : {4, 10, 4})
        EXPECT_TRUE(hears(stepFrequency(second), 20.0)) << second;
    display.key(u"shift+r"_s);
    EXPECT_TRUE(comesTo(90));
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramWithTrainer, AClickOnAStepOfTheLadderGoesThere)
{
    loopByKeys();
    display.key(u"r"_s);
    ASSERT_TRUE(comesTo(60));
    display.click(frame.topLeft() + QPoint(214, 595)); // 75 %
    EXPECT_TRUE(comesTo(75));
    display.key(u"equal"_s); // the speed by hand
    EXPECT_TRUE(comesTo(80));
    display.key(u"r"_s);
    EXPECT_TRUE(comesTo(90));
    EXPECT_EQ(quit(), 0);
}

} // namespace
