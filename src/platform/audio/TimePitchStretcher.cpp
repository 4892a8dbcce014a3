#include "platform/audio/TimePitchStretcher.h"

#include "platform/audio/StreamFormat.h"

#include <rubberband/RubberBandStretcher.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace lyrabox {

TimePitchStretcher::TimePitchStretcher() = default;
TimePitchStretcher::~TimePitchStretcher() = default;

Status TimePitchStretcher::initialize()
{
    constexpr Engine::Options options = Engine::OptionProcessRealTime | Engine::OptionEngineFiner |
                                        Engine::OptionThreadingNever |
                                        Engine::OptionChannelsTogether;
    const auto sampleRate = static_cast<std::size_t>(canonicalStreamFormat().mSampleRate);
    m_library = timePitchLibraryFor(RUBBERBAND_VERSION);
    const auto makeEngine = [sampleRate, options] {
        auto engine = std::make_unique<Engine>(sampleRate, 2, options);
        engine->setMaxProcessSize(maximumFeed);
        return engine;
    };
    m_engine = makeEngine();
    if (m_engine->getEngineVersion() != 3)
        return status::unspecified;
    m_window = static_cast<std::uint32_t>(2 * m_engine->getPreferredStartPad());
    if (m_window == 0)
        return status::unspecified;
    if (m_library.allocatesInReset)
        m_spare = makeEngine();
    m_resampler.allocate();
    m_first.assign(maximumFeed, 0.0F);
    m_second.assign(maximumFeed, 0.0F);
    return status::noError;
}

void TimePitchStretcher::warmUp()
{
    meetExtremes();
    if (m_spare) {
        std::swap(m_engine, m_spare);
        meetExtremes();
    }
    m_delay = measureDelay();
}

/// Runs the engine with its longest and its shortest hops, both right after a reset and later.
void TimePitchStretcher::meetExtremes()
{
    for (const bool restarts : {true, false}) {
        for (const PitchRatio &pitch : {PitchRatio{4, 1}, PitchRatio{1, 4}, PitchRatio{1, 1}}) {
            for (const double speed : {2.0, 1.0, 0.1}) {
                setRatios(speed, pitch);
                if (restarts)
                    m_engine->reset();
                m_resampler.reset();
                run(3);
            }
        }
    }
    setRatios(1.0, {});
    m_engine->reset();
}

