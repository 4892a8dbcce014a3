#include "platform/decoding/ParallelDecoder.h"

#include "platform/decoding/Decoder.h"
#include "support/SampleAudio.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <gtest/gtest.h>

#include <future>
#include <thread>

using namespace lyrabox;
using namespace lyrabox::decoding;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

void append(QByteArray &bytes, const AVFrame &frame)
{
    const auto format = static_cast<AVSampleFormat>(frame.format);
    const bool planar = av_sample_fmt_is_planar(format) != 0;
    const int channels = frame.ch_layout.nb_channels;
    const int length = frame.nb_samples * av_get_bytes_per_sample(format) * (planar ? 1 : channels);
    for (int plane = 0; plane < (planar ? channels : 1); ++plane)
        bytes.append(reinterpret_cast<const char *>(frame.extended_data[plane]), length);
}

/// All bytes that a file decodes to, interleaved by channel.
QByteArray decoded(const QString &path, unsigned threads)
{
    Container container;
    Decoder decoder;
    EXPECT_EQ(container.open(path), status::noError) << qPrintable(path);
    EXPECT_EQ(decoder.open(container, threads), status::noError) << qPrintable(path);
    QByteArray bytes;
    while (const AVFrame *frame = decoder.next())
        append(bytes, *frame);
    EXPECT_EQ(decoder.status(), status::noError);
    return bytes;
}

/// The same without trimming. `threads` 0 uses one plain decoder; otherwise the segments are as
/// short as possible.
QByteArray decodedFrames(const QString &path, unsigned threads)
{
    Container container;
    EXPECT_EQ(container.open(path), status::noError) << qPrintable(path);
    Status opened = status::noError;
    auto context = openCodec(container.decoder(), *container.stream()->codecpar,
                             container.stream()->time_base, opened);
    EXPECT_EQ(opened, status::noError);
    QByteArray bytes;
    if (threads > 0) {
        ParallelDecoder parallel(container, std::move(context), threads, 1);
        while (const auto frame = parallel.next())
            append(bytes, *frame);
        return bytes;
    }
    Packets packets(container);
    const AvPointer<AVPacket> packet(av_packet_alloc());
    const AvPointer<AVFrame> frame(av_frame_alloc());
    for (bool more = true; more;) {
        more = packets.next(*packet);
        avcodec_send_packet(context.get(), more ? packet.get() : nullptr);
        while (avcodec_receive_frame(context.get(), frame.get()) == 0)
            append(bytes, *frame);
    }
    return bytes;
}

struct Stream {
    QString extension;
    QString codec;
    QStringList options;
};

/// Every codec that is decoded in segments, at several bit rates and in several containers.
std::vector<Stream> streams()
{
    return {{u"mp3"_s, {}, {u"-b:a"_s, u"256k"_s}},
            {u"mp3"_s, {}, {u"-b:a"_s, u"64k"_s}},
            {u"mp3"_s, {}, {u"-q:a"_s, u"4"_s}},
            {u"mp3"_s, {}, {u"-b:a"_s, u"32k"_s, u"-ar"_s, u"22050"_s}},
            {u"m4a"_s, {}, {u"-b:a"_s, u"256k"_s}},
            {u"aac"_s, {}, {}},
            {u"wma"_s, {}, {}},
            {u"wv"_s, {}, {}},
            {u"ac3"_s, {}, {}},
            {u"m4a"_s, {}, {u"-b:a"_s, u"96k"_s}},
            {u"flac"_s, {}, {}},
            {u"m4a"_s, u"alac"_s, {}},
            {u"ogg"_s, {}, {u"-q:a"_s, u"6"_s}},
            {u"ogg"_s, {}, {u"-q:a"_s, u"1"_s}},
            {u"mka"_s, u"libvorbis"_s, {}},
            {u"opus"_s, {}, {u"-b:a"_s, u"128k"_s}},
            {u"opus"_s, {}, {u"-b:a"_s, u"16k"_s}},
            {u"opus"_s, {}, {u"-b:a"_s, u"32k"_s, u"-application"_s, u"voip"_s}},
            {u"webm"_s, u"libopus"_s, {}}};
}

