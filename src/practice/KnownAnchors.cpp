#include "practice/KnownAnchors.h"

#include "practice/PracticeFiles.h"

#include <QDir>

#include <utility>
#include <vector>

namespace lyrabox {

void KnownAnchors::update(const QString &folder, const std::stop_token &stop)
{
    std::map<QString, Known> before = std::exchange(m_known, {});
    const QDir directory(folder);
    for (const QString &name : directory.entryList(QDir::Files, QDir::Name)) {
        if (!isPracticeFileName(name))
            continue;
        const QString path = directory.filePath(name);
        const auto known = before.find(name);
        const auto stamp = files::fileStamp(path);
        if (known != before.end() && stamp == known->second.stamp) {
            m_known.insert(before.extract(known));
            continue;
        }
        if (stop.stop_requested())
            continue; // what is known already stays
        const PracticeFile file = loadPractice(path);
        if (!file.stamp)
            continue;
        Known &entry = m_known[name];
        entry.stamp = *file.stamp;
        entry.name = name;
        if (!file.reading || file.reading->isNewer)
            continue;
        const PracticeRecord &record = file.reading->record;
        if (!record.song.audio.isEmpty())
            entry.name = record.song.audio;
        if (!record.loops.empty() || !record.markers.empty() || !record.beats.grid.isEmpty())
            entry.anchors = record.song.anchors;
    }
}

std::optional<KnownCopy> KnownAnchors::find(const QString &folder, SongPrint &song,
                                            const std::function<bool(const QString &)> &isWanted,
                                            const std::stop_token &stop)
{
    update(folder, stop);
    AnchorSearch search;
    std::vector<std::pair<QString, QString>> sets; // file and name
    for (const auto &[file, known] : m_known) {
        if (known.anchors.empty() || !isWanted(known.name))
            continue;
        search.add(known.anchors);
        sets.emplace_back(file, known.name);
    }
    const std::vector<AnchorSearch::Found> found = search.find(song, stop);
    if (found.empty() || stop.stop_requested())
        return std::nullopt;
    const auto &[file, name] = sets.at(found.front().set);
    return KnownCopy{.file = file, .name = name, .offset = found.front().offset};
}

} // namespace lyrabox
