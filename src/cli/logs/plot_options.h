// How a picture is to be: size, colours, and the time that a clock shows. Texts of the command line, read.
#pragma once

#include "draw/instruments/analog_clock_view.h"

#include <optional>
#include <string>
#include <string_view>

namespace tickervantage {

inline constexpr int largest_plot_side = 16384; // pixels

struct PlotOptions {
    std::string output; // .png, .svg or .pdf
    int width = 200;    // pixels
    int height = 200;
    bool dark = false;
    bool caption = false; // of the charts: what, of when, and a legend; the plot gets the rest
};

// "640x480", with sides from 1 to largest_plot_side. -1 for anything else; the options then stay as they are.
[[nodiscard]] int parse_size(std::string_view text, PlotOptions& options);

// "15:30" or "15:30:00", the hour with one digit or two; none for anything else.
[[nodiscard]] std::optional<ClockTime> parse_clock_time(std::string_view text);

} // namespace tickervantage
