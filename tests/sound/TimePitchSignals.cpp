#include "TimePitchSignals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace lyrabox::test {

namespace {

constexpr double sampleRate = 44100.0;
constexpr double tau = 2.0 * std::numbers::pi;
constexpr std::size_t window = 8820; // 200 ms
constexpr std::size_t step = 441;    // 10 ms

} // namespace

void SignalSource::render(std::uint32_t frames, AudioBufferList &ioData) noexcept
{
    largestPull = std::max(largestPull, frames);
    smallestPull = std::min(smallestPull, frames);
    auto *left = static_cast<float *>(ioData.mBuffers[0].mData);
    auto *right = static_cast<float *>(ioData.mBuffers[1].mData);
    for (std::uint32_t i = 0; i < frames; ++i) {
        const StereoFrame frame = m_signal(position++);
        left[i] = frame.left;
        right[i] = frame.right;
    }
}

StageUnderTest::StageUnderTest(SignalSource::Signal signal, float rate, float cents)
    : source(std::move(signal))
{
    EXPECT_EQ(stage->initialize(), status::noError);
    EXPECT_EQ(stage->connect(&source), status::noError);
    set(rate, cents);
}

void StageUnderTest::set(float rate, float cents)
{
    stage->setParameter(parameter::rate, rate);
    stage->setParameter(parameter::pitch, cents);
}

void StageUnderTest::seek(std::int64_t frame)
{
    source.position = frame;
    stage->reset();
}

Stereo StageUnderTest::pull(std::size_t frames, std::uint32_t callback)
{
    Stereo result{std::vector<float>(frames), std::vector<float>(frames)};
    for (std::size_t done = 0; done < frames;) {
        const auto count =
            static_cast<std::uint32_t>(std::min<std::size_t>(callback, frames - done));
        AudioBufferList list;
        list.mNumberBuffers = 2;
        list.mBuffers[0] = {1, count * 4, result.left.data() + done};
        list.mBuffers[1] = {1, count * 4, result.right.data() + done};
        stage->render(count, list);
        done += count;
    }
    return result;
}

float noiseAt(std::int64_t frame, std::uint32_t stream, float peak)
{
    // splitmix64 of the frame number
    auto x = static_cast<std::uint64_t>(frame) + 0x9e3779b97f4a7c15ULL * (stream + 1ULL);
    x = (x ^ (x >> 30U)) * 0xbf58476d1ce4e5b9ULL;
    x = (x ^ (x >> 27U)) * 0x94d049bb133111ebULL;
    x ^= x >> 31U;
    return peak * (static_cast<float>(x >> 40U) / 8388608.0F - 1.0F);
}

std::complex<double> partialAt(const std::vector<float> &signal, std::size_t first,
                               std::size_t length, double hertz)
{
    std::complex<double> sum;
    const std::complex<double> turn = std::polar(1.0, -tau * hertz / sampleRate);
    std::complex<double> phasor =
        std::polar(1.0, -std::fmod(tau * hertz / sampleRate * static_cast<double>(first), tau));
    for (std::size_t i = 0; i < length; ++i) {
        const double hann = 0.5 - 0.5 * std::cos(tau * (static_cast<double>(i) + 0.5) /
                                                 static_cast<double>(length));
        sum += hann * static_cast<double>(signal[first + i]) * phasor;
        phasor *= turn;
    }
    return 4.0 * sum / static_cast<double>(length);
}

double frequencyNear(const std::vector<float> &signal, std::size_t first, double hertz)
{
    // A least-squares line through the unwrapped phase gives the deviation from `hertz`.
    double sumT = 0.0;
    double sumP = 0.0;
    double sumTT = 0.0;
    double sumTP = 0.0;
    double count = 0.0;
    double unwrapped = 0.0;
    double previous = 0.0;
    for (std::size_t at = first; at + window <= signal.size(); at += step) {
        const double phase = std::arg(partialAt(signal, at, window, hertz));
        unwrapped = count == 0.0 ? phase : unwrapped + std::remainder(phase - previous, tau);
        previous = phase;
        const double t = static_cast<double>(at) / sampleRate;
        sumT += t;
        sumP += unwrapped;
        sumTT += t * t;
        sumTP += t * unwrapped;
        count += 1.0;
    }
    const double slope = (count * sumTP - sumT * sumP) / (count * sumTT - sumT * sumT);
    return hertz + slope / tau;
}

