#include "engine/ReadySongs.h"

#include "ReadySongsFixture.h"
#include "support/SampleAudio.h"

#include <QDateTime>
#include <QDir>

#include <array>
#include <filesystem>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::test {
namespace {

using testing::Contains;
using testing::IsEmpty;

using ReadySongs = ReadySongsFixture;

TEST_F(ReadySongs, AReadySongIsTakenOverWithoutBeingReadAgain)
{
    song->artwork = "picture";
    const QUrl next = file(u"next"_s);
    want({next});
    ASSERT_TRUE(ready->isReady(next));
    loadSong(500);
    engine::seekToFrame(100);
    clearCalls();
    EXPECT_EQ(engine::loadAudioFile(next), 0);
    EXPECT_THAT(calls(), IsEmpty());
    EXPECT_EQ(engine::totalFrames(), 20000U);
    EXPECT_EQ(engine::currentFrame(), 0U);
    EXPECT_EQ(engine::albumArtData(), QByteArray("picture"));
    const auto decoded = engine::decodedSong();
    ASSERT_TRUE(decoded);
    for (std::size_t frame = 0; frame < 20000; ++frame) {
        ASSERT_EQ(decoded->channel(0)[frame], static_cast<float>(frame));
        ASSERT_EQ(decoded->channel(1)[frame], -static_cast<float>(frame));
    }
    EXPECT_FALSE(ready->isReady(next));
}

TEST_F(ReadySongs, TheFileOfASongIsRememberedWhetherItWasReadyOrNot)
{
    const QUrl next = file(u"next"_s);
    const auto stamp = files::fileStamp(path(u"next"_s));
    ASSERT_TRUE(stamp);
    want({next});
    ASSERT_TRUE(ready->isReady(next));
    EXPECT_EQ(engine::loadAudioFile(next), 0);
    EXPECT_EQ(engine::decodedSong()->file(), stamp);
    EXPECT_EQ(engine::loadAudioFile(next), 0) << "now it is not ready";
    EXPECT_EQ(engine::decodedSong()->file(), stamp);
    loadSong(500); // a path without a file
    EXPECT_FALSE(engine::decodedSong()->file());
}

TEST_F(ReadySongs, AReadySongWithoutArtworkDropsTheLastOnes)
{
    want({file(u"next"_s)});
    song->artwork = "picture";
    loadSong(500);
    EXPECT_EQ(engine::loadAudioFile(file(u"other"_s)), 0);
    EXPECT_EQ(engine::albumArtData(), QByteArray("picture"));
    EXPECT_EQ(engine::loadAudioFile(QUrl::fromLocalFile(path(u"next"_s))), 0);
    EXPECT_TRUE(engine::albumArtData().isNull());
}

TEST_F(ReadySongs, TakingASongOverShowsNoProgress)
{
    std::chrono::milliseconds now{};
    int reports = 0;
    engine::setLoadProgressHook([&](qint64, qint64) { ++reports; },
                                [&] { return now += std::chrono::milliseconds(300); });
    const QUrl next = file(u"next"_s);
    want({next});
    EXPECT_EQ(engine::loadAudioFile(next), 0);
    engine::setLoadProgressHook({});
    EXPECT_EQ(reports, 0);
}

TEST_F(ReadySongs, ItIsDecodedWithTheReadsOfAPlainLoad)
{
    song->maximumFramesPerRead = 3000;
    const QUrl next = file(u"next"_s);
    EXPECT_EQ(engine::loadAudioFile(next), 0);
    const std::vector<std::string> plain = calls();
    clearCalls();
    want({next});
    EXPECT_EQ(calls(), plain);
}

/// What may happen to a file after its song was made ready.
struct Change {
    std::string name;
    std::function<void(const QString &path)> apply;
};

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

void setModified(const QString &path, const QDateTime &time)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadWrite));
    EXPECT_TRUE(file.setFileTime(time, QFileDevice::FileModificationTime));
}

class ChangedFile : public ReadySongsFixture, public testing::WithParamInterface<Change> {};

TEST_P(ChangedFile, IsReadAgain)
{
    const QUrl next = file(u"next"_s);
    want({next});
    ASSERT_TRUE(ready->isReady(next));
    GetParam().apply(path(u"next"_s));
    song->frames = 12345;
    clearCalls();
    EXPECT_EQ(engine::loadAudioFile(next), 0);
    EXPECT_THAT(calls(), Contains("open"));
    EXPECT_EQ(engine::totalFrames(), 12345U);
}

