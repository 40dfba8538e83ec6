// The notice with which the main window, or `tickerctl record`, tells others the clock's frequency after every reading.
#pragma once

namespace tickervantage {

inline constexpr const char* current_frequency_key = "net.brisklane.tickervantage.current_frequency";

struct current_frequency {
    double freq = 0; // ppm, positive: the clock runs fast
};

} // namespace tickervantage
