#include "studies/tracking/rolling_statistics.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tickervantage {
namespace {

constexpr double smoothing = 0.1;

double bounded(double value) { // damaged logs hold numbers whose square is no double any more
    constexpr double largest = std::numeric_limits<double>::max();
    return std::clamp(value, -largest, largest);
}

double square(double value) {
    return bounded(value * value);
}

struct Squares {
    double mean = 0;
    double mean_square = 0;

    // Keeps what it has when the value is absent.
    void take(double value) {
        if (std::isnan(value))
            return;
        mean = value;
        mean_square = square(value);
    }
    void smooth(double value) {
        if (std::isnan(value))
            return;
        mean = bounded(mean + bounded(value - mean) * smoothing);
        mean_square = bounded(mean_square + (square(value) - mean_square) * smoothing);
    }
};

double unless_absent(double value, double average) {
    return std::isnan(value) ? value : average;
}

} // namespace

RollingStatistics::Averages RollingStatistics::add(double offset, double rem_cor, bool sources_lost) {
    if (sources_lost)
        *this = {};
    Squares offsets{m_last.mean_offset, square(m_last.rms_offset)};
    Squares corrections{m_last.mean_rem_cor, square(m_last.rms_rem_cor)};
    if (!m_rollingavg)
        m_rollingavg = offsets.mean_square > 0 && offsets.mean_square < square(offset) && corrections.mean != 0 &&
                       std::abs(corrections.mean) < std::abs(rem_cor);
    if (m_rollingavg) {
        offsets.smooth(offset);
        corrections.smooth(rem_cor);
    } else {
        offsets.take(offset);
        corrections.take(rem_cor);
    }
    m_last = {offsets.mean, std::sqrt(offsets.mean_square), corrections.mean, std::sqrt(corrections.mean_square)};
    return {unless_absent(offset, m_last.mean_offset), unless_absent(offset, m_last.rms_offset),
            unless_absent(rem_cor, m_last.mean_rem_cor), unless_absent(rem_cor, m_last.rms_rem_cor)};
}

} // namespace tickervantage
