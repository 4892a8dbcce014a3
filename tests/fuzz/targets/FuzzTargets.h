#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// One function per kind of untrusted input. Each takes any bytes, gives them to the program's
/// readers as a file, a feed or a text, and checks every result. They run under libFuzzer
/// (scripts/fuzz). The test suite runs them on the inputs that libFuzzer has found.
namespace lyrabox::fuzz {

using Bytes = std::span<const std::uint8_t>;

struct Target {
    const char *name; ///< Also the name of its folder in tests/data/fuzz.
    void (*run)(Bytes bytes);
};

const std::vector<Target> &targets();

void audio(Bytes bytes);        ///< Opens and decodes a song.
void identity(Bytes bytes);     ///< Hashes the sound of a song.
void tags(Bytes bytes);         ///< Opens a song for its tags and artwork.
void artwork(Bytes bytes);      ///< Decodes a picture.
void propertyList(Bytes bytes); ///< Reads either form, writes it and reads it again.
void settings(Bytes bytes);     ///< Starts and ends with the three settings files.
void preferences(Bytes bytes);  ///< The user defaults, and the preferences that name the library.
void musicLibrary(Bytes bytes);
void rhythmbox(Bytes bytes); ///< Both files in sequence, separated by a NUL.
void appcast(Bytes bytes);
void practice(Bytes bytes); ///< Reads a practice file, its index or the history, and writes it.
void sharing(Bytes bytes);  ///< Reads a shared practice file or a label track.
void fileUrl(Bytes bytes);
void midi(Bytes bytes);   ///< Plays bytes of a MIDI device on pedals that have commands.
void pedals(Bytes bytes); ///< Reads a file of pedals and keys, changes it and writes it.

/// Checks a condition of a target. The runner defines what happens if it does not hold.
void require(bool holds, const char *what);

/// Tells the fuzzer that this run showed behaviour of its own kind, so that it keeps the input even
/// if a library is not instrumented. Does nothing outside the fuzzer.
void noteBehaviour(std::size_t kind);

/// Writes `bytes` to a file called `name` in a folder of this process and returns its path.
/// Replaces a file of that name.
QString writtenFile(const QString &name, Bytes bytes);

/// The folder of writtenFile().
QString scratchFolder();

inline QByteArray byteArray(Bytes bytes)
{
    return {reinterpret_cast<const char *>(bytes.data()), static_cast<qsizetype>(bytes.size())};
}

} // namespace lyrabox::fuzz
