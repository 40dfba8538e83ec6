// What is watched: ranges, rules, the engine, and how it is told to plugins and to Prometheus.
#include "cli/status/clock_reading.h"
#include "cli/watch/health_command.h"
#include "support/child_program.h"
#include "support/chrony_reports.h"
#include "watch/engine.h"
#include "watch/log_alarms.h"
#include "watch/metrics.h"
#include "watch/prometheus_rules.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tickervantage {
namespace {

using testing::ReportedSource;
using testing::TrackingLine;

TEST(AlertRange, ReadsWhatTheGuidelinesAllow) {
    struct Case {
        const char* text;
        const char* normal; // nullptr: no range
        std::vector<double> fine;
        std::vector<double> alarming;
    };
    const std::vector<Case> cases{
        {"10", "10", {0, 5, 10}, {-0.1, 10.1}},
        {"10:", "10:", {10, 1e9}, {9.9, -1}},
        {"~:10", "~:10", {-1e9, 10}, {10.1}},
        {"10:20", "10:20", {10, 20}, {9, 21}},
        {"@10:20", "@10:20", {9, 21}, {10, 15, 20}},
        {"@10", "@10", {-1, 11}, {0, 10}},
        {"@~:0", "@~:0", {0.1}, {0, -5}},
        {":10", "10", {0, 10}, {-1, 11}},
        {"~:", "~:", {-1e9, 0, 1e9}, {}},
        {"0:", "0:", {0, 1}, {-1}},
        {"-3:-1", "-3:-1", {-3, -1}, {0}},
        {"50ms", "0.05", {0.05}, {0.0501}},
        {"1us:50ms", "0.000001:0.05", {0.05}, {0}},
        {"1ms:2s", "0.001:2", {1}, {3}},
        {"50ns", "0.00000005", {0}, {1e-6}},
        {"1e-3:2", "0.001:2", {1}, {0}},
        {"+5", "5", {5}, {6}},
        {"5:5", "5:5", {5}, {4}},
    };
    for (const Case& one : cases) {
        const auto range = parse_range(one.text, RangeUnits::time);
        ASSERT_TRUE(range) << one.text;
        EXPECT_EQ(text_of(*range), one.normal);
        for (const double value : one.fine)
            EXPECT_FALSE(alerts(*range, value)) << one.text << ' ' << value;
        for (const double value : one.alarming)
            EXPECT_TRUE(alerts(*range, value)) << one.text << ' ' << value;
    }
    for (const char* text :
         {"",     ":",     "@",  "~",    "10:~", "5:1",  "1:50ms", "50 ms", " 5",  "5 ",  "ms",   "nan",
          "inf:", "1:2:3", "5m", "5min", "5S",   "0x10", "@@5",    "--5",   "+-5", "5,5", "1e999"})
        EXPECT_FALSE(parse_range(text, RangeUnits::time)) << text;
    EXPECT_FALSE(parse_range("2s:", RangeUnits::none)) << "sources are no seconds";
    EXPECT_TRUE(parse_range("2:", RangeUnits::none));
}

WatchObservation with(WatchQuantity quantity, std::optional<double> value) {
    WatchObservation seen;
    seen.at(quantity) = value;
    return seen;
}

// How often it is raised, over values a minute apart.
template <typename Value>
int times_raised(WatchQuantity quantity, int minutes, Value value) {
    WatchEngine engine(watch_rules(), 0, 0);
    int raised = 0;
    for (int minute = 0; minute < minutes; ++minute)
        if (engine.observe(with(quantity, value(minute)), minute * 60.0))
            raised += engine.raised().empty() ? 0 : 1;
    return raised;
}

TEST(WatchEngine, AValueThatSwingsAllNightRaisesOneAlarm) {
    const auto wave = [](int minute) {
        return 0.05 * (1 + 0.2 * std::sin(minute / 7.0));
    };
    const auto square = [](int minute) {
        return minute / 30 % 2 == 0 ? 0.06 : 0.04;
    };
    EXPECT_EQ(times_raised(WatchQuantity::bound, 600, wave), 1);
    EXPECT_EQ(times_raised(WatchQuantity::bound, 600, square), 1);
    EXPECT_EQ(times_raised(WatchQuantity::step, 600, [&](int minute) { return 2 * wave(minute); }), 1);
    EXPECT_EQ(times_raised(WatchQuantity::bound, 600, [](int minute) { return minute % 2 == 0 ? 0.06 : 0.01; }), 0)
        << "never for a whole minute";
}

TEST(WatchEngine, RaisesAndEndsWhenItsTimesAreOver) {
    struct Case {
        WatchQuantity quantity;
        double fine;
        double wrong;
        double hold;
        double clear_hold;
    };
    for (const Case& one :
         {Case{WatchQuantity::available, 1, 0, 60, 60}, Case{WatchQuantity::holdover, 0, 3601, 0, 60},
          Case{WatchQuantity::bound, 0.039, 0.051, 60, 300}, Case{WatchQuantity::no_majority, 0, 2, 60, 60},
          Case{WatchQuantity::usable, 2, 1, 300, 300}, Case{WatchQuantity::step, 0.079, 0.11, 0, 0}}) {
        WatchEngine engine(watch_rules(), 0, 0);
        const auto at = [&](double value, double now) {
            (void)engine.observe(with(one.quantity, value), now);
            return !engine.raised().empty();
        };
        const std::string name(name_of(one.quantity));
        EXPECT_FALSE(at(one.fine, 0)) << name;
        if (one.hold > 0) {
            EXPECT_FALSE(at(one.wrong, 10) || at(one.wrong, 10 + one.hold - 1)) << name;
        }
        EXPECT_TRUE(at(one.wrong, 10 + one.hold)) << name;
        const double end = 1000;
        if (one.clear_hold > 0) {
            EXPECT_TRUE(at(one.fine, end) && at(one.fine, end + one.clear_hold - 1)) << name;
        }
        EXPECT_FALSE(at(one.fine, end + one.clear_hold)) << name;
    }
}

TEST(WatchEngine, IsSilentAfterTheStartAndAfterSleep) {
    WatchEngine engine(watch_rules(), 1000);
    const auto gone = with(WatchQuantity::available, 0);
    EXPECT_FALSE(engine.observe(gone, 1299)) << "grace";
    EXPECT_FALSE(engine.observe(gone, 1300));
    EXPECT_FALSE(engine.observe(gone, 1359));
    EXPECT_TRUE(engine.observe(gone, 1360));
    engine.resumed(2000);
    EXPECT_FALSE(engine.observe(with(WatchQuantity::available, 1), 2299)) << "what was raised stays";
    EXPECT_EQ(engine.raised().size(), 1U);
}

TEST(WatchEngine, RemembersWhatWasRaisedAndWhatIsQuiet) {
    WatchEngine first(watch_rules(), 0, 0);
    WatchObservation seen;
    seen.at(WatchQuantity::step) = 1;
    seen.at(WatchQuantity::holdover) = 4000;
    EXPECT_TRUE(first.observe(seen, 0));
    first.be_quiet();
    EXPECT_TRUE(first.told().empty());
    EXPECT_EQ(first.memory().quiet, (std::vector<std::string>{"holdover", "step"}));
    WatchEngine second(watch_rules(), 0, 0, first.memory());
    EXPECT_EQ(second.memory(), first.memory());
    EXPECT_FALSE(second.observe(seen, 1)) << "no news";
    seen.at(WatchQuantity::available) = 0;
    EXPECT_FALSE(second.observe(seen, 10));
    EXPECT_TRUE(second.observe(seen, 70));
    ASSERT_EQ(second.told().size(), 1U) << "a new trouble is told";
    EXPECT_EQ(second.raised().front().quantity, WatchQuantity::available) << "the most severe first";
    EXPECT_TRUE(second.observe({}, 10000) || second.observe({}, 20000));
    WatchEngine third(watch_rules(), 0, 0, {.raised = {"nonsense"}, .quiet = {"step"}});
    EXPECT_EQ(third.memory(), WatchMemory());
}

ClockTruth truth_of(const TrackingLine& tracking, const std::vector<ReportedSource>& sources) {
    return reading_of(testing::capture_of(tracking, sources));
}

TEST(WatchObservation, SilencesWhatACauseMakesOfOthers) {
    const ReportedSource killed{.address = "192.0.2.1", .letter = '?', .reach = "0", .last = "5000"};
    const auto held = truth_of({.time = "1795317800.0"}, {killed, killed});
    ASSERT_EQ(held.verdict, Verdict::holdover);
    const auto seen = observe(held.reports, held.sources, held.budget);
    EXPECT_FALSE(seen[WatchQuantity::usable]);
    EXPECT_FALSE(seen[WatchQuantity::step]);
    EXPECT_NEAR(seen[WatchQuantity::holdover].value_or(0), 7210, 1);
    const ClockTruth nothing;
    const auto gone = observe(nothing.reports, nothing.sources, nothing.budget);
    EXPECT_EQ(gone[WatchQuantity::available], 0);
    EXPECT_FALSE(gone[WatchQuantity::bound] || gone[WatchQuantity::holdover]);
}

TEST(Health, JudgesEachVerdictAndItsLimits) {
    const ReportedSource used{.address = "192.0.2.1"};
    const ReportedSource other{.address = "192.0.2.2", .letter = '+'};
    const ReportedSource killed{.address = "192.0.2.1", .letter = '?', .reach = "0", .last = "5000"};
    const std::vector<ReportedSource> both{used, other};
    struct Case {
        const char* what;
        TrackingLine tracking;
        std::vector<ReportedSource> sources;
        HealthState state;
        const char* words;
    };
    using enum HealthState;
    const std::vector<Case> cases{
        {"right", {}, both, ok, "synchronised to 192.0.2.1: 2 of 2 sources in use; certainly within 2 ms"},
        {"one source", {}, {used}, warning, "1 of 1 sources in use, 1 usable"},
        {"wide", {.root_dispersion = "0.060"}, both, warning, "certainly within 61 ms (limit 0.05 s)"},
        {"wider", {.root_dispersion = "0.600"}, both, critical, "(limit 0.5 s)"},
        {"held for 10 s", {}, {killed}, ok, "holdover for 10 s: 0 of 1 sources in use"},
        {"held for 2 h", {.time = "1795317570.0"}, {killed}, warning, "holdover for 2 h 4 min: 0 of 1"},
        {"held for 2 days", {.time = "1795152200.0"}, {killed}, critical, "holdover for 2 d"},
        {"local", {.id = "7F7F0101", .address = ""}, both, critical, "own time only"},
        {"not yet", {.id = "00000000", .leap = "Not synchronised"}, both, critical, "not synchronised: "},
        {"far off", {.system_time = "0.2"}, both, warning, "correcting, 200 ms left"},
        {"leap", {.leap = "Insert second"}, both, ok, "leap second pending"},
    };
    for (const Case& one : cases) {
        const auto answer = health(truth_of(one.tracking, one.sources).reports, {});
        EXPECT_EQ(answer.state, one.state) << one.what << ": " << answer.line;
        EXPECT_NE(answer.line.find(one.words), std::string::npos) << one.what << ": " << answer.line;
    }
    ChronyReports silent;
    silent.refusal = "506 Cannot talk to daemon";
    EXPECT_EQ(health(silent, {}).line, "CLOCK CRITICAL - not available: 506 Cannot talk to daemon");
    EXPECT_EQ(health(silent, {}).state, critical);
}

TEST(Health, NothingThatASourceCallsItselfEndsTheLine) {
    const ReportedSource used{.address = "192.0.2.1"};
    ChronyReports reports = truth_of({}, {used, used}).reports;
    reports.names["192.0.2.1"] = "a|b'c\"d\ne\x01µ";
    const std::string line = health(reports, {}).line;
    EXPECT_NE(line.find("synchronised to a.b.c.d.e.."), std::string::npos) << line;
    EXPECT_EQ(std::ranges::count(line, '|'), 1);
    EXPECT_NE(
        line.find(" | bound=0.002000344s;0.05;0.5;0 offset=0.000000344s;;;; usable=2;2:;1:;0 age=10s;3600;86400;0"),
        std::string::npos)
        << line;
}

TEST(Health, ItsArgumentsAreRangesOrToldToBeNone) {
    std::string complaint;
    HealthArguments arguments;
    arguments.warning = "1ms";
    arguments.sources_critical = "3:";
    const auto limits = limits_of(arguments, complaint);
    ASSERT_TRUE(limits) << complaint;
    EXPECT_DOUBLE_EQ(limits->bound_warning.end, 0.001);
    EXPECT_DOUBLE_EQ(limits->sources_critical.start, 3);
    EXPECT_DOUBLE_EQ(limits->bound_critical.end, 0.5);
    arguments.sources_warning = "2ms:";
    EXPECT_FALSE(limits_of(arguments, complaint));
    EXPECT_NE(complaint.find("--sources-warning"), std::string::npos) << complaint;
}

std::string metrics_of(const std::string& capture, MetricsFormat format = MetricsFormat::prometheus) {
    return metrics_text(reading_of(parse_capture(testing::contents(std::string(CAPTURES "/") + capture)).value()),
                        format);
}

std::size_t count_of(const std::string& text, const std::string& what) {
    std::size_t count = 0;
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
        ++count;
    return count;
}

TEST(Metrics, NameWhatChronySaysAndLeaveOutWhatItDoesNot) {
    const std::string text = metrics_of("chrony-4.3.txt");
    for (const char* line :
         {"\nchrony_tracking_system_time_seconds -1.176e-06\n", "\nchrony_clock_verdict{verdict=\"synchronised\"} 1\n",
          "\nchrony_clock_verdict{verdict=\"holdover\"} 0\n", "\nchrony_sources_total 6\n",
          "{tracking_address=\"127.0.0.2\",tracking_name=\"127.0.0.2\",",
          "\nchrony_sources_stratum{source_address=\"127.0.0.1\",source_name=\"localhost\"} 3\n",
          "\nchrony_sources_reachability_ratio{source_address=\"127.0.0.9\",source_name=\"127.0.0.9\"} 0\n",
          "source_state=\"falseticker\",source_mode=\"client\"} 1\n", "\nchrony_clock_holdover_seconds 0\n"})
        EXPECT_NE(text.find(line), std::string::npos) << line;
    EXPECT_EQ(text.find("last_sample_offset_seconds{source_address=\"127.0.0.9\""), std::string::npos) << "never heard";
    EXPECT_TRUE(metrics_of("chrony-4.3.txt", MetricsFormat::openmetrics).ends_with("\n# EOF\n"));
    const std::string silent = metrics_of("silent.txt");
    EXPECT_NE(silent.find("\nchrony_up 0\n"), std::string::npos);
    EXPECT_EQ(count_of(silent, "chrony_tracking") + count_of(silent, "bound"), 0U);
}

TEST(Metrics, LabelAtMost64SourcesTheUsableOnesAmongThem) {
    std::vector<ReportedSource> sources;
    for (int number = 1; number <= 200; ++number)
        sources.push_back({.address = "192.0.2." + std::to_string(number), .letter = number > 190 ? '+' : '?'});
    sources.push_back(sources.back()); // the same labels twice would be no metrics any more
    ClockTruth truth = truth_of({}, sources);
    truth.sources.front().name = "a\"b\\c\nd\xff";
    truth.sources.front().letter = '*';
    truth.reports.names[truth.reports.tracking->address] = "best";
    const std::string text = metrics_text(truth, MetricsFormat::prometheus);
    EXPECT_EQ(count_of(text, "\nchrony_source_usable{"), 64U);
    EXPECT_EQ(count_of(text, "\nchrony_source_usable{source_address=\"192.0.2.200\""), 1U);
    EXPECT_NE(text.find("\nchrony_sources_total 201\n"), std::string::npos);
    EXPECT_NE(text.find(",tracking_name=\"best\","), std::string::npos);
    EXPECT_NE(text.find("source_name=\"a\\\"b\\\\c\\nd?\"} 1\n"), std::string::npos);
}

TEST(PrometheusRules, HaveEveryRuleAndATestOfEach) {
    const std::string rules = prometheus_rules(watch_rules({.bound = 0.1}));
    const std::string tests = prometheus_tests(watch_rules());
    for (const WatchQuantity quantity : watch_quantities) {
        EXPECT_EQ(count_of(rules, "- alert: " + std::string(alert_of(quantity)) + '\n'), 1U);
        EXPECT_EQ(count_of(tests, "alertname: " + std::string(alert_of(quantity)) + '\n'), 4U);
        EXPECT_EQ(quantity_of_rule(name_of(quantity)), quantity);
    }
    EXPECT_NE(rules.find("chrony_clock_error_bound_seconds > 0.1) or"), std::string::npos);
    EXPECT_NE(rules.find("chrony_clock_error_bound_seconds >= 0.08)"), std::string::npos);
}

TEST(LogAlarms, CountWhatWouldHaveBeenRaised) {
    const auto record = [](const std::string& time, const std::string& reference, const char* offset,
                           const char* bound) {
        return "2026-11-22 " + time + ' ' + reference + " -0.1 0.2 " + offset + " N 1 4e-06 0 0.001 0.001 " + bound +
               '\n';
    };
    const std::string best = "192.0.2.1 2";
    const std::string text = "=====\n   Date (UTC) Time     IP Address   St\n=====\n" +
                             record("00:00:00", best, "1e-6", "0.001") + record("00:01:00", best, "-0.2", "0.06") +
                             record("00:02:00", best, "0.09", "0.06") + record("00:03:00", best, "1e-6", "0.045") +
                             record("00:04:00", best, "0.2", "0.001") + record("02:04:00", "0.0.0.0 0", "0", "0.001") +
                             record("04:05:00", best, "1e-6", "0.001") + "2026-11-22 x\n";
    const auto alarms = alarms_in_log(text, watch_rules());
    ASSERT_TRUE(alarms);
    EXPECT_EQ(alarms->seconds, 4 * 3600 + 300);
    EXPECT_EQ((*alarms)[WatchQuantity::step], 2) << "0.09 is not below four fifths";
    EXPECT_EQ((*alarms)[WatchQuantity::bound], 1);
    EXPECT_EQ((*alarms)[WatchQuantity::holdover], 2);
    EXPECT_FALSE((*alarms)[WatchQuantity::usable]);
    EXPECT_FALSE(alarms_in_log("", watch_rules()));
    EXPECT_FALSE(alarms_in_log(record("00:00:00", best, "1", "1"), watch_rules()));
}

} // namespace
} // namespace tickervantage
