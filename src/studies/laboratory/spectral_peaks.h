// The peaks of a spectrum that neither noise nor a stronger peak's side lobes make. Pure functions, any thread.
//
// What noise makes of a spectrum is told by its neighbourhood: the medians of ranges of frequencies, joined by a smooth
// curve. Noise scatters about it by an exponential distribution.
#pragma once

#include "studies/laboratory/periodogram.h"

#include <span>
#include <vector>

namespace tickervantage {

// `window`: how much of a peak's power stands so many steps beside it, by the times of the values; from one step on.
struct SpectrumAtHand {
    std::span<const float> density;
    std::span<const float> window;
    double step = 0;           // Hz
    double steps_per_look = 1; // that lie between two frequencies that know nothing of each other
    double observed = 0;       // s: the time that the values stand for
};

[[nodiscard]] std::vector<SpectralPeak> peaks_of(const SpectrumAtHand& spectrum);

} // namespace tickervantage
