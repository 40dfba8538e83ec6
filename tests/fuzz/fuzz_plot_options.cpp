// Any bytes as a picture's size and as the time on a clock: what is accepted can be drawn.
#include "cli/logs/plot_options.h"
#include "fuzz/require.h"

namespace {

bool is_side(int side) {
    return side >= 1 && side <= largest_plot_side;
}

} // namespace

FUZZED(text) {
    PlotOptions options;
    if (parse_size(text, options) == 0)
        require(is_side(options.width) && is_side(options.height));
    else
        require(options.width == 200 && options.height == 200);
    if (const auto time = parse_clock_time(text)) {
        require(time->hour >= 0 && time->hour < 24 && time->minute >= 0 && time->minute < 60);
        require(time->second >= 0 && time->second < 60);
    }
}
