// How wide and large the shapes are that the plot of frequency against temperature is made of, and what of an entry is
// drawn. Lengths are points.
#pragma once

#include "studies/freqtemp/freqtemp_view.h"

#include <optional>
#include <vector>

namespace tickervantage::plot_look {

inline constexpr double DOT = FreqTempView::POINT_SIZE + 1; // with half an outline on each side
inline constexpr double FIT_WIDTH = 6;                      // most of it lies under what follows
inline constexpr double FIT_HALO = 4;  // of the background's colour, so that the curve is told from any cloud of points
inline constexpr double FIT_CURVE = 2; // of the text's colour
inline constexpr double MEAN_WIDTH = 1;
inline constexpr double NEWEST_SIZE = 11; // of the ring around the newest point
inline constexpr double NEWEST_HALO = 4.5;
inline constexpr double NEWEST_RING = 1.5;

[[nodiscard]] bool is_shown(const scatterEntry& entry);
[[nodiscard]] bool has_drawn_fit(const scatterEntry& entry);
[[nodiscard]] freqPoint newest_of(const scatterEntry& entry); // of one that is shown

[[nodiscard]] Color solid(Color color);
[[nodiscard]] Color lighter(const Color& color); // for the band

// The corners of the curve.
[[nodiscard]] std::vector<freqPoint> curve_of(const QuadRegression& fit);

// The corners of the line through the means, of which the first is that of the degree `first`.
[[nodiscard]] std::vector<freqPoint> mean_line(const std::vector<freqStats>& means, double first);

} // namespace tickervantage::plot_look
