// What the command line says of `tickerctl stability`, `tickerctl holdover` and `tickerctl tempcomp`.
#pragma once

#include <optional>
#include <string>

namespace CLI {
class App;
}

namespace tickervantage {

struct LaboratoryArguments {
    std::string log; // a log, the folder it is in, or a file of numbers
    bool is_phase = false;
    bool is_frequency = false;
    double tau0 = 1; // s, of numbers
    std::string taus = "octave";
    std::string measures = "oadev";
    double confidence = 0.683;
    double quantile = 0.95;
    std::optional<std::string> limit;
    std::string points;                 // a scatter map, or a .csv
    std::optional<std::string> verify;  // a file of points
    std::optional<std::string> applied; // the file of points that compensated meanwhile
    std::string sensor;
    std::string unit = "millidegrees";
    bool as_points = false;
    bool as_coefficients = false;
};

// Add what each command takes. The arguments outlive the reading of the command line.
void add_stability_options(CLI::App& stability, LaboratoryArguments& arguments);
void add_holdover_options(CLI::App& holdover, LaboratoryArguments& arguments);
void add_tempcomp_options(CLI::App& tempcomp, LaboratoryArguments& arguments);

} // namespace tickervantage
