#pragma once

#include "Work.h"

#include <QByteArray>
#include <QFile>
#include <QString>

#include <cmath>
#include <cstdint>
#include <vector>

namespace lyrabox::work {

/// Writes a WAV file of 16 bits at 44,100 Hz. Ends the process if that fails.
inline void writeWave(const QString &path, const std::vector<float> &left,
                      const std::vector<float> &right)
{
    QByteArray samples;
    samples.reserve(static_cast<qsizetype>(left.size() * 4));
    for (std::size_t i = 0; i < left.size(); ++i) {
        for (const float value : {left[i], right[i]}) {
            const auto sample = static_cast<unsigned>(std::lround(value * 32767.0F));
            samples += static_cast<char>(sample & 0xFFU);
            samples += static_cast<char>(sample >> 8U & 0xFFU);
        }
    }
    const auto number = [](qsizetype value) {
        QByteArray bytes;
        for (int shift = 0; shift < 32; shift += 8)
            bytes += static_cast<char>(static_cast<std::uint64_t>(value) >> shift & 0xFFU);
        return bytes;
    };
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        fail("cannot write the pieces");
    file.write("RIFF" + number(samples.size() + 36) + "WAVEfmt " + number(16) +
               QByteArray("\x01\x00\x02\x00", 4) + number(44100) + number(44100 * 4) +
               QByteArray("\x04\x00\x10\x00", 4) + "data" + number(samples.size()) + samples);
}

} // namespace lyrabox::work
