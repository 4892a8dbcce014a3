#include "pedals/PedalFile.h"

#include "pedals/PedalText.h"
#include "platform/foundation/FileReplacement.h"

#include <QDir>
#include <QFile>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

PedalFile::PedalFile(const QString &folder) : m_folder(folder)
{
    QFile file(QDir(folder).filePath(pedalsFileName));
    if (folder.isEmpty() || !file.exists())
        return;
    // One byte more than the limit tells a file that is too long.
    const bool isOpen = file.open(QIODevice::ReadOnly);
    const auto reading = isOpen ? readPedals(file.read(PedalLimits::fileBytes + 1)) : std::nullopt;
    if (!reading) {
        m_problem = Problem::Unreadable;
        m_keepsOld = true;
        return;
    }
    m_map = reading->map;
    m_keepsOld = !reading->isWhole;
    m_problem = reading->isNewer   ? Problem::NewerVersion
                : reading->isWhole ? Problem::None
                                   : Problem::PartlyRead;
}

bool PedalFile::write(const PedalMap &map)
{
    if (isReadOnly())
        return false;
    if (map == m_map && m_problem != Problem::NotWritten)
        return true;
    m_map = map;
    const QString path = QDir(m_folder).filePath(pedalsFileName);
    bool isWritten = !m_folder.isEmpty() && QDir().mkpath(m_folder);
    if (isWritten && m_keepsOld && QFile::exists(path)) {
        isWritten = files::keepAside(path, u"unreadable"_s);
        m_keepsOld = !isWritten;
    }
    isWritten = isWritten && files::replaceFile(path, pedalsText(map));
    m_problem = isWritten ? Problem::None : Problem::NotWritten;
    return isWritten;
}

} // namespace lyrabox