/// At ratios of 1 the engine's output reproduces its input's waveform. So the delay is where noise
/// correlates best.
std::uint32_t TimePitchStretcher::measureDelay()
{
    constexpr std::uint32_t longestDelay = 512;
    constexpr std::uint32_t compared = 2048;
    std::vector<float> input;
    std::vector<float> output;
    std::uint32_t random = 1;
    std::array<float, maximumFeed> left{};
    std::array<float, maximumFeed> right{};
    m_resampler.reset();
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
    m_engine->reset();
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

/// Feeds silence for `hops` hops.
void TimePitchStretcher::run(std::uint32_t hops) noexcept
{
    static constexpr std::array<float, maximumFeed> silence{};
    std::array<float, maximumFeed> left{};
    std::array<float, maximumFeed> right{};
    const std::uint64_t end = m_hops + hops;
    while (m_hops < end) {
        if (take(left.data(), right.data(), maximumFeed) == 0)
            feed(silence.data(), silence.data(), std::min(framesRequired(), maximumFeed));
    }
}

void TimePitchStretcher::refresh()
{
    if (!m_spare || m_spareIsFresh.load(std::memory_order_acquire))
        return;
    m_spare->reset();
    m_spareIsFresh.store(true, std::memory_order_release);
}

bool TimePitchStretcher::canRestart() const noexcept
{
    return m_spareIsFresh.load(std::memory_order_acquire);
}

void TimePitchStretcher::setRatios(double speed, PitchRatio pitch) noexcept
{
    m_speed = speed;
    m_pitch = pitch;
    applyRatio();
    m_resampler.setPitch(pitch.value());
}

void TimePitchStretcher::applyRatio() noexcept
{
    m_engine->setTimeRatio(m_pitch.value() / m_speed);
}

void TimePitchStretcher::restart(std::int64_t firstFrame) noexcept
{
    if (m_spare) {
        std::swap(m_engine, m_spare);
        m_spareIsFresh.store(false, std::memory_order_release);
        applyRatio();
    } else {
        m_engine->reset();
    }
    m_resampler.reset();
    m_fed = firstFrame;
    m_noted = 0;
    noteHop(firstFrame + m_window, 0); // the first hop, which is still to come
}

/// Notes a hop whose newest frame is `fed` - 1, and which delivers from frame `stretched` of the
/// stretched signal on. A hop's window is centred half a window before its newest frame. The hop's
/// output is centred half a window, in stretched frames, after the first frame that it delivers.
void TimePitchStretcher::noteHop(std::int64_t fed, std::int64_t stretched) noexcept
{
    const double halfWindow = 0.5 * m_window;
    const Hop hop{.stretched = static_cast<double>(stretched) + halfWindow + m_delay,
                  .source = static_cast<double>(fed) - halfWindow + attackLead()};
    if (m_noted > 0 && m_kept[(m_noted - 1) % keptHops].stretched == hop.stretched)
        --m_noted; // nothing was delivered in between
    m_kept[m_noted % keptHops] = hop;
    ++m_noted;
}

double TimePitchStretcher::attackLead() const noexcept
{
    // In output frames, measured with clicks: in stretched sound, attacks come too early.
    constexpr double perStretch = 250.0;
    constexpr double maxLead = 520.0;
    const double stretch = m_pitch.value() / m_speed;
    return std::clamp(perStretch * (stretch - 1.0), 0.0, maxLead) / stretch;
}

std::uint32_t TimePitchStretcher::leadInFrames() const noexcept
{
    return m_window / 2 + static_cast<std::uint32_t>(std::lround(attackLead()));
}

std::uint32_t TimePitchStretcher::leadInOutput() const noexcept
{
    return static_cast<std::uint32_t>(std::lround((0.5 * m_window + m_delay) / m_pitch.value()));
}

std::uint32_t TimePitchStretcher::framesRequired() const noexcept
{
    if (m_resampler.isAvailable())
        return 0;
    // The engine returns 0 if its window is full but there is no output. One more frame starts the
    // next hop.
    return std::max(static_cast<std::uint32_t>(m_engine->getSamplesRequired()), 1U);
}

void TimePitchStretcher::feed(const float *left, const float *right, std::uint32_t frames) noexcept
{
    std::array<const float *, 2> input{left, right};
    if (!m_library.makesMidAndSide) {
        for (std::uint32_t i = 0; i < frames; ++i) {
            m_first[i] = 0.5F * (left[i] + right[i]);
            m_second[i] = 0.5F * (left[i] - right[i]);
        }
        input = {m_first.data(), m_second.data()};
    }
    m_engine->process(input.data(), frames, false);
    m_fed += frames;
    if (m_engine->available() > 0) {
        noteHop(m_fed, m_resampler.written());
        ++m_hops;
        collect();
    }
}

/// Passes the engine's output to the resampler.
void TimePitchStretcher::collect() noexcept
{
    const std::array<float *, 2> output{m_first.data(), m_second.data()};
    while (m_engine->available() > 0) {
        const auto frames = static_cast<std::uint32_t>(m_engine->retrieve(
            output.data(),
            std::min(static_cast<std::size_t>(m_engine->available()), std::size_t{maximumFeed})));
        if (!m_library.makesMidAndSide) {
            for (std::uint32_t i = 0; i < frames; ++i) {
                const float mid = m_first[i];
                const float side = m_second[i];
                m_first[i] = mid + side;
                m_second[i] = mid - side;
            }
        }
        m_resampler.write(m_first.data(), m_second.data(), frames);
    }
}

std::uint32_t TimePitchStretcher::take(float *left, float *right, std::uint32_t frames) noexcept
{
    return m_resampler.read(left, right, frames);
}

double TimePitchStretcher::position() const noexcept
{
    if (m_noted == 0)
        return 0.0;
    const double at = m_resampler.position();
    const std::uint64_t oldest = m_noted > keptHops ? m_noted - keptHops : 0;
    std::uint64_t index = m_noted - 1;
    while (index > oldest && m_kept[index % keptHops].stretched > at)
        --index;
    const Hop &hop = m_kept[index % keptHops];
    double perFrame = m_speed / m_pitch.value();
    if (index + 1 < m_noted && hop.stretched <= at) {
        const Hop &next = m_kept[(index + 1) % keptHops];
        perFrame = (next.source - hop.source) / (next.stretched - hop.stretched);
    }
    return hop.source + (at - hop.stretched) * perFrame;
}

} // namespace lyrabox
