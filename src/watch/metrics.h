// One reading as Prometheus reads it: the names and labels that chrony's exporter made customary, and our own for what
// that cannot say: verdict, error bound, holdover. Source: Prometheus' exposition formats; OpenMetrics 1.0.
//
// An absent value is an absent line. At most 64 sources get lines of their own, the usable ones first. Pure functions.
#pragma once

#include "chrony/truth/clock_truth.h"

#include <string>

namespace tickervantage {

enum class MetricsFormat : unsigned char { prometheus, openmetrics };

inline constexpr std::size_t labelled_sources = 64;

[[nodiscard]] std::string metrics_text(const ClockTruth& truth, MetricsFormat format);

} // namespace tickervantage
