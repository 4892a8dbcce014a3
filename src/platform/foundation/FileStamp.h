#pragma once

#include <QString>

#include <compare>
#include <cstdint>
#include <optional>

namespace lyrabox::files {

/// Tells files apart, and one state of a file from another, without reading them.
struct FileStamp {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;  ///< within the device
    std::int64_t size = 0;    ///< in bytes
    std::int64_t changed = 0; ///< when the content last changed, in nanoseconds since 1970

    auto operator<=>(const FileStamp &) const = default;
};

/// The stamp of the regular file at `path`, or of the one that a link there leads to. None if there
/// is none. Asks the disk. Any thread.
std::optional<FileStamp> fileStamp(const QString &path);

/// A stamp that also changes with the file's name and permissions, and that no program can put
/// back. File systems count time in steps of some milliseconds. Two changes within one step that
/// keep the size look like one.
struct FileIdentity {
    FileStamp stamp;
    std::int64_t attributesChanged = 0; ///< in nanoseconds since 1970; also rises with the content

    friend bool operator==(const FileIdentity &, const FileIdentity &) = default;
};

/// The identity of the file at `path`, under the same conditions.
std::optional<FileIdentity> fileIdentity(const QString &path);

} // namespace lyrabox::files
