// Any bytes as a "tracking" report: every number on the dashboard stays finite or inside the meter, every text
// readable; the record of the same text says the same.
#include "chrony/data/records.h"
#include "chrony/reports/tracking_report.h"
#include "chrony/status/status_values.h"
#include "draw/instruments/clock_performance.h"
#include "fuzz/require.h"

#include <cmath>

namespace {

void require_same(const TrackingReport& report, const std::optional<TrackingData>& record) {
    require(record.has_value() == !report.leapstatus.empty());
    if (!record)
        return;
    require(record->leap_status == report.leapstatus && record->frequency_ppm.value_or(0) == report.frequency &&
            record->system_time.value_or(0) == report.systemtime &&
            record->last_offset.value_or(0) == report.lastoffset &&
            record->rms_offset.value_or(0) == report.rmsoffset && record->root_delay.value_or(0) == report.rootdelay &&
            record->root_dispersion.value_or(0) == report.rootdispersion);
}

} // namespace

FUZZED(text) {
    const TrackingReport report = parse_tracking(text);
    for (const double number : {report.frequency, report.systemtime, report.lastoffset, report.rmsoffset,
                                report.rootdelay, report.rootdispersion})
        require(std::isfinite(number));
    require(text.find(report.leapstatus) != std::string::npos);
    require_same(report, tracking_in_text(text));
    const auto status = status_from_leap(report.leapstatus);
    for (int view = 0; view < meter_view_count; ++view) {
        ClockPerformance meter;
        const auto shown = set_meter(meter, choose_meter(status, static_cast<meterView>(view), report));
        require(shown.ends_with(" " + meter.scale_units()));
        require(meter.deflection() >= ClockPerformance::MIN_DEFLECTION);
        require(meter.deflection() <= ClockPerformance::MAX_DEFLECTION);
        require(meter.scale_value() >= 1);
    }
}
