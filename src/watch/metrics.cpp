#include "watch/metrics.h"

#include "base/number_text.h"
#include "base/utf8.h"
#include "watch/observation.h"

#include <fmt/format.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

namespace tickervantage {
namespace {

constexpr std::uint32_t own_clock = 0x7F7F0101;

// As a label's value: backslashes, quotes and line feeds written the formats' way, and bytes that are no character as
// question marks.
std::string quoted(std::string_view text) {
    std::string quoted = "\"";
    while (!text.empty()) {
        const std::size_t length = character_length(text);
        const std::string_view sign = length == 0 ? "?" : text.substr(0, length);
        if (sign == "\\" || sign == "\"")
            quoted += '\\';
        quoted += sign == "\n" ? "\\n" : sign;
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return quoted + '"';
}

std::string label(const char* name, std::string_view value) {
    return std::string(name) + '=' + quoted(value);
}

class Exposition {
public:
    explicit Exposition(MetricsFormat format) : m_format(format) {}

    // The lines that follow are this metric's; one without a line is left out.
    void begin(const char* name, const char* help, bool is_gauge = true) {
        m_name = name;
        const char* const type = is_gauge ? "gauge" : m_format == MetricsFormat::openmetrics ? "unknown" : "untyped";
        m_heading = fmt::format("# HELP {0} {1}\n# TYPE {0} {2}\n", name, help, type);
    }

    void add(std::optional<double> value, const std::string& labels = {}) {
        const auto number = value ? text_from_double(*value) : std::nullopt;
        if (!number)
            return;
        m_text += std::exchange(m_heading, {});
        m_text += m_name + (labels.empty() ? "" : '{' + labels + '}') + ' ' + *number + '\n';
    }

    void one(const char* name, const char* help, std::optional<double> value) {
        begin(name, help);
        add(value);
    }

    std::string take() { return std::move(m_text) + (m_format == MetricsFormat::openmetrics ? "# EOF\n" : ""); }

private:
    MetricsFormat m_format;
    std::string m_name;
    std::string m_heading;
    std::string m_text;
};

std::string name_of_source(const ClockTruth& truth, const std::string& address) {
    const auto name = truth.reports.names.find(address);
    return name == truth.reports.names.end() ? address : name->second;
}

// Whether what is followed is at the other end of a network.
bool is_remote(const ClockTruth& truth) {
    const TrackingData& tracking = *truth.reports.tracking;
    const auto source =
        std::ranges::find(truth.sources, tracking.address, [](const JudgedSource& one) { return one.data.source; });
    const bool is_clock = source != truth.sources.end() && source->data.mode == SourceMode::refclock;
    return tracking.reference_id.value_or(0) != 0 && tracking.reference_id != own_clock && !tracking.address.empty() &&
           !is_clock;
}

template <typename Number>
std::optional<double> number(const std::optional<Number>& value) {
    return value ? std::optional(static_cast<double>(*value)) : std::nullopt;
}

void add_tracking(const ClockTruth& truth, Exposition& out) {
    if (!truth.reports.tracking)
        return;
    const TrackingData& tracking = *truth.reports.tracking;
    out.begin("chrony_tracking_info", "What the clock follows.");
    out.add(1, label("tracking_address", tracking.address) + ',' +
                   label("tracking_name", name_of_source(truth, tracking.address)) + ',' +
                   label("tracking_refid", fmt::format("{:08X}", tracking.reference_id.value_or(0))));
    out.one("chrony_tracking_reference_timestamp_seconds", "Time of the last update from a source, since 1970.",
            tracking.reference_time);
    // chronyc's column has the sign of its own correction: positive when the clock is slow.
    out.one("chrony_tracking_system_time_seconds", "Offset that is being corrected; positive: the clock is slow.",
            tracking.system_time ? std::optional(0.0 - *tracking.system_time) : std::nullopt);
    out.one("chrony_tracking_last_offset_seconds", "Offset at the last update.", tracking.last_offset);
    out.one("chrony_tracking_rms_offset_seconds", "Long-term average of the offset.", tracking.rms_offset);
    out.one("chrony_tracking_frequency_ppms", "Rate at which the clock would be wrong if it were not corrected.",
            tracking.frequency_ppm);
    out.one("chrony_tracking_residual_frequency_ppms", "Difference between the sources' frequency and the one in use.",
            tracking.residual_frequency_ppm);
    out.one("chrony_tracking_skew_ppms", "Error bound of the frequency.", tracking.skew_ppm);
    out.one("chrony_tracking_root_delay_seconds", "Delay of the path to the stratum 1 server.", tracking.root_delay);
    out.one("chrony_tracking_root_dispersion_seconds", "Dispersion along the path to the stratum 1 server.",
            tracking.root_dispersion);
    out.one("chrony_tracking_update_interval_seconds", "Time between the last two updates.", tracking.update_interval);
    out.one("chrony_tracking_stratum", "Hops to a reference clock.", number(tracking.stratum));
    out.one("chrony_tracking_remote_reference", "Whether the clock follows a source on the network.",
            is_remote(truth) ? 1 : 0);
}

std::string_view state_of(char letter) {
    switch (letter) {
    case '*':
        return "sync";
    case '+':
        return "candidate";
    case '-':
        return "outlier";
    case 'x':
        return "falseticker";
    case '~':
        return "jittery";
    default:
        return "unreach";
    }
}

std::string_view name_of(SourceMode mode) {
    return mode == SourceMode::peer ? "peer" : mode == SourceMode::refclock ? "ref" : "client";
}

struct Labelled {
    const JudgedSource* source;
    std::string labels;
};

// Two lines with the same labels would make the whole text unreadable.
std::vector<Labelled> labelled(const std::vector<JudgedSource>& sources) {
    std::vector<const JudgedSource*> order;
    order.reserve(sources.size());
    for (const JudgedSource& source : sources)
        order.push_back(&source);
    std::stable_partition(order.begin(), order.end(), [](const JudgedSource* source) { return is_usable(*source); });
    std::vector<Labelled> found;
    std::set<std::string> known;
    for (const JudgedSource* source : order) {
        std::string labels = label("source_address", source->data.source) + ',' +
                             label("source_name", source->name.value_or(source->data.source));
        if (found.size() < labelled_sources && known.insert(labels).second)
            found.push_back({source, std::move(labels)});
    }
    return found;
}

class SourceMetrics {
public:
    SourceMetrics(const std::vector<JudgedSource>& sources, Exposition& out)
        : m_sources(labelled(sources)), m_out(out) {}

    template <typename Value>
    void each(const char* name, const char* help, Value value) {
        m_out.begin(name, help);
        for (const Labelled& one : m_sources)
            m_out.add(value(*one.source), one.labels);
    }

    template <typename Value>
    void statistic(const char* name, const char* help, Value value) {
        each(name, help, [&](const JudgedSource& source) {
            return source.statistics ? std::optional<double>(value(*source.statistics)) : std::nullopt;
        });
    }

    void add_states() {
        m_out.begin("chrony_sources_state_info", "What chronyd makes of the source.");
        for (const auto& [source, labels] : m_sources)
            m_out.add(1, labels + ',' + label("source_state", state_of(source->data.letter)) + ',' +
                             label("source_mode", name_of(source->data.mode)));
    }

private:
    std::vector<Labelled> m_sources;
    Exposition& m_out;
};

void add_sources(SourceMetrics& metrics) {
    using Maybe = std::optional<double>;
    metrics.each("chrony_sources_last_sample_age_seconds", "Time since the last good measurement.",
                 [](const JudgedSource& source) { return source.data.last_rx; });
    metrics.each("chrony_sources_reachability_ratio", "Share of the last eight polls that were answered.",
                 [](const JudgedSource& source) { return Maybe(std::popcount(source.data.reach & 0xFFU) / 8.0); });
    metrics.each("chrony_sources_reachability_success", "Whether the last poll was answered.",
                 [](const JudgedSource& source) { return Maybe(source.data.reach & 1U); });
    metrics.each("chrony_sources_last_sample_offset_seconds", "Offset of the last measurement.",
                 [](const JudgedSource& source) { return source.data.offset; });
    metrics.each("chrony_sources_last_sample_error_margin_seconds", "Error margin of the last measurement.",
                 [](const JudgedSource& source) { return source.data.error; });
    metrics.each("chrony_sources_polling_interval_seconds", "Time between two polls.",
                 [](const JudgedSource& source) { return Maybe(std::exp2(source.data.poll)); });
    metrics.add_states();
    metrics.each("chrony_sources_stratum", "Stratum that the source says of itself.", [](const JudgedSource& source) {
        const bool is_known = source.data.last_rx || source.data.mode == SourceMode::refclock;
        return is_known ? Maybe(source.data.stratum) : Maybe();
    });
}

void add_statistics(SourceMetrics& metrics) {
    using Row = SourceStatistics;
    metrics.statistic("chrony_sourcestats_samples", "Measurements that are kept.",
                      [](const Row& row) { return static_cast<double>(row.samples); });
    metrics.statistic("chrony_sourcestats_runs", "Runs of residuals with the same sign.",
                      [](const Row& row) { return static_cast<double>(row.runs); });
    metrics.statistic("chrony_sourcestats_span_seconds", "Time between the oldest measurement and the newest.",
                      [](const Row& row) { return row.span; });
    metrics.statistic("chrony_sourcestats_stddev", "Standard deviation of the measurements, in seconds.",
                      [](const Row& row) { return row.std_dev; });
    metrics.statistic("chrony_sourcestats_frequency_ppms", "Residual frequency of the source.",
                      [](const Row& row) { return row.frequency_ppm; });
    metrics.statistic("chrony_sourcestats_frequency_skew_ppms", "Error bound of that frequency.",
                      [](const Row& row) { return row.skew_ppm; });
    metrics.statistic("chrony_sourcestats_offset", "Estimated offset of the source, in seconds.",
                      [](const Row& row) { return row.offset; });
    metrics.each("chrony_source_usable", "Whether chronyd could select the source.",
                 [](const JudgedSource& source) { return std::optional<double>(is_usable(source) ? 1 : 0); });
}

void add_clock(const ClockTruth& truth, Exposition& out) {
    const auto& budget = truth.budget;
    const auto part = [&](double ErrorBudget::*member, bool is_known) {
        return budget && is_known ? std::optional((*budget).*member) : std::nullopt;
    };
    out.one("chrony_clock_error_bound_seconds", "The error of the clock is not larger.",
            part(&ErrorBudget::bound, true));
    out.one("chrony_clock_error_growth", "Seconds that the bound grows a second without a source.",
            part(&ErrorBudget::growth, true));
    out.begin("chrony_clock_verdict", "1 for what is true of the clock now, else 0.");
    for (const Verdict verdict : verdicts)
        out.add(verdict == truth.verdict ? 1 : 0, label("verdict", tickervantage::name_of(verdict)));
    const bool has_age = budget && budget->age;
    out.begin("chrony_clock_bound_component_seconds", "What the error bound is made of.");
    out.add(part(&ErrorBudget::correction, true), label("component", "correction"));
    out.add(part(&ErrorBudget::delay, true), label("component", "delay"));
    out.add(part(&ErrorBudget::dispersion_measured, has_age), label("component", "dispersion_measured"));
    out.add(part(&ErrorBudget::dispersion_growth, has_age), label("component", "dispersion_growth"));
    const WatchObservation seen = observe(truth.reports, truth.sources, budget);
    out.one("chrony_clock_holdover_seconds",
            "Time since the last update while no source keeps the clock right, else 0.", seen[WatchQuantity::holdover]);
    out.begin("chrony_sources_total", "Sources that chronyd knows.", false); // by its name a counter, which it is not
    if (truth.reports.sources)
        out.add(static_cast<double>(truth.sources.size()));
}

} // namespace

std::string metrics_text(const ClockTruth& truth, MetricsFormat format) {
    Exposition out(format);
    out.one("chrony_up", "Whether chronyd answers.", truth.verdict == Verdict::unavailable ? 0 : 1);
    add_tracking(truth, out);
    SourceMetrics sources(truth.sources, out);
    add_sources(sources);
    add_statistics(sources);
    add_clock(truth, out);
    return out.take();
}

} // namespace tickervantage
