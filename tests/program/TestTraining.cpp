// The trainer in the real program, by keys and mouse. The speed is read where media keys read it.

#include "platform/foundation/PropertyList.h"
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

    /// Loops less than a second of the song, by keys. The speed is 90 %.
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

    PrivateBus bus;
    QDBusConnection client = bus.connect(u"client"_s);
};

TEST_F(ProgramWithTrainer, TheLadderIsWalkedFrom60To100PercentWithMissesByKeysAlone)
{
    loopByKeys();
    display.key(u"r"_s);
    ASSERT_TRUE(comesTo(60));
    ASSERT_TRUE(comesTo(65));
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

} // namespace
