// The beats of a song in the real program, by keys and mouse, and in the file that it leaves.

#include "practice/PracticeText.h"
#include "program/PaneOnScreen.h"
#include "program/Places.h"

#include <QDir>
#include <QFile>

#include <cmath>
#include <functional>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

/// The song has a new tone every second: beats of 60 a minute.
class ProgramWithBeats : public ProgramWithPane {
protected:
    /// The beats that the only practice file has. Empty if there is none.
    BeatGrid kept() const
    {
        QStringList files = QDir(settingsFile(u"Practice"_s)).entryList({u"*.json"_s}, QDir::Files);
        files.removeAll(u"Index.json"_s);
        QFile file(settingsFile(u"Practice/"_s + files.value(0)));
        if (files.isEmpty() || !file.open(QIODevice::ReadOnly))
            return {};
        const std::optional<PracticeReading> reading = readPractice(file.readAll());
        return reading ? reading->record.beats.grid : BeatGrid();
    }

    bool comesToKeep(const std::function<bool(const BeatGrid &)> &holds) const
    {
        return waitUntil([&] { return holds(kept()); });
    }

    /// The tempo of the kept beats in the middle of the song; 0 without beats.
    double keptTempo() const
    {
        const BeatGrid grid = kept();
        return grid.isEmpty() ? 0.0 : grid.tempoAt(441'000.0);
    }

    void choose(const QString &letter)
    {
        display.key(u"alt+i"_s);
        display.key(u"b"_s);
        display.key(letter);
    }
};

TEST_F(ProgramWithBeats, EightTapsWithTheMusicBecomeItsBeats)
{
    startAndPlay();
    openPane();
    display.key(u"shift+Left"_s, 4); // to the start
    ASSERT_TRUE(hears(stepFrequency(1), 5.0));
    for (int tap = 0; tap < 8; ++tap) {
        ASSERT_TRUE(hears(stepFrequency(2 + tap), 4.0));
        display.key(u"t"_s);
    }
    ASSERT_TRUE(comesToKeep([](const BeatGrid &grid) { return !grid.isEmpty(); }));
    EXPECT_NEAR(keptTempo(), 60.0, 2.0);
    choose(u"w"_s); // twice the tempo
    EXPECT_TRUE(waitUntil([&] { return std::abs(keptTempo() - 120.0) < 4.0; })) << keptTempo();
    display.key(u"ctrl+z"_s);
    EXPECT_TRUE(waitUntil([&] { return std::abs(keptTempo() - 60.0) < 2.0; })) << keptTempo();
    display.key(u"ctrl+z"_s);
    EXPECT_TRUE(comesToKeep([](const BeatGrid &grid) { return grid.isEmpty(); }));
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramWithBeats, ASuggestionIsUsedAndATypedTempoSetsTheSpeed)
{
    startAndPlay();
    openPane();
    display.key(u"space"_s);
    ASSERT_TRUE(hearsSilence());
    // The suggestion comes after the wave is measured; before, the command does nothing.
    ASSERT_TRUE(waitUntil(
        [&] {
            choose(u"u"_s);
            display.key(u"Escape"_s, 3);
            return keptTempo() > 0.0;
        },
        20.0));
    const double tempo = keptTempo();
    click({40, 315}); // the tempo
    display.key(u"ctrl+a"_s);
    display.type(QString::number(qRound(tempo * 0.75)));
    display.key(u"Return"_s);
    display.key(u"ctrl+s"_s);
    EXPECT_EQ(quit(), 0);
    QFile file(settingsFile(u"UserSettings.plist"_s));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray settings = file.readAll();
    EXPECT_TRUE(settings.contains("<real>75.0</real>")) << settings.toStdString();
}

} // namespace
