// What the command line says of `tickerctl sensors`, `fit`, `record` and `plot freqtemp`.
#pragma once

#include <optional>
#include <string>

namespace CLI {
class App;
}

namespace tickervantage {

struct FreqTempArguments {
    std::string file;               // a scatter map, or points as .csv
    std::optional<int> order;       // of the polynomial
    std::optional<std::string> map; // that is recorded to
    double for_seconds = 0;         // 0: until interrupted
    bool hide_points = false;
    bool hide_means = false;
    bool hide_bounds = false;
    bool hide_last = false;
};

// Add what each command takes. The arguments outlive the reading of the command line.
void add_fit_options(CLI::App& fit, FreqTempArguments& arguments);
void add_record_options(CLI::App& record, FreqTempArguments& arguments);
void add_plot_freqtemp_options(CLI::App& plot, FreqTempArguments& arguments);

} // namespace tickervantage
