#pragma once

#include "platform/audio/TimePitch.h"
#include "support/SoundSource.h"

#include <complex>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace lyrabox::test {

struct StereoFrame {
    float left = 0.0F;
    float right = 0.0F;
};

/// A song that is a function of the frame number. Counts the pulled frames.
class SignalSource final : public SoundSource {
public:
    using Signal = std::function<StereoFrame(std::int64_t frame)>;

    explicit SignalSource(Signal signal) : m_signal(std::move(signal)) {}

    void render(std::uint32_t frames, AudioBufferList &ioData) noexcept override;

    std::int64_t position = 0; ///< the next frame to be pulled
    std::uint32_t largestPull = 0;
    std::uint32_t smallestPull = UINT32_MAX;

private:
    Signal m_signal;
};

struct Stereo {
    std::vector<float> left;
    std::vector<float> right;

    std::size_t size() const { return left.size(); }
};

/// A time/pitch stage that plays a song. The tests pull it.
struct StageUnderTest {
    StageUnderTest(SignalSource::Signal signal, float rate, float cents);

    void set(float rate, float cents);
    /// Seeks as the engine does: the source jumps, then the stage is reset.
    void seek(std::int64_t frame);
    /// The next `frames` frames, in callbacks of `callback` frames.
    Stereo pull(std::size_t frames, std::uint32_t callback = 1024);

    SignalSource source;
    std::unique_ptr<TimePitch> stage = std::make_unique<TimePitch>();
};

/// Reproducible noise with the given peak. Different streams are uncorrelated.
float noiseAt(std::int64_t frame, std::uint32_t stream, float peak);

/// Amplitude and phase of the partial at `hertz` in a Hann window of `length` frames that starts at
/// `first`. The phase counts from frame 0 of the signal.
std::complex<double> partialAt(const std::vector<float> &signal, std::size_t first,
                               std::size_t length, double hertz);

/// The mean frequency of the partial near `hertz` from `first` on, measured by its phase in 200 ms
/// windows every 10 ms.
double frequencyNear(const std::vector<float> &signal, std::size_t first, double hertz);

/// The standard deviation of the partial's level divided by its mean, in 200 ms windows every 10
/// ms.
double modulationOf(const std::vector<float> &signal, std::size_t first, double hertz);

/// The largest sample beyond 6 kHz, through a steep high-pass.
double highBandPeak(const std::vector<float> &signal);

/// The centre of the energy between `first` and `last`, and the span around it that holds `share`
/// of the energy.
struct Burst {
    double centre = 0.0;
    double span = 0.0;
    double energy = 0.0;
};
Burst burstBetween(const std::vector<float> &signal, std::size_t first, std::size_t last,
                   double share = 0.9);

double correlation(const std::vector<float> &a, const std::vector<float> &b, std::size_t first,
                   std::size_t last);

double inDecibels(double amplitude);

} // namespace lyrabox::test
