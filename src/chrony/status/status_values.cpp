#include "chrony/status/status_values.h"

#include "draw/instruments/clock_performance.h"

#include <array>

#include <fmt/format.h>

namespace tickervantage {

std::string_view name_of(chronydStatus status) {
    static constexpr std::array<std::string_view, 3> names{"synchronised", "notlocked", "unavailable"};
    return names.at(static_cast<std::size_t>(status));
}

std::string_view name_of(meterView view) {
    static constexpr std::array<std::string_view, meter_view_count> names{"systemtime", "lastoffset",     "rmsoffset",
                                                                          "rootdelay",  "rootdispersion", "frequency"};
    return names.at(static_cast<std::size_t>(view));
}

chronydStatus status_from_leap(std::string_view leapstatus) {
    if (leapstatus == "Normal")
        return chronydStatus::synchronised;
    if (leapstatus == "Not synchronised" || leapstatus == "Insert second")
        return chronydStatus::notlocked;
    return chronydStatus::unavailable;
}

MeterInput choose_meter(chronydStatus status, meterView view, const TrackingReport& report) {
    constexpr double ratio_per_ppm = 1e-6;
    if (status == chronydStatus::unavailable)
        return {};
    switch (view) {
    case meterView::systemtime:
        return {report.systemtime, false};
    case meterView::lastoffset:
        return {report.lastoffset, false};
    case meterView::rmsoffset:
        return {report.rmsoffset, false};
    case meterView::rootdelay:
        return {report.rootdelay, false};
    case meterView::rootdispersion:
        return {report.rootdispersion, false};
    case meterView::frequency:
        return {report.frequency * ratio_per_ppm, true};
    }
    return {};
}

std::string set_meter(ClockPerformance& meter, const MeterInput& input) {
    constexpr double nanoseconds_per_second = 1e9;
    meter.setValue(input.value * nanoseconds_per_second, input.per_second);
    double shown = input.value;
    for (int i = 0; i < meter.scale_exp(); ++i)
        shown *= 10;
    return fmt::format("{:.3f} {}", shown, meter.scale_units());
}

} // namespace tickervantage