double modulationOf(const std::vector<float> &signal, std::size_t first, double hertz)
{
    double sum = 0.0;
    double squares = 0.0;
    double count = 0.0;
    for (std::size_t at = first; at + window <= signal.size(); at += step) {
        const double level = std::abs(partialAt(signal, at, window, hertz));
        sum += level;
        squares += level * level;
        count += 1.0;
    }
    const double mean = sum / count;
    return std::sqrt(std::max(0.0, squares / count - mean * mean)) / mean;
}

double highBandPeak(const std::vector<float> &signal)
{
    // Windowed sinc, 255 taps, Blackman: 80 dB down below 5.2 kHz.
    constexpr int half = 127;
    std::vector<double> taps(2 * half + 1);
    for (int i = -half; i <= half; ++i) {
        const double cut = 2.0 * 6000.0 / sampleRate;
        const double x = std::numbers::pi * cut * i;
        const double low = i == 0 ? cut : cut * std::sin(x) / x;
        const double phase = std::numbers::pi * (i + half) / half;
        const double blackman = 0.42 - 0.5 * std::cos(phase) + 0.08 * std::cos(2.0 * phase);
        taps[static_cast<std::size_t>(i + half)] = ((i == 0 ? 1.0 : 0.0) - low) * blackman;
    }
    double peak = 0.0;
    for (std::size_t at = 0; at + taps.size() <= signal.size(); ++at) {
        double sum = 0.0;
        for (std::size_t i = 0; i < taps.size(); ++i)
            sum += taps[i] * static_cast<double>(signal[at + i]);
        peak = std::max(peak, std::abs(sum));
    }
    return peak;
}

Burst burstBetween(const std::vector<float> &signal, std::size_t first, std::size_t last,
                   double share)
{
    Burst burst;
    for (std::size_t i = first; i < last; ++i) {
        const double energy = static_cast<double>(signal[i]) * static_cast<double>(signal[i]);
        burst.energy += energy;
        burst.centre += energy * static_cast<double>(i);
    }
    burst.centre /= burst.energy;
    // The shortest span that holds `share` of the energy.
    double held = 0.0;
    std::size_t tail = first;
    burst.span = static_cast<double>(last - first);
    for (std::size_t i = first; i < last; ++i) {
        held += static_cast<double>(signal[i]) * static_cast<double>(signal[i]);
        while (held - static_cast<double>(signal[tail]) * static_cast<double>(signal[tail]) >=
               share * burst.energy) {
            held -= static_cast<double>(signal[tail]) * static_cast<double>(signal[tail]);
            ++tail;
        }
        if (held >= share * burst.energy)
            burst.span = std::min(burst.span, static_cast<double>(i - tail + 1));
    }
    return burst;
}

double correlation(const std::vector<float> &a, const std::vector<float> &b, std::size_t first,
                   std::size_t last)
{
    double ab = 0.0;
    double aa = 0.0;
    double bb = 0.0;
    for (std::size_t i = first; i < last; ++i) {
        ab += static_cast<double>(a[i]) * static_cast<double>(b[i]);
        aa += static_cast<double>(a[i]) * static_cast<double>(a[i]);
        bb += static_cast<double>(b[i]) * static_cast<double>(b[i]);
    }
    return ab / std::sqrt(aa * bb);
}

double inDecibels(double amplitude)
{
    return 20.0 * std::log10(std::max(amplitude, 1e-12));
}

} // namespace lyrabox::test
