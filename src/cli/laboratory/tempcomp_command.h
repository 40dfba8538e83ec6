// What `tickerctl tempcomp` reads and prints: temperatures and frequencies in, a table for chronyd out.
#pragma once

#include "base/failure.h"
#include "base/user_files.h"
#include "studies/laboratory/compensation.h"
#include "studies/laboratory/compensation_choice.h"

#include <iosfwd>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

// A .csv with a line of column names (temperature, frequency, time, and sensor where there are several), else a scatter
// map. Samples without a time are left out; fails where none has one.
[[nodiscard]] Result<TimedSamples> read_timed_samples(UserFiles& files, const std::string& path);

// The samples of the sensor that was asked for, or of the only one.
[[nodiscard]] Result<std::vector<TemperatureSample>> samples_of(const TimedSamples& all, const std::string& sensor);

struct CompensationTable {
    std::string sensor;
    double unit = 1000; // parts of a degree: 1, or 1000
    bool as_coefficients = false;
};

// A line for each point, as chronyd reads it; or T0, k0, k1 and k2 on one line.
[[nodiscard]] std::string table_text(const Compensation& compensation, const CompensationTable& table);

// The document's keys are the fields of the compensation; what is not known is null.
void print_compensation_json(const CompensationStudy& study, const CompensationTable& table, std::ostream& out);

// What was gained, in sentences.
[[nodiscard]] std::string gain_text(const Compensation& compensation);

} // namespace tickervantage
