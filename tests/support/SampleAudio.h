#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

/// Audio files for tests. The `ffmpeg` command makes them from a signal whose samples are known.
namespace lyrabox::test {

/// The content of a sample file. By default it is one second of a 440 Hz sine as 16-bit stereo WAV
/// at 44,100 Hz.
///
///     const QString song = sampleFile({.extension = u"mp3"_s, .seconds = 2.0, .tags =
///     {{u"title"_s, u"A"_s}}});
struct SampleSpec {
    enum class Signal {
        Sine,  ///< `frequency` at `amplitude` in every channel
        Noise, ///< white noise, different in each channel but the same on every call
        Ramp,  ///< frame n has the 16-bit value (n mod 65,536) - 32,768, which shows its place
    };

    QString extension = QStringLiteral("wav"); ///< chooses the container
    QString codec =
        {}; ///< an encoder of ffmpeg ("alac", "libopus"); empty: the container's default
    Signal signal = Signal::Sine;
    double frequency = 440.0; ///< hertz
    double amplitude = 0.5;   ///< linear, 1.0 is full scale
    double seconds = 1.0;
    std::uint64_t frames = 0; ///< the exact length; 0: `seconds` decides
    int rate = 44100;         ///< frames per second
    int channels = 2;
    QMap<QString, QString> tags = {}; ///< "title", "artist", "album", ...
    bool artwork = false;             ///< attaches sampleArtwork(); for mp3, m4a, flac and aiff
    QStringList options = {};         ///< further output options, such as {"-b:a", "256k"}
    QString name = {};                ///< the name of the file without extension; empty: "sample"
};

/// One sample for each container and codec that the program must read, each of one second.
std::vector<SampleSpec> everyFormat();

/// The number of frames that `spec` describes.
std::uint64_t sampleFrames(const SampleSpec &spec);

/// The value of the signal before it is encoded.
float sampleValue(const SampleSpec &spec, int channel, std::uint64_t frame);

/// The path of a file with that content. The file is made on the first call and kept until the
/// process ends, in a folder of its own. Do not change it; make a copy. If the encoder fails, adds
/// a test failure and returns an empty path.
QString sampleFile(const SampleSpec &spec);

/// Copies a sample to `path` and replaces a file there. False, with a test failure, if that fails.
bool makeSampleAt(const QString &path, const SampleSpec &spec);

/// The picture that `artwork` attaches: a PNG of 64 by 64 pixels.
QByteArray sampleArtwork();

/// A folder for other files of tests. It belongs to the process and is deleted when the process
/// ends.
QString sampleFolder();

/// Writes a file into that folder and returns its path.
QString writeSample(const QString &name, const QByteArray &bytes);

/// The content of a file; empty if it cannot be read.
QByteArray bytesOf(const QString &path);

/// Runs ffmpeg with `arguments` and "-v error -nostdin -y", and waits for its end. False, with a
/// test failure that shows its output, if it fails.
bool runFfmpeg(const QStringList &arguments);

} // namespace lyrabox::test
