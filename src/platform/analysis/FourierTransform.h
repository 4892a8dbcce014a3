#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace lyrabox {

/// The discrete Fourier transform of complex samples, in single precision:
/// X[k] = sum over n of x[n] * exp(-2 pi i n k / length), not scaled.
///
/// Two real signals fit into one transform, one as real and one as imaginary parts. Then
/// (|X[k]|² + |X[length - k]|²) / 2 is the sum of the powers of both.
///
/// An object belongs to one thread at a time.
class FourierTransform {
public:
    /// `length` is a power of two.
    explicit FourierTransform(std::size_t length);

    std::size_t length() const { return m_scratchReal.size(); }

    /// Transforms in place. Both spans have length() samples.
    void transform(std::span<float> real, std::span<float> imaginary);

private:
    /// A factor on the unit circle, and its powers.
    struct Twiddle {
        float real1, imaginary1, real2, imaginary2, real3, imaginary3;
    };

    std::vector<Twiddle> m_twiddles; ///< pass after pass
    std::vector<float> m_scratchReal;
    std::vector<float> m_scratchImaginary;
};

} // namespace lyrabox
