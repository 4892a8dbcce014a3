#pragma once

#include <array>
#include <cstddef>
#include <span>

namespace lyrabox {

/// Predicts samples from those before them. Learnt from a sound that goes on, it knows its tones
/// and the colour of its noise. What it fails to predict afterwards is something new.
class LinearPrediction {
public:
    /// The number of earlier samples that a prediction uses.
    static constexpr std::size_t order = 20;

    /// Learns from `samples`, which are faded in and out for that. From silence it learns nothing:
    /// then it always predicts 0.0.
    explicit LinearPrediction(std::span<const double> samples);

    /// What it failed to predict: errors[i] becomes the error at samples[order + i]. `samples` has
    /// `order` more samples than `errors`.
    void errors(std::span<const double> samples, std::span<double> errors) const;

private:
    std::array<double, order + 1> m_filter{}; ///< from samples to errors, the newest sample first
};

} // namespace lyrabox