INSTANTIATE_TEST_SUITE_P(
    AfterAChange, ChangedFile,
    testing::Values(Change{"OfItsSize", [](const QString &path) { write(path, "longer content"); }},
                    Change{"OfItsTime",
                           [](const QString &path) {
                               setModified(path, QDateTime::currentDateTime().addDays(-1));
                           }},
                    Change{"OfItsInode",
                           [](const QString &path) {
                               // The same content and the same times in another file.
                               namespace fs = std::filesystem;
                               const fs::path old = path.toStdString();
                               const fs::path copy = (path + u".copy"_s).toStdString();
                               fs::copy_file(old, copy);
                               fs::last_write_time(copy, fs::last_write_time(old));
                               fs::rename(copy, old);
                           }},
                    Change{"OfItsPermissions",
                           [](const QString &path) {
                               EXPECT_TRUE(QFile::setPermissions(path, QFileDevice::ReadOwner));
                           }}),
    [](const auto &instance) { return instance.param.name; });

TEST_F(ReadySongs, AFileThatVanishedIsNotPlayedFromMemory)
{
    const QUrl next = file(u"next"_s);
    want({next});
    EXPECT_TRUE(QFile::remove(path(u"next"_s)));
    song->openStatus = status::fileNotFound;
    EXPECT_EQ(engine::loadAudioFile(next), status::fileNotFound);
}

