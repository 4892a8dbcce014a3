// From a folder of songs to a filled table. The peer opens every file with FFmpeg and analyses its
// streams.

#include "Work.h"
#include "WorkLists.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <filesystem>

using namespace lyrabox;

namespace {

void scanOurs(const std::string &folder)
{
    work::TrackTable list;
    const QUrl url = QUrl::fromLocalFile(QString::fromStdString(folder));
    const work::Cost cost = work::measure([&] {
        list.tracks.scanForAudioFilesStartingAtURLFolderID(url, url.toLocalFile());
        list.paint();
    });
    work::report(cost, static_cast<double>(list.tracks.trackCount()));
}

void scanPeer(const std::string &folder)
{
    av_log_set_level(AV_LOG_QUIET);
    double count = 0.0;
    const work::Cost cost = work::measure([&] {
        for (const auto &entry : std::filesystem::directory_iterator(folder)) {
            AVFormatContext *context = nullptr;
            if (avformat_open_input(&context, entry.path().c_str(), nullptr, nullptr) != 0)
                continue;
            count += avformat_find_stream_info(context, nullptr) >= 0 ? 1.0 : 0.0;
            avformat_close_input(&context);
        }
    });
    work::report(cost, count);
}

} // namespace

int main(int argc, char **argv)
{
    const work::Arguments arguments = work::arguments(argc, argv);
    if (arguments.ours) {
        work::startApplication();
        scanOurs(arguments.argument);
    } else {
        scanPeer(arguments.argument);
    }
    return EXIT_SUCCESS;
}
