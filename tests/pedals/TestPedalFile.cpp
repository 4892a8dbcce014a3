#include "pedals/PedalFile.h"
#include "pedals/PedalSets.h"
#include "pedals/PedalText.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

const QByteArray full = R"({"lyrabox pedals": 1, "mine": [1],
 "switches": [{"control": "controller 64", "port": "FS-2: Port 1", "channel": 3, "tap": "loop",
               "double tap": "next loop", "hold": "from the future", "note": "left foot"},
              {"control": "program 0", "tap": "play or pause"}],
 "dials": [{"control": "pitch bend", "sets": "speed"},
           {"control": "controller 20", "sets": "volume", "form": "offset"}],
 "keys": [{"command": "loop", "keys": ["PgUp", "Ctrl+,"], "instead": true}]})";

TEST(PedalText, ReadsEverythingAndKeepsWhatItDoesNotKnow)
{
    const auto reading = readPedals(full);
    ASSERT_TRUE(reading && reading->isWhole && !reading->isNewer);
    const PedalMap &map = reading->map;
    ASSERT_EQ(map.switches.size(), 2U);
    EXPECT_EQ(map.switches[0].control,
              (PedalControl{.port = u"FS-2: Port 1"_s, .channel = 3, .number = 64}));
    EXPECT_EQ(map.switches[0].hold, u"from the future"_s);
    ASSERT_EQ(map.dials.size(), 2U);
    EXPECT_EQ(map.dials[1].form, PedalDial::Form::Offset);
    ASSERT_EQ(map.keys.size(), 1U);
    EXPECT_TRUE(map.keys[0].replaces);

    const QByteArray text = pedalsText(map);
    EXPECT_TRUE(text.contains(R"("note":"left foot")")) << text.toStdString();
    EXPECT_TRUE(text.contains(R"("mine": [1])")) << text.toStdString();
    const auto again = readPedals(text);
    ASSERT_TRUE(again && again->isWhole);
    EXPECT_EQ(again->map, map);
}

TEST(PedalText, LeavesOutWhatIsThereTwice)
{
    const auto reading = readPedals(R"({"lyrabox pedals": 1,
 "switches": [{"control": "note 60", "tap": "loop"}, {"control": "note 60", "tap": "play"}],
 "dials": [{"control": "note 60", "sets": "speed"}],
 "keys": [{"command": "loop", "keys": ["A"]}, {"command": "loop", "keys": ["B"]}]})");
    ASSERT_TRUE(reading);
    EXPECT_FALSE(reading->isWhole);
    ASSERT_EQ(reading->map.switches.size(), 1U);
    EXPECT_EQ(reading->map.switches[0].tap, u"loop"_s);
    EXPECT_TRUE(reading->map.dials.empty());
    ASSERT_EQ(reading->map.keys.size(), 1U);
    EXPECT_EQ(reading->map.keys[0].keys, QStringList{u"A"_s});
}

TEST(PedalText, DropsWhatIsNoValidEntry)
{
    for (const QByteArray entry :
         {R"("switches": 1)", R"("switches": [7])",
          R"("switches": [{"control": "controller 128"}])",
          R"("switches": [{"control": "knob 1"}])",
          R"("switches": [{"control": "note 1", "channel": 17}])",
          R"("switches": [{"control": "note 1", "channel": "x"}])",
          R"("dials": [{"control": "note 1"}])",
          R"("dials": [{"control": "note 1", "sets": "speed", "form": "odd"}])",
          R"("keys": [{"keys": ["A"]}])", R"("keys": [{"command": "loop", "keys": [1]}])"}) {
        const auto reading = readPedals("{\"lyrabox pedals\": 1, " + entry + '}');
        ASSERT_TRUE(reading) << entry.toStdString();
        EXPECT_FALSE(reading->isWhole) << entry.toStdString();
        EXPECT_FALSE(reading->map.hasMidi()) << entry.toStdString();
    }
    EXPECT_FALSE(readPedals("nonsense"));
    EXPECT_FALSE(readPedals("{}"));
    EXPECT_FALSE(readPedals("[1]"));
    EXPECT_FALSE(readPedals("{\"lyrabox practice\": 1}"));
    EXPECT_TRUE(readPedals("{\"lyrabox pedals\": 2}")->isNewer);
}

