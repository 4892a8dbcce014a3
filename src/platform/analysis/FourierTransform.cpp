#include "platform/analysis/FourierTransform.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace lyrabox {

namespace {

/// The samples before or behind a pass.
struct Parts {
    float *__restrict real;
    float *__restrict imaginary;
};

/// One butterfly of four samples at `from`, `from + quarter` and so on, to `to`, `to + stride` ...
/// The loop over neighbours is what the compiler turns into vector instructions.
template <typename Twiddle>
void butterflies(Parts in, Parts out, std::size_t stride, std::size_t quarter, const Twiddle &w)
{
    for (std::size_t q = 0; q < stride; ++q) {
        const float ar = in.real[q], ai = in.imaginary[q];
        const float br = in.real[q + quarter], bi = in.imaginary[q + quarter];
        const float cr = in.real[q + 2 * quarter], ci = in.imaginary[q + 2 * quarter];
        const float dr = in.real[q + 3 * quarter], di = in.imaginary[q + 3 * quarter];
        const float sumAcR = ar + cr, sumAcI = ai + ci;
        const float differenceAcR = ar - cr, differenceAcI = ai - ci;
        const float sumBdR = br + dr, sumBdI = bi + di;
        const float turnedBdR = di - bi, turnedBdI = br - dr; // i (b - d)
        const float r1 = differenceAcR - turnedBdR, i1 = differenceAcI - turnedBdI;
        const float r2 = sumAcR - sumBdR, i2 = sumAcI - sumBdI;
        const float r3 = differenceAcR + turnedBdR, i3 = differenceAcI + turnedBdI;
        out.real[q] = sumAcR + sumBdR;
        out.imaginary[q] = sumAcI + sumBdI;
        out.real[q + stride] = r1 * w.real1 - i1 * w.imaginary1;
        out.imaginary[q + stride] = r1 * w.imaginary1 + i1 * w.real1;
        out.real[q + 2 * stride] = r2 * w.real2 - i2 * w.imaginary2;
        out.imaginary[q + 2 * stride] = r2 * w.imaginary2 + i2 * w.real2;
        out.real[q + 3 * stride] = r3 * w.real3 - i3 * w.imaginary3;
        out.imaginary[q + 3 * stride] = r3 * w.imaginary3 + i3 * w.real3;
    }
}

} // namespace

FourierTransform::FourierTransform(std::size_t length)
    : m_scratchReal(length), m_scratchImaginary(length)
{
    for (std::size_t n = length; n >= 4; n /= 4) {
        for (std::size_t p = 0; p < n / 4; ++p) {
            const double angle =
                -2.0 * std::numbers::pi * static_cast<double>(p) / static_cast<double>(n);
            const auto power = [angle](auto part, double exponent) {
                return static_cast<float>(part(exponent * angle));
            };
            const auto cosine = [](double x) { return std::cos(x); };
            const auto sine = [](double x) { return std::sin(x); };
            m_twiddles.push_back({power(cosine, 1), power(sine, 1), power(cosine, 2),
                                  power(sine, 2), power(cosine, 3), power(sine, 3)});
        }
    }
}

// Stockham's form of the fast transform: each pass sorts its results, so that no pass over the bits
// of the indices is needed. Passes of four, and one of two if the length is an odd power of two.
void FourierTransform::transform(std::span<float> real, std::span<float> imaginary)
{
    Parts in{real.data(), imaginary.data()};
    Parts out{m_scratchReal.data(), m_scratchImaginary.data()};
    auto twiddle = m_twiddles.begin();
    std::size_t stride = 1;
    std::size_t n = length();
    for (; n >= 4; n /= 4, stride *= 4) {
        for (std::size_t p = 0; p < n / 4; ++p, ++twiddle)
            butterflies({in.real + stride * p, in.imaginary + stride * p},
                        {out.real + 4 * stride * p, out.imaginary + 4 * stride * p}, stride,
                        length() / 4, *twiddle);
        std::swap(in, out);
    }
    if (n == 2) {
        for (std::size_t q = 0; q < stride; ++q) {
            out.real[q] = in.real[q] + in.real[q + stride];
            out.imaginary[q] = in.imaginary[q] + in.imaginary[q + stride];
            out.real[q + stride] = in.real[q] - in.real[q + stride];
            out.imaginary[q + stride] = in.imaginary[q] - in.imaginary[q + stride];
        }
        std::swap(in, out);
    }
    if (in.real != real.data()) {
        std::copy_n(in.real, length(), real.data());
        std::copy_n(in.imaginary, length(), imaginary.data());
    }
}

} // namespace lyrabox
