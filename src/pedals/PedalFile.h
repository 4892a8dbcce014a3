#pragma once

#include "pedals/PedalMap.h"

#include <QString>

/// `Practice/Pedals.json` on the disk. Main thread.
namespace lyrabox {

/// The name of the file in the folder of practice files.
inline constexpr QLatin1StringView pedalsFileName{"Pedals.json"};

/// The file of pedals and keys: what was read, and how it may be written.
class PedalFile {
public:
    enum class Problem {
        None,
        Unreadable,   ///< it is no such file; it is kept under another name when it is written
        PartlyRead,   ///< something in it is not valid; likewise
        NewerVersion, ///< it is used, and never written
        NotWritten,   ///< the disk did not take it
    };

    /// Reads the file in `folder`. Without a file, or without a folder, the map is empty.
    explicit PedalFile(const QString &folder);

    const PedalMap &map() const { return m_map; }
    Problem problem() const { return m_problem; }

    /// Whether the map can be changed.
    bool isReadOnly() const { return m_problem == Problem::NewerVersion; }

    /// Replaces the map, and writes it, if it is another one. False if it cannot be written; the
    /// map holds until the program ends, except that one of a newer version stays as it is.
    bool write(const PedalMap &map);

private:
    QString m_folder;
    PedalMap m_map;
    Problem m_problem = Problem::None;
    bool m_keepsOld = false;
};

} // namespace lyrabox
