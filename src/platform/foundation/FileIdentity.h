#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace lyrabox::files {

/// What tells a file and its content from others: the same identity at two moments means that the
/// content has not changed between them. Every change of content, permissions or name changes it.
/// The times are in nanoseconds, but file systems count in steps of some milliseconds. Two changes
/// within one step that keep the size look like one.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t size = 0;         ///< bytes
    std::int64_t contentTime = 0;  ///< when the content changed last; programs can set it
    std::int64_t metadataTime = 0; ///< when content or attributes changed last; nobody can set it

    friend bool operator==(const FileIdentity &, const FileIdentity &) = default;
};

/// The identity of the file at `path`. Links are followed. None if its attributes cannot be read.
/// Asks the disk and may block; any thread.
std::optional<FileIdentity> fileIdentity(const QString &path);

} // namespace lyrabox::files
