#include "sound/Player.h"

#include "platform/audio/ClickMixer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace lyrabox::test {

namespace {

constexpr double sampleRate = 44100.0;
constexpr std::size_t slicesKept = 200'000;

} // namespace

/// Records the song frames of the slices that the equalizer pulls.
class Player::TappedEqualizer final : public GraphicEqualizer {
public:
    explicit TappedEqualizer(Player &player) : m_player(player) {}

    Status setRenderCallback(RenderCallback callback, void *context) override
    {
        m_callback = callback;
        m_context = context;
        return GraphicEqualizer::setRenderCallback(&TappedEqualizer::tap, this);
    }

private:
    static Status tap(void *context, std::uint32_t frames, AudioBufferList &list) noexcept
    {
        auto &self = *static_cast<TappedEqualizer *>(context);
        const Status status = self.m_callback(self.m_context, frames, list);
        if (!engine::trackHasEnded())
            self.m_player.noteSlice(engine::currentFrame() - frames);
        return status;
    }

    Player &m_player;
    RenderCallback m_callback = nullptr;
    void *m_context = nullptr;
};

Player::Player(Song song, std::uint64_t frames, Metronome metronome)
{
    build(metronome);
    auto fake = std::make_shared<FakeSong>();
    fake->frames = frames;
    fake->sample = std::move(song);
    engine::setSongReaderFactory(fakeSongReaderFactory(fake));
    EXPECT_EQ(engine::loadAudioFile(QUrl::fromLocalFile(QStringLiteral("/songs/a.wav"))), 0);
}

Player::Player(const QUrl &file)
{
    build(Metronome::Part);
    EXPECT_EQ(engine::loadAudioFile(file), 0);
}

Player::~Player()
{
    engine::tearDownAudioSystem();
    engine::setAudioUnitFactory({});
    engine::setSongReaderFactory({});
}

void Player::build(Metronome metronome)
{
    engine::tearDownAudioSystem();
    m_slices.reserve(slicesKept);
    AudioUnitFactory factory;
    factory.equalizer = [this] { return std::make_unique<TappedEqualizer>(*this); };
    factory.timePitch = [this] {
        auto unit = std::make_unique<TimePitch>();
        m_timePitch = unit.get();
        return unit;
    };
    if (metronome == Metronome::Part)
        factory.click = [] { return std::make_unique<ClickMixer>(); };
    factory.output = [this] {
        auto unit = std::make_unique<HandPulledOutput>();
        m_output = unit.get();
        return unit;
    };
    factory.defaultOutputWatcher = [] { return std::make_unique<DeafWatcher>(); };
    engine::setAudioUnitFactory(std::move(factory));
    EXPECT_EQ(engine::buildAudioSystem(), 0);
}

void Player::setUnevenEqualizer(float level)
{
    for (std::uint32_t id = 2; id < parameter::equalizerBands; id += 3) {
        engine::setEqLevel(id, level);
        level = -level;
    }
}

Stereo Player::pull(std::size_t frames, std::uint32_t callback)
{
    Stereo heard;
    pull(heard, frames, callback);
    return heard;
}

void Player::pull(Stereo &heard, std::size_t frames, std::uint32_t callback)
{
    std::vector<float> interleaved(2 * std::size_t{callback});
    while (frames > 0) {
        const auto count = static_cast<std::uint32_t>(std::min<std::size_t>(callback, frames));
        m_output->pull(interleaved.data(), count);
        for (std::uint32_t i = 0; i < count; ++i) {
            heard.left.push_back(interleaved[2 * std::size_t{i}]);
            heard.right.push_back(interleaved[2 * std::size_t{i} + 1]);
        }
        frames -= count;
    }
}

void Player::noteSlice(std::uint64_t frame) noexcept
{
    if (m_slices.size() < slicesKept)
        m_slices.push_back(frame);
}

Player::Song tone(double hertz, double amplitude)
{
    return [hertz, amplitude](std::uint32_t, std::uint64_t frame) {
        const double turns = std::fmod(hertz / sampleRate * static_cast<double>(frame), 1.0);
        return static_cast<float>(amplitude * std::sin(2.0 * std::numbers::pi * turns));
    };
}

double clickLevel(const std::vector<float> &heard, double toneAmplitude)
{
    // Windowed sinc, 255 taps, Blackman: more than 74 dB down below 1.5 kHz.
    constexpr int half = 127;
    constexpr double cut = 2.0 * 2000.0 / sampleRate;
    std::vector<float> taps;
    for (int i = -half; i <= half; ++i) {
        const double x = std::numbers::pi * cut * i;
        const double low = i == 0 ? cut : cut * std::sin(x) / x;
        const double phase = std::numbers::pi * (i + half + 1) / (half + 1);
        const double blackman = 0.42 - 0.5 * std::cos(phase) + 0.08 * std::cos(2.0 * phase);
        taps.push_back(static_cast<float>(((i == 0 ? 1.0 : 0.0) - low) * blackman));
    }
    float peak = 0.0F;
    for (std::size_t at = 0; at + taps.size() <= heard.size(); ++at) {
        float sum = 0.0F;
        for (std::size_t i = 0; i < taps.size(); ++i)
            sum += taps[i] * heard[at + i];
        peak = std::max(peak, std::abs(sum));
    }
    return inDecibels(static_cast<double>(peak) / toneAmplitude);
}

} // namespace lyrabox::test