SampleSpec specOf(const Stream &stream, SampleSpec::Signal signal, int rate)
{
    SampleSpec spec{.extension = stream.extension, .codec = stream.codec, .signal = signal};
    spec.seconds = 16.0;
    spec.rate = rate;
    spec.options = stream.options;
    return spec;
}

} // namespace

class ParallelDecoderOf : public testing::TestWithParam<Stream> {};

TEST_P(ParallelDecoderOf, DecodesToTheSameBitsAsOneDecoder)
{
    for (const auto &[signal, rate] :
         {std::pair{SampleSpec::Signal::Noise, 44100}, {SampleSpec::Signal::Sine, 48000}}) {
        const QString path = sampleFile(specOf(GetParam(), signal, rate));
        const QByteArray serial = decoded(path, 1);
        ASSERT_FALSE(serial.isEmpty());
        for (const unsigned threads : {2U, 8U})
            EXPECT_TRUE(decoded(path, threads) == serial) << rate << ' ' << threads << " threads";
    }
}

INSTANTIATE_TEST_SUITE_P(, ParallelDecoderOf, testing::ValuesIn(streams()), [](const auto &stream) {
    return stream.param.extension.toStdString() + std::to_string(stream.index);
});

TEST_P(ParallelDecoderOf, DecodesToTheSameBitsWithDecodersReusedForSeveralSegments)
{
    SampleSpec spec = specOf(GetParam(), SampleSpec::Signal::Noise, 48000);
    spec.seconds = 24.0;
    const QString path = sampleFile(spec);
    const QByteArray serial = decodedFrames(path, 0);
    ASSERT_FALSE(serial.isEmpty());
    for (const unsigned threads : {1U, 2U, 3U})
        EXPECT_TRUE(decodedFrames(path, threads) == serial) << threads << " threads";
}

TEST(ParallelDecoder, PlaysTheRestAfterDamage)
{
    for (const auto &extension : {u"mp3"_s, u"flac"_s, u"ogg"_s, u"m4a"_s}) {
        QFile sample(sampleFile(
            {.extension = extension, .signal = SampleSpec::Signal::Noise, .seconds = 16.0}));
        ASSERT_TRUE(sample.open(QIODevice::ReadOnly));
        QByteArray bytes = sample.readAll();
        for (qsizetype i = bytes.size() / 2; i < bytes.size() / 2 + 300; ++i)
            bytes[i] = static_cast<char>(i * 37 ^ i >> 3);
        const QString path = sampleFolder() + u"/damaged."_s + extension;
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        EXPECT_EQ(decoded(path, 4).size(), decoded(path, 1).size()) << qPrintable(extension);
    }
}

/// A song whose first frames have been decoded.
struct BegunSong {
    BegunSong(const QString &extension, int decoders)
    {
        EXPECT_EQ(container.open(sampleFile({.extension = extension, .seconds = 16.0})),
                  status::noError);
        EXPECT_EQ(decoder.open(container, decoders), status::noError);
        EXPECT_NE(decoder.next(), nullptr);
    }
    Container container;
    Decoder decoder;
};

TEST(ParallelDecoder, UsesTheReadersThreadAsOneOfTheDecoders)
{
    const auto threadsNow = [] {
        return QDir(u"/proc/self/task"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size();
    };
    // Counts while another thread certainly runs: with the first thread a sanitizer starts its own,
    // and a joined thread may still be listed for a moment.
    std::promise<void> end;
    std::thread another([&] { end.get_future().wait(); });
    const auto before = threadsNow() - 1;
    end.set_value();
    another.join();
    for (const auto &[extension, others] : {std::pair{u"mp3"_s, 2}, {u"m4a"_s, 1}}) {
        const BegunSong song(extension, 3);
        EXPECT_TRUE(QTest::qWaitFor([&] { return threadsNow() == before + others; }))
            << qPrintable(extension) << ' ' << threadsNow() - before;
    }
}

TEST(ParallelDecoder, CanBeDestroyedInTheMiddle)
{
    for (const auto &extension : {u"mp3"_s, u"m4a"_s}) {
        const BegunSong song(extension, 4);
    }
}
