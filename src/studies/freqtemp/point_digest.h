// Very many points brought down to what can be seen of them, so that drawing them does not take long.
//
// Points that share a cell of a fine grid are drawn as one. Made off the main thread, then shared as const.
#pragma once

#include "studies/freqtemp/point_list.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace tickervantage {

// The frequencies at one temperature, to the degree. By Welford's method: no sum of squares that cancels.
struct freqStats {
    double mean = 0;
    double variance = 0; // the sum of squared deviations, not divided by the count
    std::int64_t count = 0;

    void add(double frequency);
};

struct PointDigest {
    struct Dot {
        freqPoint point;        // the first in its cell
        std::uint8_t count = 1; // points in the cell; 3: or more
    };
    std::vector<Dot> dots;
    double first_degree = 0;      // of `means`
    std::vector<freqStats> means; // one a degree
    freqPoint last;
};

// Fewer points are drawn one by one.
inline constexpr std::size_t DIGEST_FROM = 20'000;

// Null where there are fewer than DIGEST_FROM.
[[nodiscard]] std::shared_ptr<const PointDigest> make_digest(const PointList& points);

// How many bins of one degree there are from the lower temperature to the upper one, a sane number in any case.
[[nodiscard]] std::size_t degree_bins(double min_temperature, double max_temperature);

// The means of the degrees min_temperature, min_temperature + 1 and so on; points beyond the last are left out.
[[nodiscard]] std::vector<freqStats> mean_frequencies(const PointList& points, double min_temperature,
                                                      std::size_t bins);

} // namespace tickervantage
