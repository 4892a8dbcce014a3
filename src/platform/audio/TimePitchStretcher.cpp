#include "platform/audio/TimePitchStretcher.h"

#include "platform/audio/StreamFormat.h"

#include <rubberband/RubberBandStretcher.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace lyrabox {

using RubberBand::RubberBandStretcher;

TimePitchStretcher::TimePitchStretcher() = default;
TimePitchStretcher::~TimePitchStretcher() = default;

Status TimePitchStretcher::initialize()
{
    constexpr RubberBandStretcher::Options options =
        RubberBandStretcher::OptionProcessRealTime | RubberBandStretcher::OptionEngineFiner |
        RubberBandStretcher::OptionThreadingNever |
        RubberBandStretcher::OptionPitchHighConsistency |
        RubberBandStretcher::OptionChannelsTogether;
    const auto sampleRate = static_cast<std::size_t>(canonicalStreamFormat().mSampleRate);
    m_engine = std::make_unique<RubberBandStretcher>(sampleRate, 2, options);
    if (m_engine->getEngineVersion() != 3)
        return status::unspecified;
    m_window = static_cast<std::uint32_t>(2 * m_engine->getPreferredStartPad());
    if (m_window == 0)
        return status::unspecified;
    m_engine->setMaxProcessSize(maximumFeed);
    m_mid.assign(maximumFeed, 0.0F);
    m_side.assign(maximumFeed, 0.0F);
    return status::noError;
}

void TimePitchStretcher::warmUp()
{
    meetExtremes();
    m_resamplerDelay = measureResamplerDelay();
}

void TimePitchStretcher::meetExtremes() noexcept
{
    // The resampler keeps two sets of tables and changes between them when the ratio does, or
    // starts anew. Both must have met the longest filter, that of the lowest ratio, and the most
    // phases, those of the longest fraction; the engine must have met its longest and shortest
    // hops.
    constexpr std::array<PitchRatio, 5> extremes{
        {{4, 1},
         {1, 4},
         {maximumPitchRatioPart - 1, maximumPitchRatioPart},
         {maximumPitchRatioPart, maximumPitchRatioPart - 1},
         {1, 1}}};
    // Tables that have not grown yet also delay the signal differently: do not shorten this.
    for (const bool restarts : {true, false, true, false}) {
        for (const PitchRatio &pitch : extremes) {
            for (const double speed : {2.0, 0.1}) {
                setRatios(speed, pitch);
                if (restarts)
                    restart(0);
                run(m_window / 4);
            }
        }
    }
    setRatios(1.0, {});
    restart(0);
}

std::uint32_t TimePitchStretcher::measureResamplerDelay()
{
    // At ratios of 1 the engine follows its input wave for wave, so noise tells how late it comes.
    constexpr std::uint32_t longestDelay = 512;
    constexpr std::uint32_t compared = 2048;
    std::vector<float> input;
    std::vector<float> output;
    std::uint32_t random = 1;
    std::array<float, maximumFeed> left{};
    std::array<float, maximumFeed> right{};
    restart(0);
    while (output.size() < m_window + compared) {
        const std::uint32_t taken = take(left.data(), right.data(), maximumFeed);
        output.insert(output.end(), left.begin(), left.begin() + taken);
        if (taken > 0)
            continue;
        const std::uint32_t count = std::min(framesRequired(), maximumFeed);
        for (std::uint32_t i = 0; i < count; ++i) {
            random = random * 1664525U + 1013904223U;
            left[i] = static_cast<float>(random >> 8U) / 16777216.0F - 0.5F;
        }
        input.insert(input.end(), left.begin(), left.begin() + count);
        feed(left.data(), left.data(), count);
    }
    restart(0);
    std::uint32_t best = 0;
    double highest = 0.0;
    for (std::uint32_t delay = 0; delay <= longestDelay; ++delay) {
        double sum = 0.0;
        for (std::uint32_t i = m_window; i < m_window + compared; ++i)
            sum += static_cast<double>(output[i]) * static_cast<double>(input[i - delay]);
        if (sum > highest) {
            highest = sum;
            best = delay;
        }
    }
    return best;
}

