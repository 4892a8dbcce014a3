#include "app/practice/BeatTaps.h"

#include "practice/SongTime.h"

namespace lyrabox {

void TapSeries::tap(std::uint64_t frame, double heard)
{
    if (heard > pause)
        clear();
    ++m_count;
    if (m_frames.size() < used)
        m_frames.push_back(frame);
}

void TapSeries::clear()
{
    m_count = 0;
    m_frames.clear();
}

std::variant<TappedBeats, TapFault> TapSeries::fit() const
{
    return fitTaps(m_frames, static_cast<double>(practiceRate));
}

std::optional<double> TapSeries::tempo() const
{
    const auto fitted = fit();
    const auto *beats = std::get_if<TappedBeats>(&fitted);
    if (beats == nullptr)
        return std::nullopt;
    return 60.0 * static_cast<double>(practiceRate) / beats->period;
}

} // namespace lyrabox
