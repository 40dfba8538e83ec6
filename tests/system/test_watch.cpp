// The engine beside Prometheus: what is raised and ends in one is raised and ends in the other, at the same minute.
#include "chrony/truth/clock_truth.h"
#include "support/child_program.h"
#include "watch/engine.h"
#include "watch/metrics.h"
#include "watch/prometheus_rules.h"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <sstream>

namespace tickervantage {
namespace {

constexpr int instances = 200;
constexpr int minutes = 160;

// Reports of a machine that gets into one trouble after another, for as long as chance has it.
class RandomMachine {
public:
    explicit RandomMachine(unsigned seed) : m_random(seed) {}

    ClockTruth next() {
        if (m_left-- <= 0) {
            m_trouble = static_cast<Trouble>(number(0, 6));
            m_left = m_trouble == Trouble::held ? number(1, 110) : number(1, 20);
        }
        m_held = m_trouble == Trouble::held ? m_held + 60 : 0;
        return m_trouble == Trouble::gone ? clock_truth({}, {}) : clock_truth(reports(), {});
    }

private:
    enum class Trouble : unsigned char { none, wide, held, gone, contradicting, few, stepped };

    int number(int low, int high) { return std::uniform_int_distribution<int>(low, high)(m_random); }

    ChronyReports reports() {
        ChronyReports reports;
        reports.now = 1795325000.0;
        TrackingData tracking;
        tracking.reference_id = 0x01020304;
        tracking.address = "192.0.2.1";
        tracking.reference_time = *reports.now - 60 - m_held;
        tracking.system_time = 0;
        tracking.leap_status = "Normal";
        tracking.last_offset = (m_trouble == Trouble::stepped ? -0.01 : 0.001) * number(5, 15);
        tracking.skew_ppm = tracking.residual_frequency_ppm = tracking.root_delay = 0.0;
        tracking.root_dispersion = (m_trouble == Trouble::wide ? 0.001 : 0.0001) * number(30, 60);
        reports.tracking = tracking;
        const std::string letters = m_trouble == Trouble::held            ? "???"
                                    : m_trouble == Trouble::contradicting ? "xxx"
                                    : m_trouble == Trouble::few           ? (number(0, 1) == 0 ? "*??" : "*+?")
                                                                          : "*+x";
        reports.sources.emplace();
        for (const char letter : letters) {
            SourceData& source = reports.sources->emplace_back();
            source.letter = letter;
            source.source = "192.0.2." + std::to_string(reports.sources->size());
            source.poll = 6;
            source.reach = 255;
            source.last_rx = letter == '?' ? 9999 : 10;
        }
        return reports;
    }

    std::mt19937 m_random;
    Trouble m_trouble = Trouble::none;
    int m_left = 0;
    double m_held = 0;
};

// The metrics of one machine over time, as promtool wants series: "stale" where one is absent.
class RecordedSeries {
public:
    void add(const std::string& metrics, int minute) {
        std::istringstream lines(metrics);
        for (std::string line; std::getline(lines, line);) {
            const auto blank = line.rfind(' ');
            if (line.starts_with('#') || !is_used(line))
                continue;
            auto& values = m_values[line.substr(0, blank)];
            values.resize(static_cast<std::size_t>(minute), "stale");
            values.push_back(line.substr(blank + 1));
        }
    }

    [[nodiscard]] std::string yaml(const std::string& instance) {
        std::string text;
        for (auto& [name, values] : m_values) {
            values.resize(minutes, "stale");
            std::string series = name;
            const auto brace = series.find('{');
            const std::string label = "instance=\"" + instance + '"';
            brace == std::string::npos ? series += '{' + label + '}' : series.insert(brace + 1, label + ',');
            text += "      - series: '" + series + "'\n        values: '";
            for (const std::string& value : values)
                text += value + ' ';
            text += "'\n";
        }
        return text;
    }

private:
    // What the rules ask for; the rest would only take time.
    static bool is_used(const std::string& line) {
        for (const char* name : {"chrony_up ", "chrony_clock_holdover_seconds", "chrony_clock_error_bound_seconds",
                                 "chrony_source_usable", "chrony_sources_total", "chrony_tracking_last_offset_seconds",
                                 "chrony_clock_verdict{", "chrony_sources_state_info{"})
            if (line.starts_with(name))
                return true;
        return false;
    }

    std::map<std::string, std::vector<std::string>> m_values;
};

TEST(Watch, EngineAndPrometheusRaiseAndEndAtTheSameMinute) {
    if (access("/usr/bin/promtool", X_OK) != 0)
        GTEST_SKIP() << "promtool is not installed (package prometheus)";
    std::string series;
    std::array<std::string, minutes> expected;
    int firing = 0;
    std::set<WatchQuantity> seen;
    for (int index = 0; index < instances; ++index) {
        const std::string name = "host" + std::to_string(index);
        RandomMachine machine(static_cast<unsigned>(index));
        WatchEngine engine(watch_rules(), 0, 0);
        RecordedSeries recorded;
        for (int minute = 0; minute < minutes; ++minute) {
            const ClockTruth truth = machine.next();
            recorded.add(metrics_text(truth, MetricsFormat::prometheus), minute);
            (void)engine.observe(observe(truth.reports, truth.sources, truth.budget), minute * 60.0);
            for (const WatchRule& rule : engine.raised()) {
                expected.at(static_cast<std::size_t>(minute)) +=
                    "          - labels: '{alertname=\"" + std::string(alert_of(rule.quantity)) + "\", instance=\"" +
                    name + "\"}'\n            value: 1\n";
                seen.insert(rule.quantity);
                ++firing;
            }
        }
        series += recorded.yaml(name);
    }
    EXPECT_EQ(seen.size(), watch_quantities.size()) << "every rule was raised somewhere";
    EXPECT_GT(firing, instances * 10);
    std::string tests = "rule_files: ['rules.yml']\nevaluation_interval: 1m\ntests:\n  - interval: 1m\n"
                        "    input_series:\n" +
                        series + "    promql_expr_test:\n";
    for (std::size_t minute = 0; minute < expected.size(); ++minute)
        tests += "      - expr: 'count by (alertname, instance) (ALERTS{alertstate=\"firing\"})'\n        eval_time: " +
                 std::to_string(minute) +
                 "m\n        exp_samples:" + (expected[minute].empty() ? " []\n" : '\n' + expected[minute]);
    testing::PrivateHome home;
    testing::write_file(home.path("rules.yml"), prometheus_rules(watch_rules()));
    testing::write_file(home.path("tests.yml"), tests);
    testing::ChildProgram promtool({"/usr/bin/promtool", "test", "rules", home.path("tests.yml")}, home.environment,
                                   home.path());
    const auto status = promtool.ends_within(std::chrono::seconds(300));
    EXPECT_EQ(status, 0) << (promtool.out() + promtool.err()).substr(0, 2000);
}

} // namespace
} // namespace tickervantage
