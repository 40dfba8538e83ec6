// The report of "chronyc tracking" as a record. Source: chronyc(1), command tracking.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tickervantage {

struct TrackingData;

struct TrackingReport {
    double frequency = 0;       // ppm; positive: the clock would run fast if it were not corrected
    double systemtime = 0;      // s; negative: the system time is behind NTP time
    double lastoffset = 0;      // s; the offset estimated at the last update
    double rmsoffset = 0;       // s; long-term average of the offset
    double rootdelay = 0;       // s; sum of the network delays to the stratum-1 source
    double rootdispersion = 0;  // s; sum of the dispersions to the stratum-1 source
    std::string leapstatus;     // empty: the text was no tracking report
    bool has_frequency = false; // the text was a tracking report that names one, be it 0
};

// Never fails: what is missing or no number is 0, a missing leap status is empty. A line that comes twice counts the
// second time. Expects the C locale's decimal point.
[[nodiscard]] TrackingReport parse_tracking(std::string_view output);

[[nodiscard]] TrackingReport report_of(const TrackingData& tracking);

// The same text as a record, with nothing where it is lacking. None where it is no tracking report: without a leap
// status.
[[nodiscard]] std::optional<TrackingData> tracking_in_text(std::string_view output);

} // namespace tickervantage
