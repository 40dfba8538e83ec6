#include "watch/prometheus_rules.h"

#include "watch/range.h"

#include <fmt/format.h>

#include <array>
#include <cmath>

namespace tickervantage {
namespace {

// What differs from rule to rule. In a summary V stands for the value.
struct AlertText {
    std::string_view alert;
    std::string_view expression; // the quantity, one value an instance
    std::string_view summary;
    std::string_view description;
};

constexpr std::string_view sum_of_usable =
    "sum without (source_address, source_name) (chrony_source_usable)"; // nothing where there are no sources

const AlertText& text_for(WatchQuantity quantity) {
    static const std::string few = fmt::format("(({} or 0 * chrony_sources_total) unless ignoring (verdict) "
                                               "(chrony_clock_verdict{{verdict=\"holdover\"}} == 1))",
                                               sum_of_usable);
    static const std::string contradicting =
        fmt::format("(count without (source_address, source_name, source_state, source_mode) "
                    "(chrony_sources_state_info{{source_state=\"falseticker\"}}) unless ({} > 0))",
                    sum_of_usable);
    static const std::array<AlertText, watch_quantities.size()> texts{{
        {"ClockUnavailable", "chrony_up", "chronyd on {{ $labels.instance }} does not answer.",
         "Nothing tells whether its clock is right. See systemctl status chrony there."},
        {"ClockHoldover", "chrony_clock_holdover_seconds",
         "The clock of {{ $labels.instance }} has run on by itself for V s.",
         "No time source keeps it right. See tickerctl explain there."},
        {"ClockErrorBound", "chrony_clock_error_bound_seconds",
         "The clock of {{ $labels.instance }} can be off by V s.", "See tickerctl budget there."},
        {"ClockNoMajority", contradicting, "V time sources of {{ $labels.instance }} contradict each other.",
         "No majority tells which are right, so none is used. See tickerctl explain there."},
        {"ClockFewSources", few, "{{ $labels.instance }} has V usable time sources.",
         "One that fails, or lies, would not be noticed. See tickerctl explain there."},
        {"ClockStepped",
         "(abs(chrony_tracking_last_offset_seconds) and ignoring (verdict) "
         "(chrony_clock_verdict{verdict=~\"synchronised|correcting|leap\"} == 1))",
         "The clock of {{ $labels.instance }} was set by V s.", "It was off by that much at its last update."},
    }};
    return texts.at(static_cast<std::size_t>(quantity));
}

std::string with_value(std::string_view text, const std::string& value) {
    std::string filled(text);
    if (const auto at = filled.find("V "); at != std::string::npos)
        filled.replace(at, 1, value);
    return filled;
}

std::string_view name_of(WatchSeverity severity) {
    return severity == WatchSeverity::critical ? "critical" : "warning";
}

// Once it was raised an alarm looks at itself: Prometheus writes what fires as a series.
std::string condition(const WatchRule& rule) {
    const AlertText& text = text_for(rule.quantity);
    const bool is_above = rule.sense == WatchSense::above;
    std::string begins = fmt::format("{} {} {}", text.expression, is_above ? ">" : "<", plain_number(rule.raise));
    if (!has_hysteresis(rule))
        return begins;
    return fmt::format("({0}) or (({1} {2} {3}) and ignoring (alertname, alertstate, severity) "
                       "ALERTS{{alertname=\"{4}\", alertstate=\"firing\"}})",
                       begins, text.expression, is_above ? ">=" : "<=", plain_number(rule.clear), text.alert);
}

std::string duration_line(const char* key, double seconds) {
    return seconds > 0 ? fmt::format("        {}: {}s\n", key, std::llround(seconds)) : "";
}

std::string rule_text(const WatchRule& rule) {
    const AlertText& text = text_for(rule.quantity);
    std::string yaml = fmt::format("      - alert: {}\n        expr: >-\n          {}\n", text.alert, condition(rule));
    yaml += duration_line("for", rule.hold) + duration_line("keep_firing_for", rule.clear_hold);
    yaml += fmt::format("        labels:\n          severity: {}\n        annotations:\n", name_of(rule.severity));
    yaml += fmt::format("          summary: '{}'\n          description: '{}'\n",
                        with_value(text.summary, "{{ printf \"%.3g\" $value }}"), text.description);
    return yaml;
}

constexpr const char* stale_rule = R"(      - alert: ClockMetricsStale
        expr: >-
          time() - node_textfile_mtime_seconds{file=~".*/tickervantage\\.prom"} > 600
        for: 60s
        labels:
          severity: warning
        annotations:
          summary: 'The metrics of the clock of {{ $labels.instance }} are {{ printf "%.0f" $value }} s old.'
          description: 'See systemctl status tickervantage-metrics.timer there.'
)";

// A test lets the value be all right, then beyond the limit, then all right again, each for this many minutes.
constexpr int phase = 30;

struct Series {
    std::string_view name; // with labels other than the instance
    double good;
    double bad;
};

constexpr double absent = -1;

// With values of the series that make the quantity `bad` in the middle.
std::vector<Series> series_for(const WatchRule& rule, double bad) {
    switch (rule.quantity) {
    case WatchQuantity::available:
        return {{"chrony_up{", 1, bad}};
    case WatchQuantity::holdover:
        return {{"chrony_clock_holdover_seconds{", 0, bad}};
    case WatchQuantity::bound:
        return {{"chrony_clock_error_bound_seconds{", 0.001, bad}};
    case WatchQuantity::no_majority:
        return {{R"(chrony_source_usable{source_address="192.0.2.1",)", 1, 0},
                {R"(chrony_source_usable{source_address="192.0.2.2",)", 1, 0},
                {R"(chrony_sources_state_info{source_address="192.0.2.1",source_state="falseticker",)", absent, 1},
                {R"(chrony_sources_state_info{source_address="192.0.2.2",source_state="falseticker",)", absent, 1}};
    case WatchQuantity::usable:
        return {{"chrony_sources_total{", 9, 9}, {R"(chrony_source_usable{source_address="192.0.2.1",)", 9, bad}};
    case WatchQuantity::step:
        break;
    }
    return {{"chrony_clock_verdict{verdict=\"synchronised\",", 1, 1},
            {"chrony_tracking_last_offset_seconds{", 0.000001, -bad}};
}

double bad_value(const WatchRule& rule) {
    if (rule.quantity == WatchQuantity::no_majority)
        return 2;
    return rule.sense == WatchSense::above ? rule.raise * 2 : std::floor(rule.raise / 2);
}

std::string values_of(double value) {
    return value == absent ? fmt::format("stale _x{}", phase - 1)
                           : fmt::format("{}x{}", plain_number(value), phase - 1);
}

std::string input_text(const WatchRule& rule, double bad) {
    std::string yaml;
    for (const Series& one : series_for(rule, bad))
        yaml += fmt::format("      - series: '{0}instance=\"ntp1\"}}'\n        values: '{1} {2} {1}'\n", one.name,
                            values_of(one.good), values_of(one.bad));
    return yaml;
}

std::string expectation(const WatchRule& rule, int minute, bool raised, double bad) {
    const AlertText& text = text_for(rule.quantity);
    std::string yaml =
        fmt::format("      - eval_time: {}m\n        alertname: {}\n        exp_alerts:", minute, text.alert);
    if (!raised)
        return yaml + " []\n";
    std::string summary = with_value(text.summary, fmt::format("{:.3g}", bad));
    constexpr std::string_view instance = "{{ $labels.instance }}";
    summary.replace(summary.find(instance), instance.size(), "ntp1");
    yaml += fmt::format("\n          - exp_labels:\n              severity: {}\n              instance: ntp1\n",
                        name_of(rule.severity));
    return yaml +
           fmt::format("            exp_annotations:\n              summary: '{}'\n              description: '{}'\n",
                       summary, text.description);
}

std::string test_text(const WatchRule& rule) {
    const auto minutes = [](double seconds) {
        return static_cast<int>(std::ceil(seconds / 60));
    };
    const double bad = bad_value(rule);
    const int begins = phase + minutes(rule.hold);
    const int ends = 2 * phase + minutes(rule.clear_hold);
    std::string yaml =
        fmt::format("  - interval: 1m\n    name: {}\n    input_series:\n", text_for(rule.quantity).alert);
    yaml += input_text(rule, bad) + "    alert_rule_test:\n";
    yaml += expectation(rule, begins - 1, false, bad) + expectation(rule, begins, true, bad);
    return yaml + expectation(rule, 2 * phase - 1, true, bad) + expectation(rule, ends, false, bad);
}

} // namespace

std::string_view alert_of(WatchQuantity quantity) {
    return text_for(quantity).alert;
}

std::string prometheus_rules(const std::vector<WatchRule>& rules) {
    std::string yaml = "# Alarms of Tickervantage, made by: tickerctl rules\n"
                       "# They need the metrics of: tickerctl metrics\n"
                       "groups:\n  - name: tickervantage\n    rules:\n";
    for (const WatchRule& rule : rules)
        yaml += rule_text(rule);
    return yaml + stale_rule;
}

std::string prometheus_tests(const std::vector<WatchRule>& rules) {
    std::string yaml = "# Made by: tickerctl rules --tests\n"
                       "# Beside the rules, under a name such as tickervantage.rules.yml: promtool test rules FILE\n"
                       "rule_files:\n  - '*rules.yml'\nevaluation_interval: 1m\ntests:\n";
    for (const WatchRule& rule : rules)
        yaml += test_text(rule);
    return yaml;
}

} // namespace tickervantage
