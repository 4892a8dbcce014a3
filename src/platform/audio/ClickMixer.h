#pragma once

#include "platform/audio/AudioUnit.h"
#include "platform/audio/ClickSounds.h"

#include <array>
#include <cstdint>
#include <span>

namespace lyrabox {

/// The metronome: mixes clicks into the sound behind time/pitch, so that they keep their own pitch
/// and stay crisp at any speed. It has no parameters and no delay. While no click is due, the sound
/// passes unchanged.
///
/// A click is due when the frame of the song that it belongs to is delivered. That follows from
/// time/pitch's own account of the frames that it holds, before and after each pull; in between the
/// place is interpolated. Clicks of frames that a reset has dropped are dropped as well.
class ClickMixer final : public ClickUnit {
public:
    Status initialize() override;
    float parameter(std::uint32_t) const override { return 0.0F; }
    Status setParameter(std::uint32_t, float) override { return status::invalidParameter; }
    /// Does nothing: the unit resets itself when it finds that time/pitch was reset.
    void reset() override {}
    Status connect(TimePitchUnit *source, ClickSchedule *schedule) override;
    bool isPlayingOut() const noexcept override { return m_source && m_source->isPlayingOut(); }

    /// Delivers silence without a source.
    void render(std::uint32_t frames, AudioBufferList &ioData) noexcept override;

private:
    static constexpr std::size_t maximumVoices = 16;
    static constexpr std::uint32_t releaseFrames = 64; ///< fade-out of a click after a reset

    /// A click that sounds.
    struct Voice {
        std::span<const float> rest; ///< what is still to come; empty: free
        std::uint32_t delay = 0;     ///< frames until it begins, within this pull
        std::uint32_t release = 0;   ///< frames until it is faded out; 0: it is not
        float left = 0.0F;
        float right = 0.0F;
    };

    void beginAt(double place) noexcept;
    void startDueClicks(double from, double to, std::uint32_t frames) noexcept;
    void start(ClickKind kind, std::uint32_t delay) noexcept;
    void mix(Voice &voice, std::uint32_t frames, AudioBufferList &ioData) noexcept;
    bool isSounding() const noexcept;

    TimePitchUnit *m_source = nullptr;
    ClickSchedule *m_schedule = nullptr;
    ClickSounds m_sounds;
    std::array<Voice, maximumVoices> m_voices{};
    double m_place = 0.0; ///< the frame of the stream that is delivered next
    bool m_knowsPlace = false;
};

} // namespace lyrabox
