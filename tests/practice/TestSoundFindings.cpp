// Tuning and key in the store: what an analysis says is kept, but makes no file by itself.

#include "practice/PracticeFixture.h"

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

const PracticeTuning tuning{.isClear = true,
                            .tuning = {.cents = -23.0, .lowest = -23.0, .highest = -23.0}};
const KeyGuess keys{{.tonic = 9, .isMinor = true}, {.tonic = 0, .isMinor = false}};

class SoundFindings : public PracticeFixture {};

TEST_F(SoundFindings, MakeNoFileByThemselvesButAreWrittenWithTheFirstEdit)
{
    const QString path = song(u"a.mp3"_s);
    {
        const auto store = makeStore();
        store->openSong(of(path));
        store->setFindings(tuning, keys);
        EXPECT_EQ(store->record().sound.tuning, tuning);
        store->closeSong();
        EXPECT_TRUE(names().isEmpty());
        store->openSong(of(path));
        store->setFindings(tuning, keys);
        ASSERT_TRUE(store->apply({PutChannels{{.centre = -100}}}));
        ASSERT_TRUE(eventually([&] { return !store->isIdentifying(); }));
    }
    const auto store = makeStore();
    store->openSong(of(path));
    EXPECT_EQ(store->record().sound.tuning, tuning);
    EXPECT_EQ(store->record().sound.keys, keys);
    EXPECT_EQ(store->record().sound.channels.centre, -100);
}

TEST_F(SoundFindings, AreWrittenIfTheSongHasAFile)
{
    const QString path = song(u"a.mp3"_s);
    keepLoop(path, u"A"_s);
    {
        const auto store = makeStore();
        store->openSong(of(path));
        store->setFindings(PracticeTuning{}, std::nullopt);
        EXPECT_FALSE(store->canUndo());
    }
    ASSERT_EQ(names().size(), 1);
    EXPECT_TRUE(content(inPractice(names().first())).contains("\"not clear\""));
}

TEST_F(SoundFindings, StayIfTheFileThatIsFoundLaterHasNone)
{
    const QString path = song(u"a.mp3"_s);
    keepLoop(path, u"A"_s);
    const QString moved = song(u"b.mp3"_s);
    const auto store = makeStore();
    store->openSong(of(moved));
    ASSERT_TRUE(store->isIdentifying());
    store->setFindings(tuning, keys);
    ASSERT_TRUE(eventually([&] { return !store->isIdentifying(); }));
    EXPECT_EQ(loopNames(store->record()), QStringList{u"A"_s});
    EXPECT_EQ(store->record().sound.tuning, tuning);
    EXPECT_EQ(store->record().sound.keys, keys);
}

} // namespace
