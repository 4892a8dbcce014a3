// Exports a song at 75 % with an equalizer curve. The argument is FORMAT:FILE; FORMAT is a suffix. The
// amount is the length of the new file in seconds. The time is that of the processor, and that of the
// encoder is part of it.

#include "Work.h"

#include "export/SongExport.h"

#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>
#include <ctime>

using namespace lyrabox;

namespace {

double processorSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

} // namespace

int main(int argc, char **argv)
{
    const work::Arguments arguments = work::arguments(argc, argv);
    const std::size_t colon = arguments.argument.find(':');
    if (!arguments.ours || colon == std::string::npos)
        work::fail("there is no peer; the argument is FORMAT:FILE");
    const std::string suffix = arguments.argument.substr(0, colon);
    const auto *const format =
        std::find_if(allSongFormats.begin(), allSongFormats.end(),
                     [&suffix](SongFormat each) { return suffix == suffixOf(each); });
    if (format == allSongFormats.end())
        work::fail("no such format");

    const QTemporaryDir folder;
    ExportRequest request{.source = QString::fromStdString(arguments.argument.substr(colon + 1)),
                          .target = folder.filePath(QStringLiteral("song")),
                          .format = *format,
                          .passes = {{.rate = 0.75F}}};
    for (std::size_t band = 2; band < request.levels.size(); band += 3)
        request.levels[band] = band % 2 == 0 ? 6.0F : -6.0F;
    double seconds = 0.0;
    Status result = status::noError;
    work::Cost cost = work::measure([&] {
        const double before = processorSeconds();
        result = exportSong(request, platformExportTools(), {}, [](double) {});
        seconds = processorSeconds() - before;
    });
    if (result != status::noError)
        work::fail("the song was not exported");
    cost.seconds = seconds;
    const auto reader = platformExportTools().reader();
    if (reader->open(request.target, SongReader::Depth::Samples) != status::noError ||
        reader->setClientDataFormat(canonicalStreamFormat()) != status::noError)
        work::fail("the new file cannot be read");
    work::report(cost, static_cast<double>(reader->estimatedFrames().value_or(0)) / 44100.0);
    return EXIT_SUCCESS;
}
