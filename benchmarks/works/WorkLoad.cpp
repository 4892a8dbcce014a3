// Loads a song into the engine. The peer is the ffmpeg program, which the caller runs itself. A
// short song of the same kind is loaded first, because the program has usually loaded one before.
// Its name is the song's with ".short" added.

#include "Work.h"

#include "engine/AudioEngine.h"
#include "support/FakeAudioUnits.h"

using namespace lyrabox;

int main(int argc, char **argv)
{
    const work::Arguments arguments = work::arguments(argc, argv);
    if (!arguments.ours)
        work::fail("the peer is ffmpeg");
    const test::FakeAudio audio;
    engine::setAudioUnitFactory(audio.factory());
    if (engine::buildAudioSystem() != status::noError)
        work::fail("the engine was not built");
    const QUrl file = QUrl::fromLocalFile(QString::fromStdString(arguments.argument));
    if (engine::loadAudioFile(QUrl::fromLocalFile(file.toLocalFile() + QStringLiteral(".short"))) !=
        status::noError)
        work::fail("the short song was not loaded");
    Status result = status::noError;
    const work::Cost cost = work::measure([&] { result = engine::loadAudioFile(file); });
    if (result != status::noError)
        work::fail("the song was not loaded");
    work::report(cost, static_cast<double>(engine::totalFrames()));
    engine::tearDownAudioSystem();
    return EXIT_SUCCESS;
}
