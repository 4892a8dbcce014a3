#pragma once

#include "platform/encoding/AudioFileWriter.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <ostream>
#include <vector>

namespace lyrabox {

inline void PrintTo(SongFormat format, std::ostream *out)
{
    *out << suffixOf(format) << ' ' << static_cast<int>(format);
}

} // namespace lyrabox

namespace lyrabox::test {

struct Sound {
    std::vector<float> left;
    std::vector<float> right;
};

/// Two tones, a different one on each side, with noise 60 dB below full scale.
inline Sound madeSound(std::size_t frames)
{
    Sound sound;
    std::uint32_t noise = 1;
    const auto next = [&noise] {
        noise = noise * 1664525U + 1013904223U;
        return (static_cast<float>(noise >> 8) / 8388608.0F - 1.0F) * 0.001F;
    };
    for (std::size_t i = 0; i < frames; ++i) {
        const auto at = static_cast<float>(i % 44100);
        sound.left.push_back(0.4F * std::sin(at * 0.04F) + next());
        sound.right.push_back(0.3F * std::sin(at * 0.07F) + next());
    }
    return sound;
}

/// Writes in pieces of uneven length. Stops at the first failure.
inline Status writeAll(SongWriter &writer, const Sound &sound)
{
    std::uint32_t piece = 1;
    for (std::size_t at = 0; at < sound.left.size();) {
        const auto count =
            static_cast<std::uint32_t>(std::min<std::size_t>(piece, sound.left.size() - at));
        if (const Status result =
                writer.write(sound.left.data() + at, sound.right.data() + at, count))
            return result;
        at += count;
        piece = piece * 7U % 5003U;
    }
    return status::noError;
}

/// Writes a whole file.
inline Status writeFile(const QString &path, SongFormat format, const Sound &sound,
                        const SongDetails &details = {})
{
    AudioFileWriter writer;
    if (const Status result = writer.open(path, format, details))
        return result;
    if (const Status result = writeAll(writer, sound))
        return result;
    return writer.finish();
}

/// Everything in a folder, also what is hidden.
inline QStringList everythingIn(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System |
                                  QDir::NoDotAndDotDot);
}

} // namespace lyrabox::test
