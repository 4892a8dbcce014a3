// Finds the loops and markers of a song. The argument says how: "open" opens a song that did not
// move since its 500 loops and 2,000 markers were kept. "keep:FOLDER:SONG" only keeps that many for
// a song, in a practice folder. Anything else is the path of a song, which is hashed.

#include "Work.h"

#include "platform/decoding/AudioFileReader.h"
#include "practice/PracticeStore.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <optional>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

void keepFullRecord(const QString &folder, const QString &song)
{
    PracticeRecord record;
    for (std::uint64_t i = 0; i < PracticeLimits::loops; ++i)
        record.loops.push_back({.name = u"The passage in bar %1"_s.arg(i),
                                .from = i * 20000,
                                .to = i * 20000 + 90000,
                                .colour = static_cast<int>(i % 8) + 1,
                                .note = u"Left hand alone, then both \u2013 softly"_s,
                                .speed = 75});
    for (std::uint64_t i = 0; i < PracticeLimits::markers; ++i)
        record.markers.push_back({.at = i * 5000, .name = u"Marker %1"_s.arg(i)});
    record.song.audio = u"0123456789abcdef0123456789abcdef01234567"_s;
    PracticeIndex index;
    index.put(files::fileStamp(song).value(), u"Full.json"_s);
    if (!writePractice({.folder = folder,
                        .name = u"Full.json"_s,
                        .text = practiceText(record),
                        .index = index.text()})
             .isWritten)
        work::fail("cannot write the practice file");
}

void measureOpening()
{
    const QTemporaryDir home;
    const QString song = home.filePath(u"song.mp3"_s);
    if (!QFile(song).open(QIODevice::WriteOnly))
        work::fail("cannot write the song");
    keepFullRecord(home.path(), song);
    BackgroundRunner runner;
    std::optional<PracticeStore> store;
    std::size_t entries = 0;
    const work::Cost cost = work::measureRepeated(
        [&] {
            store.reset();
            store.emplace(home.path(), SongReaderFactory(), runner);
        },
        [&] {
            store->openSong({.path = song, .title = {}, .artist = {}});
            entries = store->record().loops.size() + store->record().markers.size();
        });
    work::report(cost, static_cast<double>(entries));
}

void keep(const QStringList &places)
{
    if (places.size() != 3 || !QDir().mkpath(places[1]))
        work::fail("usage: keep:FOLDER:SONG");
    keepFullRecord(places[1], places[2]);
    work::report({}, static_cast<double>(PracticeLimits::loops + PracticeLimits::markers));
}

void measureHashing(const QString &song)
{
    std::optional<QByteArray> hash;
    const work::Cost cost =
        work::measureRepeated([] {}, [&] { hash = AudioFileReader().payloadHash(song, {}); });
    work::report(cost, hash ? 1.0 : 0.0);
}

} // namespace

int main(int argc, char **argv)
{
    const work::Arguments arguments = work::arguments(argc, argv);
    work::startApplication();
    if (arguments.argument == "open")
        measureOpening();
    else if (arguments.argument.starts_with("keep:"))
        keep(QString::fromStdString(arguments.argument).split(u':'));
    else
        measureHashing(QString::fromStdString(arguments.argument));
    return EXIT_SUCCESS;
}
