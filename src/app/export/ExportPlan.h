#pragma once

#include "app/practice/MetronomeSettings.h"
#include "engine/LoopRange.h"
#include "export/ExportRequest.h"
#include "practice/BeatGrid.h"
#include "practice/TrainerSettings.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

/// What an export contains. Pure functions and plain values. Frames are those of the song.
namespace lyrabox::exportPlan {

/// How the player sounds now.
struct Heard {
    double speed = 100.0; ///< percent
    double pitch = 0.0;   ///< cents
    equalizer::Levels levels{};
    ChannelTools channels = {};
    BeatGrid beats = {};                                ///< empty if they are not known
    std::shared_ptr<const ClickTable> clicks = nullptr; ///< null: no click
    std::optional<CountInSettings> countIn = {};        ///< none: no count-in
    ClickSound clickSound = {};                         ///< of the click and of count-ins
};

/// The whole song, or a loop of it.
struct Part {
    QString name = {}; ///< of the loop; empty for the song
    LoopRange range{0, ExportPass::songEnd};
    std::optional<int> speed = {}; ///< percent; none: the player's
    std::optional<int> pitch = {}; ///< cents; none: the player's
    TrainerSettings trainer = {};  ///< for the ladder
};

/// What the user wants of a part.
struct Wanted {
    static constexpr int mostTimes = 99;

    int times = 1;         ///< 1 to mostTimes; the ladder has its own number
    bool asLadder = false; ///< all passes of the trainer's ladder instead
    bool hasSpeedAndPitch = true;
    bool hasEqualizer = true;
    bool hasChannels = true;
    bool hasClick = true; ///< with the count-in
};

/// The passes of a ladder on which every pass is right, with their count-ins, rests and run-ups.
/// The ladder ends when it has played its last speed as often as needed. No passes if the ladder is
/// in beats per minute and the beats are not known.
std::vector<ExportPass> ladderPasses(const LoopRange &loop, const TrainerSettings &settings,
                                     const BeatGrid &beats);

/// How a part is written. Source, target, format and details are left empty.
ExportRequest request(const Part &part, const Wanted &wanted, const Heard &heard);

/// The speed at which a part is written, in percent. With the ladder: its first speed.
double speedOf(const Part &part, const Wanted &wanted, const Heard &heard);

/// What is known of a file before it is written.
struct Estimate {
    double seconds = 0.0;     ///< its length
    double bytes = 0.0;       ///< roughly
    double workSeconds = 0.0; ///< until it is ready, roughly

    Estimate &operator+=(const Estimate &other);
};
Estimate estimate(const ExportRequest &request, std::uint64_t songFrames);

/// "Song - Loop 75 %", or with the ladder "Song - Loop 60-100 %".
QString title(const QString &song, const Part &part, const ExportRequest &request);

/// Makes names that are the same different: "Riff", "Riff (2)". Upper and lower case are the same.
/// Long names are shortened, so that files can have them.
QStringList different(QStringList names);

} // namespace lyrabox::exportPlan