class PedalFiles : public testing::Test {
protected:
    QString path(QLatin1StringView name = pedalsFileName) const
    {
        return QDir(m_folder.path()).filePath(u"Practice/"_s + name);
    }
    QString folder() const { return QDir(m_folder.path()).filePath(u"Practice"_s); }
    void put(const QByteArray &text) const
    {
        QDir().mkpath(folder());
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    static QByteArray content(const QString &name)
    {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    static PedalMap someMap()
    {
        PedalMap map;
        addSet(map, PedalSet::TwoSwitches, {});
        return map;
    }

    QTemporaryDir m_folder;
};

TEST_F(PedalFiles, WithoutAFileNothingIsMappedAndNothingIsWritten)
{
    PedalFile file(folder());
    EXPECT_TRUE(file.map().isEmpty());
    EXPECT_EQ(file.problem(), PedalFile::Problem::None);
    EXPECT_TRUE(file.write({}));
    EXPECT_FALSE(QFile::exists(folder()));
}

TEST_F(PedalFiles, WhatIsWrittenIsReadAgain)
{
    PedalFile file(folder());
    ASSERT_TRUE(file.write(someMap()));
    EXPECT_EQ(PedalFile(folder()).map(), someMap());
}

TEST_F(PedalFiles, AnUnreadableFileIsKeptBesideTheNewOne)
{
    put("half a fi");
    PedalFile file(folder());
    EXPECT_EQ(file.problem(), PedalFile::Problem::Unreadable);
    EXPECT_EQ(content(path()), "half a fi") << "reading changes nothing";
    ASSERT_TRUE(file.write(someMap()));
    EXPECT_EQ(content(path("Pedals.json.unreadable-1"_L1)), "half a fi");
    EXPECT_EQ(PedalFile(folder()).map(), someMap());
    ASSERT_TRUE(file.write({}));
    EXPECT_FALSE(QFile::exists(path("Pedals.json.unreadable-2"_L1)));
}

TEST_F(PedalFiles, AFileWithDoubleUsesIsUsedAndKept)
{
    put(R"({"lyrabox pedals": 1, "switches": [{"control": "note 60", "tap": "a"},
        {"control": "note 60", "tap": "b"}]})");
    PedalFile file(folder());
    EXPECT_EQ(file.problem(), PedalFile::Problem::PartlyRead);
    EXPECT_EQ(file.map().switches.size(), 1U);
    ASSERT_TRUE(file.write(someMap()));
    EXPECT_TRUE(content(path("Pedals.json.unreadable-1"_L1)).contains("\"b\""));
}

TEST_F(PedalFiles, AFileOfALaterVersionIsUsedAndNeverWritten)
{
    const QByteArray text =
        R"({"lyrabox pedals": 2, "switches": [{"control": "note 60", "tap": "a"}]})";
    put(text);
    PedalFile file(folder());
    EXPECT_EQ(file.map().switches.size(), 1U);
    EXPECT_TRUE(file.isReadOnly());
    EXPECT_FALSE(file.write({}));
    EXPECT_EQ(content(path()), text);
}

TEST_F(PedalFiles, AFolderThatCannotBeWrittenIsToldOf)
{
    QFile inTheWay(folder());
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    PedalFile file(folder());
    EXPECT_FALSE(file.write(someMap()));
    EXPECT_EQ(file.problem(), PedalFile::Problem::NotWritten);
    EXPECT_EQ(file.map(), someMap()) << "it holds until the program ends";
    inTheWay.remove();
    EXPECT_TRUE(file.write(someMap()));
}

} // namespace
