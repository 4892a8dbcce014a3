#pragma once

#include "platform/audio/SongWriter.h"
#include "platform/encoding/FFmpeg.h"

#include <QByteArray>
#include <QString>

#include <cstdint>

namespace lyrabox::encoding {

/// A new file as FFmpeg's output, which has no name until it is complete. If the file system can,
/// nothing remains of it after a kill; otherwise a hidden file ".lyrabox-N-N.part" does. One thread
/// at a time.
class TargetFile {
public:
    TargetFile() = default;
    ~TargetFile();
    TargetFile(const TargetFile &) = delete;
    TargetFile &operator=(const TargetFile &) = delete;

    /// Whether the file is without a name until commit(). Tests ask for Never, as on file systems
    /// that make no such files.
    enum class Unnamed { IfPossible, Never };

    /// Begins the file that commit() puts at `path`.
    Status create(const QString &path, Unnamed unnamed = Unnamed::IfPossible);

    AVIOContext *context() const { return m_context.get(); }

    /// Why a write failed first; noError if none did.
    Status error() const { return m_error; }

    /// Flushes the file to the disk and puts it at its path. Call it once.
    Status commit();

private:
    Status openUnnamed();
    Status openNamed();
    Status link();
    QByteArray nextTemporary();
    int write(const std::uint8_t *bytes, int count);
    std::int64_t seek(std::int64_t offset, int whence) const;

    QByteArray m_target;
    QByteArray m_folder;
    QByteArray m_temporary; ///< empty: the file has no name
    int m_file = -1;
    Status m_error = status::noError;
    std::int64_t m_written = 0;
    std::int64_t m_pushed = 0; ///< bytes that the system was told to write to the disk
    AvPointer<AVIOContext> m_context;
};

/// The status for an error number of the system.
Status statusOfError(int error);

} // namespace lyrabox::encoding
