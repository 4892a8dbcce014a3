// hostile_probe SECONDS WARM-UP LIST: loads every file in LIST, one path per line, as the player
// does: tags, samples and artwork. Each runs in a process of its own with SECONDS of processor
// time. Prints a line per file: the signal that ended the process or 0, the status of opening for
// tags, the status of loading, the frames, the kibibytes by which the process grew, and the
// milliseconds of processor time. WARM-UP is a song that is loaded first, so that the libraries
// have done their one-time work. An access to "/hostile-probe-starts" marks the start in a trace.

#include "engine/Artwork.h"
#include "engine/AudioEngine.h"
#include "platform/audio/DecodingModule.h"
#include "support/FakeAudioUnits.h"

#include <QFile>
#include <QImage>
#include <QUrl>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace lyrabox;

namespace {

struct Report {
    Status tags = 0;
    Status load = 0;
    unsigned long long frames = 0;
    long startKibibytes = 0;
};

/// The largest amount of memory that this process has used.
long peakKibibytes()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

Report play(const QString &path)
{
    Report report;
    const DecodingModule &decoders = decodingModule(); // Loaded first, so that the libraries are
                                                       // not counted as the song's memory.
    report.startKibibytes = peakKibibytes();
    {
        const std::unique_ptr<SongReader> reader = decoders.makeSongReader();
        report.tags = reader->open(path, SongReader::Depth::Tags);
        reader->infoDictionary();
    }
    report.load = engine::loadAudioFile(QUrl::fromLocalFile(path));
    report.frames = engine::totalFrames();
    decodedArtwork(engine::albumArtData());
    return report;
}

void probe(const std::string &path, rlim_t seconds)
{
    int ends[2];
    if (pipe(ends) != 0)
        std::abort();
    const pid_t child = fork();
    if (child == 0) {
        const rlimit limit = {seconds, seconds + 1};
        setrlimit(RLIMIT_CPU, &limit);
        const rlimit noCore = {0, 0};
        setrlimit(RLIMIT_CORE, &noCore);
        const Report report = play(QFile::decodeName(path.c_str()));
        if (write(ends[1], &report, sizeof report) != sizeof report)
            _exit(1);
        _exit(0);
    }
    close(ends[1]);
    Report report;
    const bool hasReport = read(ends[0], &report, sizeof report) == sizeof report;
    close(ends[0]);
    int state = 0;
    rusage usage = {};
    wait4(child, &state, 0, &usage);
    const int signal = WIFSIGNALED(state) ? WTERMSIG(state) : hasReport ? 0 : -1;
    const long milliseconds = (usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1000 +
                              (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1000;
    std::printf("%d %d %d %llu %ld %ld\n", signal, report.tags, report.load, report.frames,
                hasReport ? usage.ru_maxrss - report.startKibibytes : 0, milliseconds);
    std::fflush(stdout);
}

} // namespace

int main(int count, char **arguments)
{
    if (count != 4)
        return 2;
    test::FakeAudio audio; // Keeps the probe away from the sound server.
    engine::setAudioUnitFactory(audio.factory());
    if (engine::buildAudioSystem() != 0 || play(QFile::decodeName(arguments[2])).frames == 0)
        return 2;
    engine::emptyAudioBuffers();
    std::ifstream list(arguments[3]);
    if (access("/hostile-probe-starts", F_OK) == 0)
        return 2;
    for (std::string path; std::getline(list, path);)
        probe(path, std::strtoul(arguments[1], nullptr, 10));
    return 0;
}
