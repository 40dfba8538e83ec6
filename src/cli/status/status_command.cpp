#include "cli/status/status_command.h"

#include "cli/terminal.h"
#include "draw/instruments/clock_performance.h"

#include <fmt/format.h>

#include <ostream>
#include <utility>

namespace tickervantage {
namespace {

// What the meter shows; without a value it shows none.
struct MeterReading {
    ClockPerformance meter;
    meterView view{};
    bool has_value = false;
    std::string text;
};

std::optional<double> quantity_of(const TrackingData& tracking, meterView view) {
    switch (view) {
    case meterView::systemtime:
        return tracking.system_time;
    case meterView::lastoffset:
        return tracking.last_offset;
    case meterView::rmsoffset:
        return tracking.rms_offset;
    case meterView::rootdelay:
        return tracking.root_delay;
    case meterView::rootdispersion:
        return tracking.root_dispersion;
    case meterView::frequency:
        return tracking.frequency_ppm;
    }
    return std::nullopt;
}

MeterReading read_meter(const TrackingData& tracking, chronydStatus status, meterView view) {
    MeterReading reading;
    reading.view = view;
    reading.text = set_meter(reading.meter, choose_meter(status, view, report_of(tracking)));
    reading.has_value = status != chronydStatus::unavailable && quantity_of(tracking, view);
    if (!reading.has_value)
        reading.text = not_known;
    return reading;
}

Json meter_json(const MeterReading& reading) {
    const ClockPerformance& meter = reading.meter;
    return {{"view", name_of(reading.view)},
            {"value", reading.has_value ? Json(meter.value()) : Json(nullptr)},
            {"per_second", reading.view == meterView::frequency},
            {"scale", meter.scale()},
            {"scale_value", meter.scale_value()},
            {"scale_units", meter.scale_units()},
            {"scale_exp", meter.scale_exp()},
            {"deflection", reading.has_value ? Json(meter.deflection()) : Json(nullptr)},
            {"text", reading.text}};
}

Json moment_json(const std::optional<double>& moment) {
    return moment ? Json(text_of_moment(*moment)) : Json(nullptr);
}

Json reference_json(const TrackingData& tracking) {
    return {{"id", tracking.reference_id ? Json(fmt::format("{:08X}", *tracking.reference_id)) : Json(nullptr)},
            {"address", tracking.address.empty() ? Json(nullptr) : Json(tracking.address)},
            {"stratum", or_null(tracking.stratum)},
            {"time", moment_json(tracking.reference_time)}};
}

Json truth_json(const ClockTruth& truth, const TrackingData& tracking) {
    const auto& budget = truth.budget;
    return {{"verdict", name_of(truth.verdict)},
            {"since", moment_json(truth.verdict == Verdict::holdover ? tracking.reference_time : std::nullopt)},
            {"bound", budget ? Json(budget->bound) : Json(nullptr)},
            {"growth", budget ? Json(budget->growth) : Json(nullptr)},
            {"expected", or_null(truth.expected)},
            {"reference", reference_json(tracking)},
            {"steers", or_null(truth.reports.steers)}};
}

Json report_json(chronydStatus status, const TrackingData& tracking) {
    return {{"state", name_of(status)},
            {"frequency", or_null(tracking.frequency_ppm)},
            {"systemtime", or_null(tracking.system_time)},
            {"lastoffset", or_null(tracking.last_offset)},
            {"rmsoffset", or_null(tracking.rms_offset)},
            {"rootdelay", or_null(tracking.root_delay)},
            {"rootdispersion", or_null(tracking.root_dispersion)},
            {"leapstatus", tracking.leap_status.empty() ? Json(nullptr) : Json(tracking.leap_status)}};
}

std::string seconds_text(const std::optional<double>& seconds) {
    return seconds ? fmt::format("{:.9f} s", *seconds) : not_known;
}

void print_numbers(const TrackingData& tracking, std::ostream& out) {
    out << "Frequency       : "
        << (tracking.frequency_ppm ? fmt::format("{:.3f} ppm", *tracking.frequency_ppm) : not_known)
        << "\nSystem time     : " << seconds_text(tracking.system_time)
        << "\nLast offset     : " << seconds_text(tracking.last_offset)
        << "\nRMS offset      : " << seconds_text(tracking.rms_offset)
        << "\nRoot delay      : " << seconds_text(tracking.root_delay)
        << "\nRoot dispersion : " << seconds_text(tracking.root_dispersion) << '\n';
}

void print_text(const ClockTruth& truth, chronydStatus status, const MeterReading& meter, std::ostream& out) {
    const Headline answer = headline_of(truth);
    out << "Verdict         : " << verdict_line(answer) << "\nError           : " << english(answer.error) << '\n';
    if (answer.caution)
        out << "Caution         : " << english(*answer.caution) << '\n';
    out << "State           : " << name_of(status) << '\n';
    const auto& tracking = truth.reports.tracking;
    if (tracking)
        print_numbers(*tracking, out);
    out << "Leap status     : " << (tracking ? one_line(tracking->leap_status) : not_known)
        << "\nMeter           : " << name_of(meter.view) << ' ' << meter.text
        << (meter.has_value ? ", " + meter.meter.full_scale_text() : "") << '\n';
}

} // namespace

std::optional<meterView> meter_view_named(std::string_view name) {
    for (int i = 0; i < meter_view_count; ++i)
        if (name == name_of(static_cast<meterView>(i)))
            return static_cast<meterView>(i);
    return std::nullopt;
}

int print_status(const ClockTruth& truth, meterView view, DocumentForm form, std::ostream& out) {
    const TrackingData tracking = truth.reports.tracking.value_or(TrackingData());
    const chronydStatus status = status_from_leap(tracking.leap_status);
    const MeterReading meter = read_meter(tracking, status, view);
    if (form == DocumentForm::text) {
        print_text(truth, status, meter, out);
    } else {
        Json document = truth_json(truth, tracking);
        document.update(report_json(status, tracking));
        document["meter"] = meter_json(meter);
        print_json(document, form, out);
    }
    out.flush();
    return follows_time(truth.verdict) ? 0 : answer_is_no;
}

} // namespace tickervantage
