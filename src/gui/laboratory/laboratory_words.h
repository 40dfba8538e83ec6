// The texts of the laboratory that say something about numbers. Main thread.
#pragma once

#include "base/color.h"
#include "draw/plots/log_chart.h"
#include "studies/laboratory/clock_series.h"
#include "studies/laboratory/holdover.h"
#include "studies/laboratory/periodogram.h"
#include "studies/laboratory/stability.h"

#include <QString>

#include <cstdint>

namespace tickervantage {

struct LaboratoryData;

[[nodiscard]] QString measure_words(StabilityMeasure measure);       // "Allan, overlapping"
[[nodiscard]] QString measure_explanation(StabilityMeasure measure); // a sentence
[[nodiscard]] Color color_of(StabilityMeasure measure);
[[nodiscard]] bool is_time(StabilityMeasure measure); // in seconds, not s/s

[[nodiscard]] MarkShape shape_of(NoiseType noise);
[[nodiscard]] QString noise_words(NoiseType noise);

[[nodiscard]] QString period_words(const SpectralPeak& peak); // "a day", "64 s, a poll interval"

// "1.23·10⁻⁹", with the locale's point; "–" for none.
[[nodiscard]] QString power_words(const std::optional<double>& value);
[[nodiscard]] QString seconds_words(double seconds); // "1.23 ms"
[[nodiscard]] QString span_words(double seconds);    // "2 h 4 min", "250 ms"
[[nodiscard]] QString percent_words(double share);   // "95"
// "14:20", with the day where it is another one than that of `now`.
[[nodiscard]] QString moment_words(std::int64_t moment, std::int64_t now);

// What is used, of when, how much.
[[nodiscard]] QString origin_words(const LaboratoryData& data);

// A number for a CSV file: it reads back exactly, with a point in every locale; empty for none.
[[nodiscard]] std::string csv_number(const std::optional<double>& value);

} // namespace tickervantage
