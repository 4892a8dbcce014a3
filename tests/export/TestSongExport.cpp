#include "export/ExportFixture.h"
#include "export/SongExport.h"
#include "platform/audio/EncodingModule.h"
#include "support/Heard.h"
#include "support/SampleAudio.h"

#include <QFile>

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {
namespace {

using namespace test;

class WrittenFile : public testing::Test {
protected:
    Status run(const ExportTools &tools = platformExportTools(), std::stop_token stop = {})
    {
        return exportSong(request, tools, stop, [](double) {});
    }
    QStringList everything() const
    {
        return QDir(folder.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    QTemporaryDir folder;
    ExportRequest request{.target = folder.filePath(u"new.wav"_s), .format = SongFormat::WavFloat};
};

bool areSame(const std::vector<float> &one, const std::vector<float> &other)
{
    return one.size() == other.size() &&
           std::memcmp(one.data(), other.data(), one.size() * sizeof(float)) == 0;
}

} // namespace

TEST_F(WrittenFile, OfTheUntouchedSongIsTheDecodedSongBitForBit)
{
    const std::vector<SampleSpec> songs = {
        {.extension = u"mp3"_s, .signal = SampleSpec::Signal::Noise, .seconds = 1.7},
        {.signal = SampleSpec::Signal::Noise, .seconds = 1.3, .channels = 1},
        {.extension = u"flac"_s, .seconds = 1.1, .rate = 48000, .channels = 8},
        {.signal = SampleSpec::Signal::Noise, .seconds = 1.2, .rate = 8000},
        {.frames = 1},
        {.amplitude = 0.0, .frames = 1000},
    };
    for (const SampleSpec &spec : songs) {
        request.source = sampleFile(spec);
        ASSERT_EQ(run(), 0) << qPrintable(request.source);
        const Channels song = decoded(request.source);
        const Channels written = decoded(request.target);
        EXPECT_GT(song[0].size(), 0U);
        EXPECT_TRUE(areSame(song[0], written[0])) << qPrintable(request.source);
        EXPECT_TRUE(areSame(song[1], written[1])) << qPrintable(request.source);
    }
}

TEST_F(WrittenFile, HasTheLengthOfTheSongAtItsSpeedInEveryFormat)
{
    request.source = sampleFile({.frames = 40'001});
    request.passes = {{.rate = 0.75F}};
    for (const SongFormat format : allSongFormats) {
        request.format = format;
        request.target = folder.filePath(exportFileName(u"new"_s, format, {}));
        ASSERT_EQ(run(), 0);
        EXPECT_EQ(decoded(request.target)[0].size(), 53'335U) << suffixOf(format);
    }
}

TEST_F(WrittenFile, OfAnySongHasItsLengthThroughEveryStage)
{
    const std::vector<SampleSpec> songs = {
        {.signal = SampleSpec::Signal::Noise, .channels = 1},
        {.extension = u"flac"_s, .rate = 48000, .channels = 8},
        {.signal = SampleSpec::Signal::Noise, .rate = 8000},
        {.frames = 1},
        {.amplitude = 0.0, .frames = 1000},
    };
    request.channels = {.mode = ChannelMode::Swapped, .centre = -100};
    request.levels[3] = 6.0F;
    request.pitchCents = 300.0F;
    request.passes = {{.rate = 0.75F}};
    request.format = SongFormat::Flac;
    for (const SampleSpec &spec : songs) {
        request.source = sampleFile(spec);
        const auto frames = static_cast<double>(decoded(request.source)[0].size());
        ASSERT_EQ(run(), 0) << qPrintable(request.source);
        const Channels written = decoded(request.target);
        EXPECT_EQ(written[0].size(), std::llround(frames / 0.75)) << qPrintable(request.source);
        EXPECT_EQ(levelOf(written[0]) == 0.0, spec.amplitude == 0.0 || frames == 1.0)
            << qPrintable(request.source);
    }
}

TEST_F(WrittenFile, IsNotThereWhenTheExportIsCancelled)
{
    request.source = sampleFile({.seconds = 5.0});
    std::stop_source stop;
    const auto song = std::make_shared<FakeSong>();
    song->onAccess = [&stop](const QString &, std::uint64_t frame) {
        if (frame > 100'000)
            stop.request_stop();
    };
    EXPECT_EQ(run({.reader = fakeSongReaderFactory(song), .writer = platformExportTools().writer},
                  stop.get_token()),
              status::cancelled);
    EXPECT_EQ(everything(), QStringList());
}

TEST_F(WrittenFile, IsNotThereWhenTheSongVanishedOrIsDamaged)
{
    request.source = folder.filePath(u"none.wav"_s);
    EXPECT_EQ(run(), status::fileNotFound);
    request.source = writeSample(u"text.wav"_s, QByteArray(5000, 't'));
    EXPECT_EQ(run(), status::unsupportedFileType);
    EXPECT_EQ(everything(), QStringList());
}

TEST_F(WrittenFile, IsNotThereWhenTheSongIsAnotherOneNow)
{
    request.source = folder.filePath(u"song.wav"_s);
    ASSERT_TRUE(makeSampleAt(request.source, {.seconds = 1.0}));
    request.sourceStamp = files::fileStamp(request.source);
    ASSERT_EQ(run(), 0);
    ASSERT_TRUE(QFile::remove(request.target));
    ASSERT_TRUE(makeSampleAt(request.source, {.seconds = 1.1}));
    EXPECT_EQ(run(), status::songChanged);
    EXPECT_EQ(everything(), QStringList{u"song.wav"_s});
}

TEST_F(WrittenFile, IsNotThereWhenTheSongChangesMeanwhile)
{
    request.source = folder.filePath(u"song.wav"_s);
    ASSERT_TRUE(makeSampleAt(request.source, {.seconds = 1.0}));
    const auto song = std::make_shared<FakeSong>();
    song->onAccess = [this](const QString &path, std::uint64_t frame) {
        if (frame > 100'000 && QFile(path).size() > 1000)
            QFile::resize(path, 1000);
    };
    EXPECT_EQ(run({.reader = fakeSongReaderFactory(song), .writer = platformExportTools().writer}),
              status::songChanged);
    EXPECT_EQ(everything(), QStringList{u"song.wav"_s});
}

TEST_F(WrittenFile, NeverReplacesTheSongItself)
{
    request.source = folder.filePath(u"song.wav"_s);
    ASSERT_TRUE(makeSampleAt(request.source, {.seconds = 1.0}));
    const QByteArray before = bytesOf(request.source);
    ASSERT_TRUE(QFile::link(request.source, folder.filePath(u"link.wav"_s)));
    request.target = folder.filePath(u"link.wav"_s);
    EXPECT_EQ(run(), status::notWritable);
    EXPECT_EQ(bytesOf(request.source), before);
}

TEST_F(WrittenFile, NeedsAnEncoder)
{
    request.source = sampleFile({});
    ExportTools tools = platformExportTools();
    tools.writer = [] {
        return EncodingModule(u"/nowhere/lyrabox-encoding.so"_s).makeSongWriter();
    };
    EXPECT_EQ(run(tools), status::missingEncoder);
    EXPECT_EQ(everything(), QStringList());
}

TEST_F(MadeSongExport, HasEveryFrameOfAnySong)
{
    for (const std::uint64_t frames : {1U, 2U, 127U, 128U, 129U, 256U, 8191U, 8192U, 100'003U}) {
        song->frames = frames;
        *result = {};
        ASSERT_EQ(run(), 0);
        ASSERT_EQ(result->left.size(), frames);
        EXPECT_TRUE(result->isFinished);
        for (std::uint64_t i = 0; i < frames; ++i)
            ASSERT_EQ(result->left[i], static_cast<float>(i));
    }
    song->frames = 0;
    EXPECT_EQ(run(), status::nothingToWrite);
}

TEST_F(MadeSongExport, WithCentreHasTheSameLength)
{
    song->sample = [](std::uint32_t channel, std::uint64_t frame) {
        return 0.3F * std::sin(static_cast<float>(frame % 44'100) * (channel == 0 ? 0.05F : 0.07F));
    };
    request.channels = {.centre = -100};
    for (const std::uint64_t frames : {1U, 127U, 129U, 2048U, 100'003U}) {
        song->frames = frames;
        *result = {};
        ASSERT_EQ(run(), 0);
        EXPECT_EQ(result->left.size(), frames);
    }
    song->frames = 2'000'000;
    *result = {};
    request.passes = {{.start = 1'500'000, .end = 1'500'300},
                      {.start = 200, .end = 500, .before = {.frames = 1000}},
                      {.start = 900'000, .end = 900'001}};
    ASSERT_EQ(run(), 0);
    EXPECT_EQ(result->left.size(), 1601U);
    EXPECT_TRUE(
        std::ranges::all_of(result->left, [](float sample) { return std::isfinite(sample); }));
}

TEST_F(MadeSongExport, RepeatsALoopWithItsExactLength)
{
    request.passes = repeatedPass({.start = 30'001, .end = 47'322}, 5);
    ASSERT_EQ(run(), 0);
    ASSERT_EQ(result->left.size(), 5U * 17'321U);
    for (std::size_t i = 0; i < result->left.size(); ++i)
        ASSERT_EQ(result->left[i], static_cast<float>(30'001 + i % 17'321)) << i;
    EXPECT_EQ(result->details.frames, result->left.size());
}

TEST_F(MadeSongExport, OfALoopIsExactAtEverySpeed)
{
    song->sample = [](std::uint32_t, std::uint64_t frame) {
        return 0.3F * std::sin(static_cast<float>(frame % 44'100) * 0.05F);
    };
    for (const float rate : {0.5F, 0.75F, 0.9F, 1.25F, 2.0F}) {
        request.passes = repeatedPass({.start = 12'345, .end = 23'456, .rate = rate}, 3);
        *result = {};
        ASSERT_EQ(run(), 0);
        EXPECT_EQ(result->left.size(), std::llround(3.0 * 11'111.0 / double(rate))) << rate;
    }
}

TEST_F(MadeSongExport, EndsALoopAtTheSongsEnd)
{
    request.passes = repeatedPass({.start = 440'900, .end = 500'000}, 2);
    ASSERT_EQ(run(), 0);
    ASSERT_EQ(result->left.size(), 200U);
    EXPECT_EQ(result->left[99], 440'999.0F);
    EXPECT_EQ(result->left[100], 440'900.0F);

    request.passes = {{.start = 441'000}};
    EXPECT_EQ(run(), status::nothingToWrite);
    request.passes = {{.start = 5000, .end = 5000}};
    EXPECT_EQ(run(), status::nothingToWrite);
    request.passes = {};
    EXPECT_EQ(run(), status::nothingToWrite);
}

TEST_F(MadeSongExport, PlaysPassesInAnyOrder)
{
    song->frames = 2'000'000;
    request.passes = {{.start = 1'500'000, .end = 1'500'300},
                      {.start = 200, .end = 500},
                      {.start = 900'000, .end = 900'300}};
    ASSERT_EQ(run(), 0);
    ASSERT_EQ(result->left.size(), 900U);
    EXPECT_EQ(result->left[0], 1'500'000.0F);
    EXPECT_EQ(result->left[300], 200.0F);
    EXPECT_EQ(result->left[600], 900'000.0F);
}

TEST_F(MadeSongExport, OfALadderTakesEachSpeedForItsPass)
{
    song->sample = [](std::uint32_t, std::uint64_t) { return 0.0F; };
    LeadIn leadIn{.frames = 11'025, .clickCount = 1};
    leadIn.clicks[0] = {.frame = 4410, .kind = ClickKind::Accent};
    request.clickSound.loudness = 1.0F;
    request.passes.clear();
    for (const float rate : {0.5F, 0.6F, 0.8F})
        request.passes.push_back({.start = 44'100, .end = 88'200, .rate = rate, .before = leadIn});
    ASSERT_EQ(run(), 0);
    const double pass = 55'125.0;
    constexpr double glide = 2205.0; // time/pitch takes a new rate within 50 ms
    const double whole = pass / 0.5 + pass / 0.6 + pass / 0.8;
    EXPECT_NEAR(static_cast<double>(result->left.size()), whole, glide);

    std::vector<double> clicks;
    for (std::size_t i = 0; i < result->left.size(); ++i) {
        const bool isNew = clicks.empty() || static_cast<double>(i) > clicks.back() + 20'000;
        if (std::abs(result->left[i]) > 0.01F && isNew)
            clicks.push_back(static_cast<double>(i));
    }
    ASSERT_EQ(clicks.size(), 3U);
    EXPECT_NEAR(clicks[0], 4410 / 0.5, 441.0);
    EXPECT_NEAR(clicks[1], pass / 0.5 + 4410 / 0.6, glide);
    EXPECT_NEAR(clicks[2], pass / 0.5 + pass / 0.6 + 4410 / 0.8, glide);
}

TEST_F(MadeSongExport, WritesNothingMoreAfterARequestToStop)
{
    std::stop_source stop;
    result->onWrite = [&] {
        if (result->writes == 20)
            stop.request_stop();
    };
    EXPECT_EQ(run(stop.get_token()), status::cancelled);
    EXPECT_EQ(result->writes, 20);
    EXPECT_FALSE(result->isFinished);
}

TEST_F(MadeSongExport, SkipsNoFurtherAfterARequestToStop)
{
    std::stop_source stop;
    song->frames = 10'000'000;
    song->onAccess = [&](const QString &, std::uint64_t frame) {
        if (frame > 50'000)
            stop.request_stop();
    };
    request.passes = {{.start = 9'000'000}};
    EXPECT_EQ(run(stop.get_token()), status::cancelled);
    EXPECT_EQ(result->writes, 0);
    EXPECT_LT(song->calls.size(), 20U);
}

TEST_F(MadeSongExport, PassesOnWhyReadingOrWritingFails)
{
    song->readStatus = status::unspecified;
    song->readFailsAtFrame = 100'000;
    EXPECT_EQ(run(), status::unspecified);
    EXPECT_FALSE(result->isFinished);
    song->readStatus = 0;
    result->writeStatus = status::diskFull;
    EXPECT_EQ(run(), status::diskFull);
    EXPECT_FALSE(result->isFinished);
}

TEST_F(MadeSongExport, RefusesValuesThatAreNotFinite)
{
    request.pitchCents = NAN;
    EXPECT_EQ(run(), status::invalidParameter);
    request.pitchCents = 0.0F;
    request.levels[3] = INFINITY;
    EXPECT_EQ(run(), status::invalidParameter);
    request.levels[3] = 0.0F;
    request.passes = {{.rate = NAN}};
    EXPECT_EQ(run(), status::invalidParameter);
}

TEST_F(MadeSongExport, TellsItsProgress)
{
    ASSERT_EQ(run(), 0);
    ASSERT_GT(shares.size(), 10U);
    EXPECT_TRUE(std::is_sorted(shares.begin(), shares.end()));
    EXPECT_LT(shares.front(), 0.1);
    EXPECT_EQ(shares.back(), 1.0);
}

} // namespace lyrabox