TEST_F(ReadySongs, AFileThatChangesWhileItIsDecodedIsNotKept)
{
    const QUrl next = file(u"next"_s);
    Gate gate(*song, path(u"next"_s), 8192);
    QSignalSpy ended(ready.get(), &engine::ReadySongs::ended);
    ready->setWanted({next}, Work::Begin);
    gate.awaitArrival();
    write(path(u"next"_s), "other");
    gate.open();
    ASSERT_TRUE(ended.wait(30'000));
    EXPECT_FALSE(ready->isReady(next));
}

TEST_F(ReadySongs, AnotherStreamFormatIsDecodedAgain)
{
    const QUrl next = file(u"next"_s);
    want({next});
    AudioStreamBasicDescription other = engine::streamFormat();
    other.mSampleRate = 48000.0;
    EXPECT_FALSE(ready->take(next, other));
}

TEST_F(ReadySongs, AMissingOrBrokenSongIsNotReadyAndTheLoadMeetsTheFault)
{
    const QUrl next = file(u"next"_s);
    const QUrl missing = QUrl::fromLocalFile(path(u"missing"_s));
    want({missing});
    EXPECT_FALSE(ready->isReady(missing));
    song->openStatus = status::invalidFile;
    want({next});
    EXPECT_FALSE(ready->isReady(next));
    EXPECT_EQ(engine::loadAudioFile(next), status::invalidFile);
    song->openStatus = 0;
    song->readStatus = status::unspecified;
    song->readFailsAtFrame = 16384;
    ready->setWanted({}, Work::Begin);
    want({next});
    EXPECT_FALSE(ready->isReady(next));
    EXPECT_EQ(engine::loadAudioFile(next), status::unspecified);
    EXPECT_EQ(engine::totalFrames(), 16384U); // the part that was decoded
}

TEST_F(ReadySongs, ASongThatWasGivenUpIsNotTriedAgainWhileItIsWanted)
{
    const QUrl broken = file(u"broken"_s);
    song->openStatus = status::invalidFile;
    want({broken});
    clearCalls();
    song->openStatus = 0;
    want({broken, file(u"next"_s)});
    EXPECT_FALSE(ready->isReady(broken));
    ready->setWanted({}, Work::Begin);
    want({broken});
    EXPECT_TRUE(ready->isReady(broken));
}

TEST_F(ReadySongs, ASongThatIsNoLongerWantedIsDropped)
{
    const QUrl first = file(u"first"_s);
    const QUrl second = file(u"second"_s);
    want({first, second});
    ready->setWanted({second}, Work::None);
    EXPECT_FALSE(ready->isReady(first));
    EXPECT_TRUE(ready->isReady(second));
}

TEST_F(ReadySongs, TheDecodingOfASongThatIsNoLongerWantedIsCancelled)
{
    const QUrl first = file(u"first"_s);
    const QUrl second = file(u"second"_s);
    Gate gate(*song, path(u"first"_s), 8192);
    ready->setWanted({first, second}, Work::Begin);
    gate.awaitArrival();
    ready->setWanted({second}, Work::Begin);
    clearCalls();
    gate.open();
    want({second});
    EXPECT_FALSE(ready->isReady(first));
    EXPECT_EQ(calls().front(), "dispose") << "the first song was read on";
}

TEST_F(ReadySongs, AnotherLoadCancelsTheDecodingAndItBeginsAgainWhenAskedFor)
{
    const QUrl next = file(u"next"_s);
    Gate gate(*song, path(u"next"_s), 8192);
    ready->setWanted({next}, Work::Begin);
    gate.awaitArrival();
    EXPECT_EQ(loadSong(500), 0); // while the decoding thread still stands at the gate
    EXPECT_FALSE(ready->isDecoding());
    gate.open();
    want({next});
    EXPECT_TRUE(ready->isReady(next));
}

TEST_F(ReadySongs, ASongThatIsBeingDecodedIsLoadedAsIfItWereNot)
{
    const QUrl next = file(u"next"_s);
    Gate gate(*song, path(u"next"_s), 8192);
    ready->setWanted({next}, Work::Begin);
    gate.awaitArrival();
    gate.letOthersPass(); // the load itself
    EXPECT_EQ(engine::loadAudioFile(next), 0);
    EXPECT_EQ(engine::totalFrames(), 20000U);
    gate.open();
}

TEST_F(ReadySongs, APauseCancelsAndNothingBeginsUntilTheNextRequest)
{
    const QUrl next = file(u"next"_s);
    Gate gate(*song, path(u"next"_s), 8192);
    ready->setWanted({next}, Work::Begin);
    gate.awaitArrival();
    ready->pause();
    EXPECT_FALSE(ready->isDecoding());
    gate.open();
    awaitReaders();
    QCoreApplication::processEvents();
    EXPECT_FALSE(ready->isDecoding());
    EXPECT_FALSE(ready->isReady(next));
    want({next});
    EXPECT_TRUE(ready->isReady(next));
}

TEST_F(ReadySongs, ADecodingThatRunsMayEndWhenNoOtherMayBegin)
{
    const QUrl first = file(u"first"_s);
    const QUrl second = file(u"second"_s);
    Gate gate(*song, path(u"first"_s), 8192);
    QSignalSpy ended(ready.get(), &engine::ReadySongs::ended);
    ready->setWanted({first, second}, Work::Begin);
    gate.awaitArrival();
    ready->setWanted({first, second}, Work::Finish);
    gate.open();
    ASSERT_TRUE(ended.wait(30'000));
    EXPECT_TRUE(ready->isReady(first));
    EXPECT_FALSE(ready->isDecoding());
}

TEST_F(ReadySongs, EveryFormatGivesTheSamplesOfAPlainLoad)
{
    engine::setSongReaderFactory({}); // the program's reader
    for (SampleSpec spec : everyFormat()) {
        spec.signal = SampleSpec::Signal::Noise;
        spec.seconds = 4.0; // several segments, which several threads decode
        const QUrl url = QUrl::fromLocalFile(sampleFile(spec));
        const std::string name = (spec.extension + u' ' + spec.codec).toStdString();
        ASSERT_EQ(engine::loadAudioFile(url), 0) << name;
        const auto plain = engine::decodedSong();
        const QByteArray artwork = engine::albumArtData();
        want({url});
        ASSERT_TRUE(ready->isReady(url)) << name;
        ASSERT_EQ(engine::loadAudioFile(url), 0) << name;
        const auto taken = engine::decodedSong();
        ASSERT_TRUE(plain && taken && taken != plain) << name;
        ASSERT_EQ(taken->frames(), plain->frames()) << name;
        for (std::uint32_t channel = 0; channel < plain->channels(); ++channel)
            EXPECT_TRUE(std::ranges::equal(plain->channel(channel), taken->channel(channel)))
                << name;
        EXPECT_EQ(engine::albumArtData(), artwork) << name;
    }
}

} // namespace
} // namespace lyrabox::test
