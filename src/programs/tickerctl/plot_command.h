// What `tickerctl plot meter` and `tickerctl plot clock` do: the instruments as picture files.
//
// 0; or -1 with one sentence. Needs a QGuiApplication. Main thread; waits for the disk.
#pragma once

#include "instruments/analog_clock_view.h"

#include <optional>
#include <string>
#include <string_view>

namespace tickervantage {

struct PlotOptions {
    std::string output; // .png or .svg
    int width = 200;    // pixels
    int height = 200;
    bool dark = false;
};

// "640x480". None for anything else, and for what no picture can have.
[[nodiscard]] int parse_size(std::string_view text, PlotOptions& options);

// "15:30" or "15:30:00".
[[nodiscard]] std::optional<ClockTime> parse_clock_time(std::string_view text);

[[nodiscard]] int plot_meter(double value, bool per_second, const PlotOptions& options, std::string& sentence);
[[nodiscard]] int plot_clock(ClockTime time, const PlotOptions& options, std::string& sentence);

} // namespace tickervantage
