#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// One function per kind of untrusted input. Each takes any bytes, hands them to the readers of the
/// program as a file, a feed or a text, and checks what must hold of every result. They run under
/// libFuzzer (scripts/fuzz) and, over the inputs that were found so, in the test suite.
namespace lyrabox::fuzz {

using Bytes = std::span<const std::uint8_t>;

struct Target {
    const char *name; ///< also of its folder in tests/data/fuzz
    void (*run)(Bytes bytes);
};

const std::vector<Target> &targets();

void audio(Bytes bytes);        ///< opens and decodes a song
void tags(Bytes bytes);         ///< opens a song for its tags and artwork
void artwork(Bytes bytes);      ///< decodes a picture
void propertyList(Bytes bytes); ///< reads either form, writes, reads again
void settings(Bytes bytes);     ///< starts and ends with the three settings files
void preferences(Bytes bytes);  ///< the user defaults and the preferences that name the library
void musicLibrary(Bytes bytes);
void rhythmbox(Bytes bytes); ///< both files, one after the other with a NUL between them
void appcast(Bytes bytes);
void fileUrl(Bytes bytes);

/// What a target demands; whoever runs it says what happens when it does not hold.
void require(bool holds, const char *what);

/// Tells the fuzzer that this run did something of its own kind, so that it keeps the input even
/// where a library is not instrumented. Elsewhere nothing.
void noteBehaviour(std::size_t kind);

/// The path of a file called `name` with these bytes, in a folder of the process's own; replaces
/// the one of that name.
QString writtenFile(const QString &name, Bytes bytes);

/// The folder of writtenFile().
QString scratchFolder();

inline QByteArray byteArray(Bytes bytes)
{
    return {reinterpret_cast<const char *>(bytes.data()), static_cast<qsizetype>(bytes.size())};
}

} // namespace lyrabox::fuzz
