#include "chrony/configuration/logging_text.h"
#include "chrony/status/trend.h"
#include "draw/plots/trend_strip.h"
#include "history/history_writer.h"
#include "roothelper/jobs/mending.h"
#include "support/fake_job_machine.h"
#include "support/recording_canvas.h"
#include "support/test.h"

#include <cmath>

namespace tickervantage {
namespace {

using testing::RecordingCanvas;

HistoryRow row_at(std::int64_t time, Verdict verdict = Verdict::synchronised) {
    HistoryRow row{.time = time, .verdict = verdict};
    row.values.at(static_cast<std::size_t>(HistoryQuantity::bound)) = Extent{2e-3, 2e-3, 2e-3};
    row.values.at(static_cast<std::size_t>(HistoryQuantity::system_time)) = Extent{-1e-6, -1e-6, -1e-6};
    return row;
}

TEST(Trend, ReadingsFollowEachOtherUnlessNobodyLooked) {
    const auto joins = [](const std::vector<std::int64_t>& times) {
        std::vector<HistoryRow> rows;
        for (const auto time : times)
            rows.push_back(row_at(time));
        std::string joined;
        for (const TrendReading& reading : trend_readings(rows))
            joined += reading.joins ? '1' : '0';
        return joined;
    };
    EXPECT_EQ(joins({0, 10, 20, 40, 50, 81, 91}), "0111101"); // one that was missed is no gap, thirty seconds are
    EXPECT_EQ(joins({0, 60, 120, 240, 421, 481}), "011101") << "of a window that reads once a minute";
    EXPECT_EQ(joins({5}), "0");
    EXPECT_EQ(joins({}), "");
}

TEST(Trend, WithoutAReferenceThereIsNoOffset) {
    for (const Verdict verdict : verdicts) {
        const auto reading = trend_readings({row_at(1, verdict)}).front();
        const bool expected = verdict == Verdict::synchronised || verdict == Verdict::holdover ||
                              verdict == Verdict::correcting || verdict == Verdict::leap;
        EXPECT_EQ(reading.offset.has_value(), expected) << name_of(verdict);
        EXPECT_EQ(reading.verdict, verdict);
    }
}

TEST(Trend, ReadsTheLastHourAndAddsTheNewestReading) {
    const std::string folder = ::testing::TempDir() + "trend" + std::to_string(::getpid());
    std::filesystem::remove_all(folder);
    const std::string file = folder + "/history.sqlite";
    const auto empty = read_trend(file, 10'000);
    ASSERT_TRUE(empty) << "nothing was kept yet";
    EXPECT_TRUE(empty->readings.empty());
    EXPECT_EQ(read_trend(file, 10'000, row_at(9'999))->readings.size(), 1U);
    {
        auto writer = HistoryWriter::open(file);
        ASSERT_TRUE(writer);
        for (const std::int64_t time : {6'000, 6'401, 9'980, 9'990})
            ASSERT_TRUE(writer->add({.row = row_at(time)}, {}));
    }
    const auto trend = read_trend(file, 10'000, row_at(10'000));
    ASSERT_TRUE(trend);
    ASSERT_EQ(trend->readings.size(), 4U);
    EXPECT_EQ(trend->readings.front().time, 6'401);
    EXPECT_NEAR(*trend->readings.front().bound, 2e-3, 1e-9);
    EXPECT_NEAR(*trend->readings.front().offset, -1e-6, 1e-9);
    EXPECT_EQ(trend->from, 6'400);
    EXPECT_EQ(read_trend(file, 10'000, row_at(9'990))->readings.size(), 3U) << "it is in there already";
    std::ofstream(folder + "/other") << "no database, but longer than the head of one would be: "
                                     << std::string(200, 'x');
    EXPECT_FALSE(read_trend(folder + "/other", 10'000));
    std::filesystem::remove_all(folder);
}

TEST(Trend, ShowsNoMoreTimeThanItHasReadingsFor) {
    for (const auto& [first, shown] :
         {std::pair(0, 120), {121, 300}, {300, 300}, {301, 600}, {1200, 1200}, {1801, 3600}, {3600, 3600}})
        EXPECT_EQ(shown_seconds({row_at(10'000 - first)}, 10'000), shown) << first;
    EXPECT_EQ(shown_seconds({}, 10'000), 120);
}

struct TrendStripTest : ::testing::Test {
    TrendStrip strip{.bounds = {0, 0, 676, 131}, .from = 36'000, .to = 39'600}; // the field: 600 points wide, 6 s each
    RecordingCanvas canvas;

    TrendStripTest() {
        strip.zone = [](std::int64_t) {
            return 0;
        };
        const Color green{.green = 1};
        strip.points = {{36'000, 1e-3, 1e-6, green, false},
                        {36'600, 2e-3, -5e-4, green, true},
                        {36'900, 2e-3, std::nullopt, {.red = 1}, true}, // lost its reference
                        {37'800, 1e-3, 1e-6, green, false}};
    }
    [[nodiscard]] Rect field() const { return trend_field(strip); }
};

TEST_F(TrendStripTest, LabelsStandWhereTheyAreTrue) {
    draw_trend(canvas, strip);
    EXPECT_EQ(trend_unit(strip), "ms");
    const IntervalScale scale = trend_scale(strip);
    std::string times;
    int values = 0;
    for (const auto& [text, box, style] : canvas.texts) {
        if (text.find(':') != std::string::npos) {
            const double minutes = std::stod(text.substr(0, 2)) * 60 + std::stod(text.substr(3));
            EXPECT_NEAR(trend_moment_at(strip, box.x + box.width / 2), minutes * 60, 1) << text;
            times += text + ' ';
            continue;
        }
        const double sign = text.starts_with("−") ? -1 : 1;
        const double value = text == "0" ? 0 : sign * std::stod(text.substr(text.find_first_of("0123456789"))) * 1e-3;
        EXPECT_NEAR(box.y + box.height - TEXT_MIDDLE * style.size, scale.place_of(value), 1e-6) << text;
        ++values;
    }
    EXPECT_EQ(times, "10:00 10:10 10:20 10:30 10:40 10:50 11:00 ");
    EXPECT_GE(values, 3);
}

TEST_F(TrendStripTest, AWideBoundAndASmallOffsetAreBothSeen) {
    for (TrendPoint& point : strip.points)
        point.offset = 1e-6;
    const IntervalScale scale = trend_scale(strip);
    EXPECT_GT(scale.place_of(1e-6) - scale.place_of(0), 4);
    EXPECT_LT(scale.place_of(2e-3), field().y + field().height);
    for (const auto& mark : scale.marks(24, "."))
        EXPECT_TRUE(mark.value == 0 || trend_unit(strip).empty() || mark.text.ends_with(trend_unit(strip)));
}

TEST_F(TrendStripTest, GapsStayEmpty) {
    draw_trend(canvas, strip);
    std::size_t reaches = 0;
    for (const auto& line : canvas.polylines)
        for (const Point& point : line.points)
            reaches += point.x > field().x + 151 ? 1U : 0U; // after 36 900 s the next reading stands alone
    EXPECT_EQ(reaches, 0U);
    ASSERT_FALSE(canvas.polylines.empty());
    EXPECT_EQ(canvas.polylines.back().points.size(), 2U) << "the line ends where the reference was lost";
}

TEST_F(TrendStripTest, PointsAtTheReadingThatHoldsThere) {
    struct Case {
        double moment;
        int expected; // -1: none
    };
    for (const auto& [moment, expected] : {Case{35'000, -1},
                                           {36'000, 0},
                                           {36'599, 0},
                                           {36'600, 1},
                                           {36'905, 2},
                                           {37'300, -1},
                                           {37'795, 3},
                                           {37'806, 3},
                                           {39'000, -1}}) {
        const TrendPoint* point = trend_point_at(strip, moment);
        EXPECT_EQ(point == nullptr ? -1 : point - strip.points.data(), expected) << moment;
    }
    EXPECT_EQ(trend_moment_at(strip, -5), 36'000);
    EXPECT_EQ(trend_moment_at(strip, field().x + 300), 37'800);
}

TEST(TrendTimeStep, IsRoundAndLeavesRoom) {
    for (const auto& [seconds, width, step] :
         {std::tuple(3600.0, 600.0, 600), {3600.0, 1000.0, 300}, {300.0, 600.0, 60}, {3600.0, 100.0, 3600}})
        EXPECT_EQ(trend_time_step(seconds, width, 60), step) << seconds << ' ' << width;
}

TEST(WithLogging, ChangesTheLinesThatItNeedsAndNoOther) {
    const std::string line = std::string(usual_log_line) + '\n';
    const std::string folder = std::string(usual_log_folder_line) + '\n';
    struct Case {
        std::string before;
        std::string after;
    };
    for (const auto& [before, after] : {
             Case{"pool a\n#log tracking measurements statistics\nlogdir /l\n", "pool a\n" + line + "logdir /l\n"},
             Case{"# log tracking\n#log tracking\nlogdir /l", line + "#log tracking\nlogdir /l"},
             Case{"# log everything\nlogdir /l", "# log everything\nlogdir /l\n" + line},
             Case{"log measurements\n", "log measurements\n" + line + folder},
             Case{"", line + folder},
         })
        EXPECT_EQ(with_logging(before), after);
}

TEST(LoggedBytes, GrowWithEachSourceAndItsRate) {
    const std::vector<double> one{64};
    EXPECT_NEAR(logged_bytes_a_day(one), 86400 / 64.0 * (137 + 88 + 117 + 132), 1);
    const std::vector<double> two{64, 128};
    EXPECT_NEAR(logged_bytes_a_day(two) - logged_bytes_a_day(one), 86400 / 128.0 * (137 + 88 + 117), 1);
    EXPECT_EQ(logged_bytes_a_day({}), 0);
}

TEST(WhatMends, IsTheMostHarmfulThingThatIsWrong) {
    const DistributionChrony theirs{"/c", "/b", "/d", "u"};
    struct Case {
        const char* name;
        Verdict verdict;
        MendingFacts facts;
        Mending expected;
    };
    constexpr auto silent = Verdict::unavailable;
    constexpr auto good = Verdict::synchronised;
    using Log = TrackingLogSetting;
    const auto seen = [](MendingFacts facts) {
        facts.is_known = true;
        return facts;
    };
    for (const Case& one : std::vector<Case>{
             {"nothing was seen yet", silent, {}, Mending::none},
             {"no chrony", silent, seen({.is_installed = false, .is_running = false}), Mending::install},
             {"another one is there", silent,
              seen({.is_installed = false, .is_running = false, .distribution = theirs}), Mending::use_distribution},
             {"stopped", silent, seen({.is_running = false, .log = Log::not_asked_for}), Mending::start},
             {"stopped, while the other one runs", silent,
              seen({.is_running = false, .distribution = theirs, .distribution_runs = true}),
              Mending::use_distribution},
             {"without a service", silent, seen({.has_service = false, .is_running = false}), Mending::install},
             {"runs, and does not answer", silent, seen({}), Mending::none},
             {"holdover", Verdict::holdover, seen({.log = Log::not_asked_for}), Mending::explain},
             {"own time", Verdict::local, {}, Mending::explain},
             {"not synchronised", Verdict::unsynchronised, {}, Mending::explain},
             {"correcting", Verdict::correcting, {}, Mending::explain},
             {"paths of one that does not run", good,
              seen({.is_running = false, .distribution = theirs, .distribution_runs = true}),
              Mending::use_distribution},
             {"no logging", good, seen({.log = Log::not_asked_for, .log_is_closed = true}), Mending::turn_on_logging},
             {"no folder", good, seen({.log = Log::no_folder}), Mending::turn_on_logging},
             {"closed log", good, seen({.log = Log::written, .log_is_closed = true}), Mending::open_logs},
             {"closed, and who knows what is in it", good, seen({.log_is_closed = true}), Mending::none},
             {"all is well", good, seen({.log = Log::written}), Mending::none},
             {"leap", Verdict::leap, seen({.log = Log::written}), Mending::none},
             {"demonstration", good, seen({.is_demonstration = true, .distribution = theirs, .log = Log::no_folder}),
              Mending::none},
             {"demonstration in holdover", Verdict::holdover, seen({.is_demonstration = true}), Mending::explain}})
        EXPECT_EQ(what_mends(one.verdict, one.facts), one.expected) << one.name;
}

TEST(LookForMending, SeesTheDaemonThatRunsAndTheOneThatIsNamed) {
    testing::FakeJobMachine machine;
    const InstalledPaths paths{.config = "/no/such/file", .chronyc = "/own/chronyc", .chronyd = "/own/chronyd"};
    MendingFacts facts = look_for_mending(paths, false, machine);
    EXPECT_TRUE(facts.is_known && !facts.is_installed && !facts.has_service && !facts.is_running);
    EXPECT_FALSE(facts.distribution);
    EXPECT_EQ(facts.log, TrackingLogSetting::unknown);
    machine.put({"/own/chronyc", "/own/chronyd", "/etc/chrony/chrony.conf", "/usr/bin/chronyc", "/usr/sbin/chronyd",
                 "/lib/systemd/system/chrony.service", "/etc/systemd/system/org.chrony-project.chronyd.service"});
    machine.unreadable = {"17", "self"};
    machine.files["/proc/17/cmdline"] = std::string("/usr/sbin/chronyd\0-F\0001", 20);
    facts = look_for_mending(paths, false, machine);
    EXPECT_TRUE(facts.is_installed && facts.has_service && !facts.is_running && facts.distribution_runs);
    machine.files["/proc/17/cmdline"] = "/own/chronyd";
    facts = look_for_mending(paths, false, machine);
    EXPECT_TRUE(facts.is_running && facts.distribution && !facts.distribution_runs);
    for (const auto& [numbers, is_ours] : {std::pair("17", true), {"17\t1", false}, {"17\t9\t1", false}}) {
        machine.files["/proc/17/status"] = std::string("Name:\tchronyd\nNSpid:\t") + numbers + "\nNSpgid:\t17\t1\n";
        EXPECT_EQ(look_for_mending(paths, false, machine).is_running, is_ours) << numbers;
    }
    EXPECT_EQ(look_for_mending(paths, false, machine).other_program, "");
    for (const char* const numbers : {"17", "17\t1"})
        for (const auto& [line, other] :
             {std::pair<const char*, std::string>("/lib/systemd/systemd-timesyncd", "systemd-timesyncd"),
              {"/usr/sbin/ntpd", "ntpd"},
              {"/usr/bin/ntpdate", ""}}) {
            machine.files["/proc/17/cmdline"] = line;
            machine.files["/proc/17/status"] = std::string("Name:\tany\nNSpid:\t") + numbers + "\n";
            facts = look_for_mending(paths, false, machine);
            EXPECT_EQ(facts.other_program, std::string_view(numbers) == "17" ? other : "") << line << ' ' << numbers;
            EXPECT_FALSE(facts.is_running) << line;
        }
    const InstalledPaths theirs{"/etc/chrony/chrony.conf", "/usr/bin/chronyc", "/usr/sbin/chronyd"};
    EXPECT_FALSE(look_for_mending(theirs, false, machine).distribution) << "it is the one that is shown";
    EXPECT_TRUE(look_for_mending(theirs, true, machine).distribution) << "a demonstration shows another";
}

} // namespace
} // namespace tickervantage
