#pragma once

#include "platform/audio/Clicks.h"

#include <span>
#include <vector>

namespace lyrabox {

/// The sounds of the metronome at 44,100 Hz, one for each timbre and kind. Each begins with its
/// attack, without a delay. An accent peaks at 1.
class ClickSounds {
public:
    /// Allocates and computes. Control side; call it once.
    void make();

    /// Any thread after make(). Empty before.
    std::span<const float> of(ClickTimbre timbre, ClickKind kind) const noexcept;

private:
    static constexpr std::size_t kinds = 3;

    std::vector<float> m_sounds[clickTimbres][kinds];
};

} // namespace lyrabox
