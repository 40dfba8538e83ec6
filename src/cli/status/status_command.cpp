#include "cli/status/status_command.h"

#include "cli/json_text.h"
#include "cli/terminal.h"
#include "draw/instruments/clock_performance.h"

#include <fmt/format.h>

#include <ostream>

namespace tickervantage {
namespace {

Json meter_json(ClockPerformance& meter, meterView view, const MeterInput& input, const std::string& text) {
    return {{"view", name_of(view)},
            {"value", meter.value()},
            {"per_second", input.per_second},
            {"scale", meter.scale()},
            {"scale_value", meter.scale_value()},
            {"scale_units", meter.scale_units()},
            {"scale_exp", meter.scale_exp()},
            {"deflection", meter.deflection()},
            {"text", text}};
}

Json report_json(chronydStatus status, const TrackingReport& report) {
    return {{"state", name_of(status)},
            {"frequency", report.frequency},
            {"systemtime", report.systemtime},
            {"lastoffset", report.lastoffset},
            {"rmsoffset", report.rmsoffset},
            {"rootdelay", report.rootdelay},
            {"rootdispersion", report.rootdispersion},
            {"leapstatus", report.leapstatus}};
}

void print_text(chronydStatus status, const TrackingReport& report, const std::string& meter_line, std::ostream& out) {
    out << fmt::format("State           : {}\n", name_of(status));
    if (status != chronydStatus::unavailable)
        out << fmt::format("Frequency       : {:.3f} ppm\n"
                           "System time     : {:.9f} s\n"
                           "Last offset     : {:.9f} s\n"
                           "RMS offset      : {:.9f} s\n"
                           "Root delay      : {:.9f} s\n"
                           "Root dispersion : {:.9f} s\n",
                           report.frequency, report.systemtime, report.lastoffset, report.rmsoffset, report.rootdelay,
                           report.rootdispersion);
    out << fmt::format("Leap status     : {}\n", report.leapstatus.empty() ? "-" : one_line(report.leapstatus))
        << "Meter           : " << meter_line << '\n';
}

} // namespace

std::optional<meterView> meter_view_named(std::string_view name) {
    for (int i = 0; i < meter_view_count; ++i)
        if (name == name_of(static_cast<meterView>(i)))
            return static_cast<meterView>(i);
    return std::nullopt;
}

int print_status(const std::string& tracking_output, meterView view, StatusForm form, std::ostream& out) {
    const TrackingReport report = parse_tracking(tracking_output);
    const chronydStatus status = status_from_leap(report.leapstatus);
    const MeterInput input = choose_meter(status, view, report);
    ClockPerformance meter;
    const std::string text = set_meter(meter, input);
    if (form == StatusForm::text) {
        print_text(status, report, fmt::format("{} {}, {}", name_of(view), text, meter.full_scale_text()), out);
    } else {
        Json document = report_json(status, report);
        document["meter"] = meter_json(meter, view, input, text);
        const int indent = form == StatusForm::json ? 2 : -1;
        out << json_text(document, indent);
    }
    out.flush();
    return status == chronydStatus::synchronised ? 0 : 1;
}

} // namespace tickervantage
