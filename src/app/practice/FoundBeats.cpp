#include "app/practice/FoundBeats.h"

#include "platform/analysis/OnsetStrength.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <vector>

namespace lyrabox::foundBeats {

namespace {

constexpr float noteHeight = 2.0F; // on the curve of the beats

std::uint64_t frameOf(std::ptrdiff_t step)
{
    return static_cast<std::uint64_t>(step) * OnsetStrength::hop;
}

LoopRange soundingPart(const SongOnsets &onsets, double sampleRate)
{
    const std::vector<float> curve = beatCurve(onsets.all, stepRate(sampleRate));
    const auto isNote = [](float value) { return value >= noteHeight; };
    const auto first = std::find_if(curve.begin(), curve.end(), isNote);
    if (first == curve.end())
        return Heard().sounding;
    const auto last = std::find_if(curve.rbegin(), curve.rend(), isNote);
    return {frameOf(first - curve.begin()), frameOf(curve.rend() - last)};
}

BeatGrid gridOf(const FollowedBeats &followed, int beatsPerBar)
{
    std::vector<std::uint64_t> frames;
    frames.reserve(followed.beats.size());
    for (const FollowedBeat &beat : followed.beats)
        frames.push_back(beat.frame);
    return fittedGrid(frames, followed.one, beatsPerBar);
}

/// The beats that were tapped, for a song that has no others.
BeatGrid tappedGrid(const TappedBeats &taps, int beatsPerBar)
{
    std::vector<std::uint64_t> frames;
    std::size_t one = 0;
    for (int beat = -taps.before; beat <= taps.after; ++beat) {
        const double frame = std::round(taps.frame(beat));
        if (frame < 0.0)
            continue;
        if (beat >= 0 && beat % beatsPerBar == 0 && one == 0)
            one = frames.size();
        frames.push_back(static_cast<std::uint64_t>(frame));
    }
    return fittedGrid(frames, one, beatsPerBar);
}

} // namespace

Heard heardIn(const SongSamples &song, const std::stop_token &stop)
{
    try {
        Heard heard;
        auto onsets = std::make_shared<SongOnsets>(songOnsets(song, stop));
        heard.sounding = soundingPart(*onsets, song.sampleRate);
        heard.onsets = std::move(onsets);
        return heard;
    } catch (const std::bad_alloc &) {
        return {.onsets = std::make_shared<SongOnsets>()};
    }
}

BeatGrid ofTaps(const SongSamples &song, const SongOnsets &onsets, const TappedBeats &taps,
                int beatsPerBar, const std::stop_token &stop)
{
    try {
        const BeatGrid grid = gridOf(followTaps(song, onsets, taps, stop), beatsPerBar);
        return grid.isEmpty() && !stop.stop_requested() ? tappedGrid(taps, beatsPerBar) : grid;
    } catch (const std::bad_alloc &) {
        return {};
    }
}

BeatGrid guessed(const SongSamples &song, const SongOnsets &onsets, std::optional<double> tempo,
                 int beatsPerBar, const std::stop_token &stop)
{
    try {
        return gridOf(suggestBeats(song, onsets, tempo, stop), beatsPerBar);
    } catch (const std::bad_alloc &) {
        return {};
    }
}

} // namespace lyrabox::foundBeats
