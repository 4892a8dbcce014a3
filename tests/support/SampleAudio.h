#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

#include <cstdint>

/// Audio files for tests, made by the `ffmpeg` command from a signal that is known sample by
/// sample.
namespace lyrabox::test {

/// What a sample file holds. The defaults are one second of a 440 Hz sine, 16-bit stereo WAV at
/// 44,100 Hz.
///
///     const QString song = sampleFile({.extension = u"mp3"_s, .seconds = 2.0, .tags =
///     {{u"title"_s, u"A"_s}}});
struct SampleSpec {
    enum class Signal {
        Sine,  ///< `frequency` at `amplitude` in every channel
        Noise, ///< white noise, the same on every call; every channel another
        Ramp, ///< frame n has the 16-bit value n modulo 65,536 less 32,768: every frame tells where
              ///< it is
    };

    QString extension = QStringLiteral("wav"); ///< decides the container
    QString codec = {}; ///< of ffmpeg's encoders ("alac", "libopus"); empty: the container's own
    Signal signal = Signal::Sine;
    double frequency = 440.0; ///< hertz
    double amplitude = 0.5;   ///< linear, 1.0 is full scale
    double seconds = 1.0;
    std::uint64_t frames = 0; ///< the exact length; 0: what `seconds` gives
    int rate = 44100;         ///< frames per second
    int channels = 2;
    QMap<QString, QString> tags = {}; ///< "title", "artist", "album", ...
    bool artwork = false;             ///< attaches sampleArtwork(): mp3, m4a, flac, aiff
    QStringList options = {};         ///< further output options: {"-b:a", "256k"}
    QString name = {};                ///< the file's name without extension; empty: "sample"
};

/// The number of frames that `spec` describes.
std::uint64_t sampleFrames(const SampleSpec &spec);

/// The value of the signal before it is encoded.
float sampleValue(const SampleSpec &spec, int channel, std::uint64_t frame);

/// The path of a file as described, made on the first call and kept until the process ends: do not
/// change it, copy it. Each file lies in a folder of its own. An encoder that fails adds a test
/// failure and gives an empty path.
QString sampleFile(const SampleSpec &spec);

/// A copy of a sample at `path`; what was there is replaced. False, with a test failure, when it
/// can't be made.
bool makeSampleAt(const QString &path, const SampleSpec &spec);

/// The picture that `artwork` attaches: a PNG of 64 by 64 pixels.
QByteArray sampleArtwork();

/// A folder of the process's own for whatever else a test wants to write; deleted when the process
/// ends.
QString sampleFolder();

/// Writes a file into that folder; returns its path.
QString writeSample(const QString &name, const QByteArray &bytes);

/// All of a file; empty when it cannot be read.
QByteArray bytesOf(const QString &path);

/// Runs ffmpeg ("-v error -nostdin -y" are added) and waits for it. False, with a test failure that
/// shows what it said, unless it succeeds.
bool runFfmpeg(const QStringList &arguments);

} // namespace lyrabox::test
