#include "support/SampleAudio.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QProcess>
#include <QTemporaryDir>
#include <QtEndian>

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::test {

namespace {

/// A 32-bit mixing function. With it noise needs no state, so any frame can be computed alone.
std::uint32_t hash(std::uint32_t value)
{
    value ^= value >> 16;
    value *= 0x7feb352dU;
    value ^= value >> 15;
    value *= 0x846ca68bU;
    return value ^ (value >> 16);
}

QString keyOf(const SampleSpec &spec)
{
    QStringList parts = {spec.extension, spec.codec, spec.name};
    parts << QString::number(static_cast<int>(spec.signal))
          << QString::number(spec.frequency, 'g', 17) << QString::number(spec.amplitude, 'g', 17)
          << QString::number(sampleFrames(spec)) << QString::number(spec.rate)
          << QString::number(spec.channels) << QString::number(static_cast<int>(spec.artwork))
          << spec.options;
    for (auto tag = spec.tags.cbegin(); tag != spec.tags.cend(); ++tag)
        parts << tag.key() << tag.value();
    return parts.join(QChar(0x1f));
}

/// The signal as raw interleaved 32-bit floats.
bool writeSignal(const QString &path, const SampleSpec &spec)
{
    const auto frames = sampleFrames(spec);
    std::vector<float> samples;
    samples.reserve(frames * static_cast<std::uint64_t>(spec.channels));
    for (std::uint64_t frame = 0; frame < frames; ++frame)
        for (int channel = 0; channel < spec.channels; ++channel)
            samples.push_back(qToLittleEndian(sampleValue(spec, channel, frame)));
    QFile file(path);
    const auto bytes = static_cast<qint64>(samples.size() * sizeof(float));
    return file.open(QIODevice::WriteOnly) &&
           file.write(reinterpret_cast<const char *>(samples.data()), bytes) == bytes;
}

QString artworkFile()
{
    static const QString path = [] {
        const QString picture = sampleFolder() + "/artwork.png"_L1;
        runFfmpeg({u"-f"_s, u"lavfi"_s, u"-i"_s, u"testsrc=size=64x64"_s, u"-frames:v"_s, u"1"_s,
                   picture});
        return picture;
    }();
    return path;
}

bool encode(const QString &path, const SampleSpec &spec)
{
    const QString signal = sampleFolder() + "/signal.f32"_L1;
    if (!writeSignal(signal, spec)) {
        ADD_FAILURE() << "cannot write " << qPrintable(signal);
        return false;
    }
    QStringList arguments = {u"-f"_s,  u"f32le"_s,
                             u"-ar"_s, QString::number(spec.rate),
                             u"-ac"_s, QString::number(spec.channels),
                             u"-i"_s,  signal};
    if (spec.artwork)
        arguments << u"-i"_s << artworkFile() << u"-map"_s << u"0:a"_s << u"-map"_s << u"1:v"_s
                  << u"-c:v"_s << u"copy"_s << u"-disposition:v"_s << u"attached_pic"_s;
    if (!spec.codec.isEmpty())
        arguments << u"-c:a"_s << spec.codec;
    if (spec.extension == u"aiff"_s)
        arguments << u"-write_id3v2"_s << u"1"_s;
    for (auto tag = spec.tags.cbegin(); tag != spec.tags.cend(); ++tag)
        arguments << u"-metadata"_s << tag.key() + u'=' + tag.value();
    const bool made = runFfmpeg(arguments + spec.options + QStringList{u"file:"_s + path});
    QFile::remove(signal);
    return made;
}

} // namespace

std::vector<SampleSpec> everyFormat()
{
    const QStringList experimental = {u"-strict"_s, u"-2"_s};
    return {{.extension = u"wav"_s},
            {.extension = u"wav"_s, .codec = u"pcm_f32le"_s},
            {.extension = u"wav"_s, .codec = u"pcm_s24le"_s, .channels = 6},
            {.extension = u"wav"_s, .codec = u"adpcm_ms"_s},
            {.extension = u"wav"_s, .codec = u"adpcm_ima_wav"_s},
            {.extension = u"w64"_s},
            {.extension = u"aiff"_s, .artwork = true},
            {.extension = u"au"_s},
            {.extension = u"caf"_s, .codec = u"alac"_s},
            {.extension = u"mp3"_s, .artwork = true},
            {.extension = u"mp2"_s},
            {.extension = u"m4a"_s, .codec = u"aac"_s, .artwork = true},
            {.extension = u"m4a"_s, .codec = u"alac"_s},
            {.extension = u"mp4"_s,
             .codec = u"aac"_s,
             .options = {u"-movflags"_s, u"frag_keyframe+empty_moov"_s}},
            {.extension = u"aac"_s},
            {.extension = u"flac"_s, .artwork = true},
            {.extension = u"ogg"_s, .codec = u"libvorbis"_s},
            {.extension = u"ogg"_s, .codec = u"flac"_s},
            {.extension = u"opus"_s},
            {.extension = u"mka"_s, .codec = u"flac"_s},
            {.extension = u"webm"_s, .codec = u"libopus"_s},
            {.extension = u"tta"_s},
            {.extension = u"wv"_s},
            {.extension = u"ac3"_s},
            {.extension = u"eac3"_s},
            {.extension = u"dts"_s, .rate = 48000, .options = experimental},
            {.extension = u"mlp"_s, .options = experimental},
            {.extension = u"asf"_s, .codec = u"wmav2"_s},
            {.extension = u"voc"_s}};
}

std::uint64_t sampleFrames(const SampleSpec &spec)
{
    return spec.frames != 0 ? spec.frames
                            : static_cast<std::uint64_t>(std::llround(spec.seconds * spec.rate));
}

float sampleValue(const SampleSpec &spec, int channel, std::uint64_t frame)
{
    switch (spec.signal) {
    case SampleSpec::Signal::Sine:
        return static_cast<float>(spec.amplitude *
                                  std::sin(2.0 * std::numbers::pi * spec.frequency *
                                           static_cast<double>(frame) / spec.rate));
    case SampleSpec::Signal::Noise: {
        const auto random =
            hash(static_cast<std::uint32_t>(frame) * 64U + static_cast<std::uint32_t>(channel));
        return static_cast<float>(spec.amplitude * (random / 2147483648.0 - 1.0));
    }
    case SampleSpec::Signal::Ramp:
        return static_cast<float>(static_cast<int>(frame % 65536U) - 32768) / 32768.0F;
    }
    return 0.0F;
}

QString sampleFile(const SampleSpec &spec)
{
    static QHash<QString, QString> made;
    const QString key = keyOf(spec);
    if (const auto known = made.constFind(key); known != made.constEnd())
        return *known;
    const QString folder = sampleFolder() + u'/' + QString::number(made.size());
    const QString path =
        folder + u'/' + (spec.name.isEmpty() ? u"sample"_s : spec.name) + u'.' + spec.extension;
    if (!QDir().mkpath(folder) || !encode(path, spec))
        return {};
    made.insert(key, path);
    return path;
}

bool makeSampleAt(const QString &path, const SampleSpec &spec)
{
    const QString sample = sampleFile(spec);
    QFile::remove(path);
    if (!sample.isEmpty() && QFile::copy(sample, path))
        return true;
    ADD_FAILURE() << "cannot make " << qPrintable(path);
    return false;
}

QByteArray sampleArtwork()
{
    QFile file(artworkFile());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString sampleFolder()
{
    static const QTemporaryDir folder;
    return folder.path();
}

bool runFfmpeg(const QStringList &arguments)
{
    QProcess process;
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(u"ffmpeg"_s,
                  QStringList{u"-v"_s, u"error"_s, u"-nostdin"_s, u"-y"_s} + arguments);
    if (process.waitForFinished(120000) && process.exitStatus() == QProcess::NormalExit &&
        process.exitCode() == 0)
        return true;
    ADD_FAILURE() << "ffmpeg " << qPrintable(arguments.join(u' ')) << ": "
                  << process.readAllStandardError().constData()
                  << qPrintable(process.errorString());
    return false;
}

QString writeSample(const QString &name, const QByteArray &bytes)
{
    const QString path = sampleFolder() + u'/' + name;
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        ADD_FAILURE() << "cannot write " << qPrintable(path);
    return path;
}

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace lyrabox::test
