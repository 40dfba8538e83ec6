#include "chrony/reports/tracking_report.h"

#include "base/number_text.h"
#include "base/text_lines.h"
#include "chrony/data/records.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <map>
#include <optional>

namespace tickervantage {
namespace {

class Table {
public:
    explicit Table(std::string_view output) {
        for (const auto line : non_empty_lines(output))
            if (const auto colon = line.find(':'); colon != std::string_view::npos)
                m_values.insert_or_assign(trimmed(line.substr(0, colon)), trimmed(line.substr(colon + 1)));
    }

    [[nodiscard]] std::string_view value(std::string_view key) const {
        const auto found = m_values.find(key);
        return found == m_values.end() ? std::string_view() : found->second;
    }

    // The number at the value's start.
    [[nodiscard]] std::optional<double> number_there(std::string_view key) const {
        auto text = value(key);
        if (text.starts_with('+'))
            text.remove_prefix(1);
        double result = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), result);
        return error == std::errc() && std::isfinite(result) ? std::optional(result) : std::nullopt;
    }
    [[nodiscard]] double number(std::string_view key) const { return number_there(key).value_or(0); }

    [[nodiscard]] bool contains(std::string_view key, std::string_view word) const {
        return value(key).find(word) != std::string_view::npos;
    }

private:
    std::map<std::string_view, std::string_view> m_values;
};

// Zero stays zero, without the sign that plain negation would give it.
double negated(double number) {
    return 0.0 - number;
}

// "0.000000806 seconds slow of NTP time"
std::optional<double> negative_if(const Table& table, bool is_negative, std::string_view key) {
    const auto number = table.number_there(key);
    return number && is_negative ? negated(*number) : number;
}

// "05:20:32" as seconds of a day
std::optional<double> time_of_day(std::string_view text) {
    if (text.size() != 8 || text[2] != ':' || text[5] != ':')
        return std::nullopt;
    const auto hours = number_from_text<unsigned>(text.substr(0, 2));
    const auto minutes = number_from_text<unsigned>(text.substr(3, 2));
    const auto seconds = number_from_text<unsigned>(text.substr(6, 2));
    if (!hours || !minutes || !seconds || *hours > 23 || *minutes > 59 || *seconds > 60)
        return std::nullopt;
    return *hours * 3600.0 + *minutes * 60.0 + *seconds;
}

// "Sat Nov 21 05:20:32 2026"; chronyd says 1970 when there was no update yet.
std::optional<double> moment_of(std::string_view text) {
    static constexpr std::array<std::string_view, 12> months{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                             "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const auto parts = words(text);
    if (parts.size() != 5)
        return std::nullopt;
    const auto* const month = std::ranges::find(months, parts[1]);
    const auto day = number_from_text<unsigned>(parts[2]);
    const auto time = time_of_day(parts[3]);
    const auto year = number_from_text<int>(parts[4]);
    if (month == months.end() || !day || !time || !year || *year < 1971 || *year > 9999)
        return std::nullopt;
    const auto number_of_month = std::chrono::month{static_cast<unsigned>(month - months.begin()) + 1};
    const std::chrono::year_month_day date{std::chrono::year{*year}, number_of_month, std::chrono::day{*day}};
    if (!date.ok())
        return std::nullopt;
    return static_cast<double>(std::chrono::sys_days(date).time_since_epoch().count()) * 86400 + *time;
}

// "7F000001 (127.0.0.1)"
void read_reference(std::string_view text, TrackingData& tracking) {
    const auto open = text.find('(');
    tracking.reference_id = number_from_text<std::uint32_t>(trimmed(text.substr(0, open)), 16);
    if (open != std::string_view::npos && text.ends_with(')'))
        tracking.address = text.substr(open + 1, text.size() - open - 2);
}

} // namespace

TrackingReport parse_tracking(std::string_view output) {
    const Table table(output);
    TrackingReport report;
    const auto frequency = table.number_there("Frequency");
    report.frequency = table.contains("Frequency", "fast") ? frequency.value_or(0) : negated(frequency.value_or(0));
    const double systemtime = table.number("System time");
    report.systemtime = table.contains("System time", "slow") ? negated(systemtime) : systemtime;
    report.lastoffset = table.number("Last offset");
    report.rmsoffset = table.number("RMS offset");
    report.rootdelay = table.number("Root delay");
    report.rootdispersion = table.number("Root dispersion");
    report.leapstatus = table.value("Leap status");
    report.has_frequency = frequency.has_value() && !report.leapstatus.empty();
    return report;
}

TrackingReport report_of(const TrackingData& tracking) {
    return {.frequency = tracking.frequency_ppm.value_or(0),
            .systemtime = tracking.system_time.value_or(0),
            .lastoffset = tracking.last_offset.value_or(0),
            .rmsoffset = tracking.rms_offset.value_or(0),
            .rootdelay = tracking.root_delay.value_or(0),
            .rootdispersion = tracking.root_dispersion.value_or(0),
            .leapstatus = tracking.leap_status,
            .has_frequency = tracking.frequency_ppm.has_value()};
}

std::optional<TrackingData> tracking_in_text(std::string_view output) {
    const Table table(output);
    TrackingData tracking;
    tracking.leap_status = table.value("Leap status");
    if (tracking.leap_status.empty())
        return std::nullopt;
    read_reference(table.value("Reference ID"), tracking);
    tracking.stratum = number_from_text<int>(table.value("Stratum"));
    tracking.reference_time = moment_of(table.value("Ref time (UTC)"));
    tracking.system_time = negative_if(table, table.contains("System time", "slow"), "System time");
    tracking.last_offset = table.number_there("Last offset");
    tracking.rms_offset = table.number_there("RMS offset");
    tracking.frequency_ppm = negative_if(table, !table.contains("Frequency", "fast"), "Frequency");
    tracking.residual_frequency_ppm = table.number_there("Residual freq");
    tracking.skew_ppm = table.number_there("Skew");
    tracking.root_delay = table.number_there("Root delay");
    tracking.root_dispersion = table.number_there("Root dispersion");
    tracking.update_interval = table.number_there("Update interval");
    return tracking;
}

} // namespace tickervantage
