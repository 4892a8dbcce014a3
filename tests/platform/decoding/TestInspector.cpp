#include "platform/decoding/AudioFileReader.h"

#include "platform/decoding/DecodingTools.h"
#include "support/SampleAudio.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

/// A song with an artist and `count` more tags.
SampleSpec songWithTags(const QString &extension, const QString &codec, int count)
{
    SampleSpec spec{.extension = extension, .codec = codec, .seconds = 0.5};
    spec.name = u"tags-%1"_s.arg(count);
    spec.tags.insert(u"artist"_s, u"Singer"_s);
    for (int i = 0; i < count; ++i)
        spec.tags.insert(u"tag%1"_s.arg(i), u"a value of a usual length"_s);
    return spec;
}

struct Opened {
    Status status = 0;
    QString artist;
    std::uint64_t frames = 0;
};

Opened open(const QString &path)
{
    AudioFileReader reader;
    Opened opened;
    opened.status = reader.open(path, SongReader::Depth::Samples);
    if (opened.status == status::noError) {
        opened.artist = reader.infoDictionary().value(u"artist"_s);
        opened.frames = reader.countedFrames(1U << 20).value_or(0);
    }
    return opened;
}

struct Format {
    QString extension;
    QString codec;
    int many; ///< More than a song has, but harmless.
    int tooMany;
};

class Inspector : public testing::TestWithParam<Format> {
protected:
    QString song(int tags)
    {
        return sampleFile(songWithTags(GetParam().extension, GetParam().codec, tags));
    }
};

TEST_P(Inspector, KeepsManyTagsUnchanged)
{
    const Opened opened = open(song(GetParam().many));
    EXPECT_EQ(opened.status, status::noError);
    EXPECT_EQ(opened.artist, u"Singer"_s);
    EXPECT_NEAR(static_cast<double>(opened.frames), 22050.0, 1500.0);
}

TEST_P(Inspector, SkipsTooManyTagsAndPlaysTheSong)
{
    const Opened opened = open(song(GetParam().tooMany));
    EXPECT_EQ(opened.status, status::noError);
    EXPECT_EQ(opened.artist, QString());
    EXPECT_NEAR(static_cast<double>(opened.frames), 22050.0, 1500.0);
}

INSTANTIATE_TEST_SUITE_P(
    Formats, Inspector,
    testing::Values(Format{u"ogg"_s, u"libvorbis"_s, 2500, 3500},
                    Format{u"ogg"_s, u"flac"_s, 2500, 3500}, Format{u"opus"_s, {}, 2500, 3500},
                    Format{u"spx"_s, {}, 2500, 3500}, Format{u"mka"_s, u"flac"_s, 2500, 4000}),
    [](const auto &format) { return (format.param.extension + format.param.codec).toStdString(); });

TEST(OggInspector, FindsCommentsInAPageInsideADroppedOne)
{
    QFile file(sampleFile(songWithTags(u"ogg"_s, u"libvorbis"_s, 3500)));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray song = file.readAll();
    // A page that claims 65,025 bytes and has a wrong checksum. FFmpeg continues right after its
    // signature.
    QByteArray wrapper = song.left(27);
    wrapper.replace(22, 4, "none").replace(5, 1, QByteArray(1, '\0'));
    wrapper[26] = '\xff';
    const qsizetype second = song.indexOf("OggS", 1);
    const QString path = writeSample(
        u"hidden.ogg"_s, song.left(second) + wrapper + QByteArray(255, '\xff') + song.mid(second));
    const Opened opened = open(path);
    EXPECT_EQ(opened.status, status::noError);
    EXPECT_EQ(opened.artist, QString());
}

} // namespace
