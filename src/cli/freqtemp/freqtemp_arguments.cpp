#include "cli/freqtemp/freqtemp_arguments.h"

#include <CLI/CLI.hpp>

namespace tickervantage {
namespace {

constexpr int LARGEST_ORDER = 6; // as the window offers

void add_order(CLI::App& command, FreqTempArguments& arguments, const char* description) {
    command.add_option("--order", arguments.order, description)->check(CLI::Range(1, LARGEST_ORDER));
}

void add_file(CLI::App& command, FreqTempArguments& arguments) {
    command.add_option("FILE", arguments.file, "a scatter map, or a .csv with temperature,frequency a line")
        ->required();
}

} // namespace

void add_fit_options(CLI::App& fit, FreqTempArguments& arguments) {
    add_file(fit, arguments);
    add_order(fit, arguments, "degree of the polynomial, from 1 to 6; default: as in the settings");
}

void add_record_options(CLI::App& record, FreqTempArguments& arguments) {
    const auto seconds = [](const std::string& text) {
        double number = 0;
        const bool fits = CLI::detail::lexical_cast(text, number) && number >= 0.1 && number <= 2'000'000;
        return fits ? std::string() : "give seconds, from 0.1 to 2000000";
    };
    record.add_option("--for", arguments.for_seconds, "so many seconds; default: until interrupted")
        ->check(CLI::Validator(seconds, ""));
    record.add_option("--map", arguments.map, "the scatter map; default: that of the desktop program");
}

void add_plot_freqtemp_options(CLI::App& plot, FreqTempArguments& arguments) {
    add_file(plot, arguments);
    add_order(plot, arguments, "degree of a new fit, from 1 to 6; default: the fits of the map");
    plot.add_flag("--hide-points", arguments.hide_points, "without the points");
    plot.add_flag("--hide-mean", arguments.hide_means, "without the mean frequencies by the degree");
    plot.add_flag("--hide-bounds", arguments.hide_bounds, "without the band around the fit");
    plot.add_flag("--hide-last", arguments.hide_last, "without the newest point");
}

} // namespace tickervantage
