#pragma once

#include <cstddef>

namespace lyrabox {

/// Two doubles that each operation processes at once: the left channel in lane 0, the right one in
/// lane 1. A vector register if the compiler supports vectors, otherwise two plain doubles. The
/// results are the same.
#if defined(__GNUC__)
using StereoLanes = double __attribute__((vector_size(2 * sizeof(double))));
#else
struct alignas(16) StereoLanes {
    double lanes[2];
    double operator[](std::size_t i) const { return lanes[i]; }
    friend StereoLanes operator+(StereoLanes a, StereoLanes b)
    {
        return {{a.lanes[0] + b.lanes[0], a.lanes[1] + b.lanes[1]}};
    }
    friend StereoLanes operator-(StereoLanes a, StereoLanes b)
    {
        return {{a.lanes[0] - b.lanes[0], a.lanes[1] - b.lanes[1]}};
    }
    friend StereoLanes operator*(StereoLanes a, StereoLanes b)
    {
        return {{a.lanes[0] * b.lanes[0], a.lanes[1] * b.lanes[1]}};
    }
    StereoLanes &operator+=(StereoLanes b) { return *this = *this + b; }
};
#endif

/// One value per channel.
constexpr StereoLanes stereoLanes(double left, double right)
{
    return StereoLanes{left, right};
}

/// The same value in both channels.
constexpr StereoLanes bothLanes(double value)
{
    return StereoLanes{value, value};
}

} // namespace lyrabox
