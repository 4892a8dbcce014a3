#pragma once

namespace lyrabox {

/// The speed and pitch stored for one song.
struct SongValues {
    float speed = 100.0F; ///< percent of the recorded tempo
    float pitch = 0.0F;   ///< cents

    friend bool operator==(const SongValues &, const SongValues &) = default;
};

} // namespace lyrabox
