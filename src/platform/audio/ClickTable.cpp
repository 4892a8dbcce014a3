#include "platform/audio/ClickTable.h"

#include <algorithm>

namespace lyrabox {

namespace {

void addSubdivisions(ClickTable &table, const SongBeat &beat, std::uint64_t next, int subdivision)
{
    const std::uint64_t length = next - beat.frame;
    const auto parts = static_cast<std::uint64_t>(subdivision);
    if (length / parts < closestClicks)
        return;
    for (std::uint64_t part = 1; part < parts; ++part)
        table.clicks.push_back({.frame = beat.frame + (length * part + parts / 2) / parts,
                                .kind = ClickKind::Subdivision,
                                .beat = beat.beat});
}

} // namespace

std::shared_ptr<const ClickTable> clickTable(std::span<const SongBeat> beats,
                                             const ClickPattern &pattern)
{
    const int subdivision = std::clamp(pattern.subdivision, 1, ClickPattern::maximumSubdivision);
    auto table = std::make_shared<ClickTable>();
    table->barsOn =
        static_cast<std::uint32_t>(std::clamp(pattern.barsOn, 1, ClickPattern::maximumBars));
    table->barsOff =
        static_cast<std::uint32_t>(std::clamp(pattern.barsOff, 0, ClickPattern::maximumBars));

    std::vector<SongBeat> kept;
    kept.reserve(beats.size());
    for (const SongBeat &beat : beats) {
        const bool isFarEnough = kept.empty() || (beat.frame > kept.back().frame &&
                                                  beat.frame - kept.back().frame >= closestClicks);
        if (isFarEnough)
            kept.push_back(beat);
    }
    for (std::size_t i = 0; i < kept.size(); ++i) {
        const SongBeat &beat = kept[i];
        if (pattern.onlyBackbeats && beat.beat % 2 != 0)
            continue;
        table->clicks.push_back({.frame = beat.frame,
                                 .kind = beat.beat == 1 ? ClickKind::Accent : ClickKind::Beat,
                                 .beat = beat.beat});
        if (!pattern.onlyBackbeats && i + 1 < kept.size())
            addSubdivisions(*table, beat, kept[i + 1].frame, subdivision);
    }
    return table;
}

} // namespace lyrabox
