#include "chrony/reports/tracking_report.h"

#include "base/text_lines.h"

#include <charconv>
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

} // namespace tickervantage