void TimePitchStretcher::run(std::uint32_t outputFrames) noexcept
{
    static constexpr std::array<float, maximumFeed> silence{};
    std::array<float, maximumFeed> left{};
    std::array<float, maximumFeed> right{};
    while (outputFrames > 0) {
        const std::uint32_t taken =
            take(left.data(), right.data(), std::min(outputFrames, maximumFeed));
        outputFrames -= taken;
        if (taken == 0)
            feed(silence.data(), silence.data(), std::min(framesRequired(), maximumFeed));
    }
}

void TimePitchStretcher::setRatios(double speed, PitchRatio pitch) noexcept
{
    m_speed = speed;
    m_pitch = pitch;
    m_engine->setTimeRatio(1.0 / speed);
    m_engine->setPitchScale(pitch.value());
}

void TimePitchStretcher::restart(std::int64_t firstFrame) noexcept
{
    m_engine->reset();
    m_fed = firstFrame;
    m_fedAtHop = firstFrame + m_window;
    m_taken = 0;
}

double TimePitchStretcher::attackLead() const noexcept
{
    // Measured with clicks: stretched, an attack comes early against the sustained sound around it.
    constexpr double perStretch = 250.0;
    constexpr double most = 520.0;
    const double stretch = m_pitch.value() / m_speed;
    return std::clamp(perStretch * (stretch - 1.0), 0.0, most) / stretch;
}

std::uint32_t TimePitchStretcher::leadInFrames() const noexcept
{
    return m_window / 2 + static_cast<std::uint32_t>(std::lround(attackLead()));
}

std::uint32_t TimePitchStretcher::leadInOutput() const noexcept
{
    return static_cast<std::uint32_t>(
        std::lround((0.5 * m_window + m_resamplerDelay) / m_pitch.value()));
}

std::uint32_t TimePitchStretcher::framesRequired() const noexcept
{
    if (m_engine->available() > 0)
        return 0;
    // The engine answers 0 when its window is full but it has nothing to give; one frame more moves
    // it on.
    return std::max(static_cast<std::uint32_t>(m_engine->getSamplesRequired()), 1U);
}

void TimePitchStretcher::feed(const float *left, const float *right, std::uint32_t frames) noexcept
{
    for (std::uint32_t i = 0; i < frames; ++i) {
        m_mid[i] = 0.5F * (left[i] + right[i]);
        m_side[i] = 0.5F * (left[i] - right[i]);
    }
    const std::array<const float *, 2> input{m_mid.data(), m_side.data()};
    m_engine->process(input.data(), frames, false);
    m_fed += frames;
    if (m_engine->available() > 0) {
        m_fedAtHop = m_fed;
        m_taken = 0;
        ++m_hops;
    }
}

std::uint32_t TimePitchStretcher::take(float *left, float *right, std::uint32_t frames) noexcept
{
    const int available = m_engine->available();
    if (available <= 0)
        return 0;
    const std::array<float *, 2> output{left, right};
    const auto taken = static_cast<std::uint32_t>(m_engine->retrieve(
        output.data(), std::min(static_cast<std::size_t>(available), std::size_t{frames})));
    for (std::uint32_t i = 0; i < taken; ++i) {
        const float mid = left[i];
        const float side = right[i];
        left[i] = mid + side;
        right[i] = mid - side;
    }
    m_taken += taken;
    return taken;
}

double TimePitchStretcher::position() const noexcept
{
    // A hop's window is centred where its newest frame lies half a window ahead; its output is
    // centred half a window, as stretched before the resampler, behind what the hop delivers.
    const double halfWindow = 0.5 * m_window;
    const double behind = halfWindow + (halfWindow + m_resamplerDelay) * m_speed / m_pitch.value();
    return static_cast<double>(m_fedAtHop) - behind + m_speed * m_taken + attackLead();
}

} // namespace lyrabox
