// What the laboratory says of clocks whose truth is known: tests/support/make_clock_logs makes them before the tests
// run.
#include "linux/posix_followed_file.h"
#include "studies/laboratory/clock_series.h"
#include "studies/laboratory/free_running_clock.h"
#include "studies/laboratory/holdover.h"
#include "studies/laboratory/periodogram.h"
#include "studies/laboratory/stability.h"
#include "support/test.h"

#include <fstream>

namespace tickervantage {
namespace {

struct KnownClock {
    FreeRunningClock read;        // of the log
    std::vector<double> phase;    // the truth, s, for each record
    std::vector<double> believed; // s, what the daemon took for it
    FreeRunningClock with_true_phase;
};

KnownClock known_clock(const std::string& name) {
    PosixFollowedFiles files;
    KnownClock clock;
    const std::string path = std::string(KNOWN_CLOCKS) + "/" + name;
    const auto read = read_free_running_clock(files, path + ".log");
    EXPECT_TRUE(read) << english(read.error());
    clock.read = read.value_or(FreeRunningClock{});
    std::ifstream truth(path + ".csv");
    for (std::string line; std::getline(truth, line);) {
        char* at = line.data();
        const auto next = [&at] {
            const double value = std::strtod(at, &at);
            ++at;
            return value;
        };
        (void)next();
        clock.phase.push_back(next());
        clock.believed.push_back(next());
    }
    EXPECT_EQ(clock.phase.size(), clock.read.records.size()) << name;
    clock.with_true_phase = clock.read;
    for (std::size_t at = 0; at < clock.phase.size(); ++at)
        clock.with_true_phase.records[at].phase = clock.phase[at];
    return clock;
}

constexpr std::array names{"quiet", "wandering", "daily", "uneven"};

TEST(KnownClocks, PointsThatAreTheClockAreAsTheTruthHasThem) {
    for (const char* name : names) {
        const KnownClock clock = known_clock(name);
        const auto seen = stability_of(phase_of(clock.read), {});
        const auto truth = stability_of(phase_of(clock.with_true_phase), {});
        ASSERT_TRUE(seen && truth);
        ASSERT_EQ(seen->front().points.size(), truth->front().points.size());
        int compared = 0;
        for (std::size_t at = 0; at < seen->front().points.size(); ++at) {
            const StabilityPoint& point = seen->front().points[at];
            if (point.is_hollow)
                continue;
            EXPECT_NEAR(point.value / truth->front().points[at].value, 1, 0.06) << name << point.tau;
            ++compared;
        }
        EXPECT_GE(compared, 3) << name;
        EXPECT_TRUE(seen->front().points.front().is_hollow) << name;
        EXPECT_GT(seen->front().points.front().value, 2 * truth->front().points.front().value) << name;
    }
}

// Of all later moments, how often the clock, left alone, stayed within what was forecast from the first two thirds.
double share_within(const KnownClock& clock, double error, double horizon, std::size_t first) {
    const auto& records = clock.read.records;
    double within = 0;
    double all = 0;
    for (std::size_t at = first, later = first; at < records.size(); ++at) {
        const auto until = static_cast<double>(records[at].time) + horizon;
        while (later < records.size() && static_cast<double>(records[later].time) < until)
            ++later;
        if (later == records.size())
            break;
        const auto elapsed = static_cast<double>(records[later].time - records[at].time);
        const double off = clock.phase[later] - clock.believed[at] - records[at].frequency * elapsed;
        within += std::abs(off) <= error ? 1 : 0;
        ++all;
    }
    return within / all;
}

TEST(KnownClocks, ForecastsHoldWhatTheyPromise) {
    std::map<double, std::vector<double>> shares;
    for (const char* name : names) {
        const KnownClock clock = known_clock(name);
        const std::size_t past = clock.read.records.size() * 2 / 3;
        FreeRunningClock known = clock.read;
        known.records.resize(past);
        for (const HoldoverError& error : forecast_holdover(known, 0.95).horizons)
            shares[error.seconds].push_back(share_within(clock, error.error, error.seconds, past));
    }
    for (const double horizon : {300.0, 3600.0, 21600.0}) {
        ASSERT_EQ(shares[horizon].size(), names.size());
        double sum = 0;
        for (const double share : shares[horizon]) {
            EXPECT_GT(share, 0.8) << horizon;
            sum += share / static_cast<double>(names.size());
        }
        EXPECT_GT(sum, 0.9) << horizon;
        EXPECT_LT(sum, 0.99) << horizon;
    }
}

TEST(KnownClocks, TheDayIsFoundAndNothingElse) {
    for (const auto& [name, amplitude] : std::vector<std::pair<const char*, double>>{
             {"quiet", 0}, {"wandering", 0}, {"daily", 1.2e-7}, {"uneven", 5e-8}}) {
        const auto found = periodogram_of(series_of(known_clock(name).read, ClockQuantity::frequency));
        ASSERT_TRUE(found) << name;
        EXPECT_EQ(found->is_even, std::string_view(name) != "uneven") << name;
        ASSERT_EQ(found->peaks.size(), amplitude > 0 ? 1U : 0U) << name;
        if (found->peaks.empty())
            continue;
        EXPECT_EQ(found->peaks.front().known, KnownPeriod::day) << name;
        EXPECT_LT(found->peaks.front().amplitude_low, amplitude) << name;
        EXPECT_GT(found->peaks.front().amplitude_high, amplitude) << name;
        EXPECT_NEAR(found->peaks.front().amplitude / amplitude, 1, 0.1) << name;
    }
}

} // namespace
} // namespace tickervantage
