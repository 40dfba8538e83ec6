#include "cli/laboratory/laboratory_command.h"
#include "studies/laboratory/free_running_clock.h"
#include "studies/laboratory/holdover.h"
#include "studies/laboratory/stability.h"
#include "support/fake_followed_files.h"
#include "support/test.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace tickervantage {
namespace {

using Numbers = std::vector<double>;

PhaseData data_of(const Numbers& phase, double tau0 = 1) {
    return {.tau0 = tau0, .segments = {phase}, .count = phase.size(), .offset_sd = {}};
}

Numbers summed(const Numbers& steps) {
    Numbers sums{0};
    for (const double step : steps)
        sums.push_back(sums.back() + step);
    return sums;
}

double value_of(StabilityMeasure measure, const Numbers& phase, std::size_t factor) {
    const auto found = deviation(measure, {phase}, 1, factor);
    return found ? found->value : -1;
}

// The thousand numbers of the test data in NIST's Special Publication 1065, as fractional frequencies.
Numbers published_frequencies() {
    Numbers numbers;
    std::uint64_t n = 1234567890;
    for (int i = 0; i < 1000; ++i) {
        numbers.push_back(static_cast<double>(n) / 2147483647.0);
        n = 16807 * n % 2147483647;
    }
    return numbers;
}

TEST(Laboratory, AgreesWithPublishedDeviations) {
    using enum StabilityMeasure;
    struct Published {
        StabilityMeasure measure;
        std::array<double, 3> values;
    };
    constexpr std::array<Published, 4> rows{{{adev, {2.922319e-1, 9.965736e-2, 3.897804e-2}},
                                             {oadev, {2.922319e-1, 9.159953e-2, 3.241343e-2}},
                                             {mdev, {2.922319e-1, 6.172376e-2, 2.170921e-2}},
                                             {tdev, {1.687202e-1, 3.563623e-1, 1.253382e0}}}};
    const Numbers phase = summed(published_frequencies());
    for (const auto& [measure, values] : rows)
        for (std::size_t at = 0; at < values.size(); ++at) {
            constexpr std::array<std::size_t, 3> factors{1, 10, 100};
            EXPECT_NEAR(value_of(measure, phase, factors[at]) / values[at], 1, 5e-7) << name_of(measure) << at;
        }
    const Numbers ten = summed({892, 809, 823, 798, 671, 644, 883, 903, 677});
    EXPECT_NEAR(value_of(adev, ten, 1), 91.22945, 5e-6);
    EXPECT_NEAR(value_of(adev, ten, 2), 115.8082, 5e-5);
    EXPECT_NEAR(value_of(oadev, ten, 2), 85.95287, 5e-6);
    EXPECT_NEAR(value_of(mdev, ten, 2), 74.78849, 5e-6);
}

TEST(Laboratory, MeasuresWhatTheirDefinitionsSay) {
    // A parabola's phase has a drift that Hadamard's does not see; its second difference is 2 m².
    Numbers parabola;
    for (int i = 0; i < 40; ++i)
        parabola.push_back(static_cast<double>(i) * i);
    EXPECT_NEAR(value_of(StabilityMeasure::hdev, parabola, 3), 0, 1e-9);
    EXPECT_NEAR(value_of(StabilityMeasure::oadev, parabola, 3), 18 / std::sqrt(2.0) / 3, 1e-9);
    const Numbers cubes{0, 1, 8, 27, 64};
    EXPECT_NEAR(value_of(StabilityMeasure::hdev, cubes, 1), std::sqrt(6.0), 1e-12);
    const Numbers bent{0, 3, -1, 2, 2, 9};
    EXPECT_EQ(value_of(StabilityMeasure::mtie, bent, 1), 7);
    EXPECT_EQ(value_of(StabilityMeasure::mtie, bent, 2), 7);
    EXPECT_EQ(value_of(StabilityMeasure::mtie, bent, 4), 10);
    EXPECT_EQ(value_of(StabilityMeasure::mtie, bent, 6), -1) << "longer than the data";
    // Segments are taken together, and never across the gap.
    const auto both = deviation(StabilityMeasure::oadev, {{0, 0, 2}, {100, 100, 104}}, 1, 1);
    ASSERT_TRUE(both);
    EXPECT_EQ(both->n, 2);
    EXPECT_NEAR(both->value, std::sqrt((4 + 16) / 4.0), 1e-12);
}

// Noise of a power of the frequency: white noise, integrated as often as the power asks for, also half times
// (N. J. Kasdin, 1995).
Numbers phase_noise(NoiseType type, std::size_t count, std::mt19937_64& random) {
    const double half_power = (2.0 - static_cast<double>(type)) / 2;
    Numbers white(count);
    Numbers response(count);
    std::normal_distribution<double> normal;
    for (std::size_t i = 0; i < count; ++i) {
        white[i] = normal(random);
        response[i] = i == 0 ? 1 : response[i - 1] * (half_power + static_cast<double>(i) - 1) / static_cast<double>(i);
    }
    Numbers noise(count);
    for (std::size_t i = 0; i < count; ++i)
        for (std::size_t k = 0; k <= i; ++k)
            noise[i] += response[k] * white[i - k];
    return noise;
}

constexpr std::array all_noises{NoiseType::white_pm, NoiseType::flicker_pm, NoiseType::white_fm, NoiseType::flicker_fm,
                                NoiseType::random_walk_fm};

TEST(Laboratory, NamesTheNoise) {
    std::mt19937_64 random(20261122);
    for (const NoiseType type : all_noises) {
        int right = 0;
        for (int turn = 0; turn < 40; ++turn)
            right += noise_type({phase_noise(type, 1000, random)}, 1) == type ? 1 : 0;
        EXPECT_GE(right, 38) << name_of(type);
    }
    EXPECT_FALSE(noise_type({Numbers(29)}, 1)) << "too few to tell";
    EXPECT_FALSE(noise_type({Numbers(100, 3.0)}, 1)) << "nothing shakes";
}

// The variance of many simulated variances tells how many degrees of freedom each has: 2 mean² / variance. Steps that
// are short beside the noise's own are left out: drawn noise has no life between two values.
TEST(Laboratory, HasAsManyDegreesOfFreedomAsSimulationsShow) {
    constexpr int turns = 800;
    constexpr std::size_t count = 129;
    std::mt19937_64 random(11);
    for (const NoiseType type : all_noises) {
        std::map<std::pair<StabilityMeasure, std::size_t>, std::pair<double, double>> sums;
        for (int turn = 0; turn < turns; ++turn) {
            Numbers noise = phase_noise(type, 2 * count, random);
            noise.erase(noise.begin(), noise.end() - count); // it has settled by then
            for (const auto measure :
                 {StabilityMeasure::adev, StabilityMeasure::oadev, StabilityMeasure::mdev, StabilityMeasure::hdev})
                for (const std::size_t factor : {8UL, 16UL, 32UL}) {
                    const double variance = std::pow(value_of(measure, noise, factor), 2);
                    auto& [sum, squares] = sums[{measure, factor}];
                    sum += variance;
                    squares += variance * variance;
                }
        }
        for (const auto& [key, both] : sums) {
            const double mean = both.first / turns;
            const double simulated = 2 * mean * mean / (both.second / turns - mean * mean);
            const double computed = degrees_of_freedom(key.first, type, key.second, count);
            EXPECT_NEAR(computed / simulated, 1, 0.2) << name_of(key.first) << key.second << name_of(type) << simulated;
        }
    }
}

TEST(Laboratory, PutsLimitsAroundADeviation) {
    // Of chi-squared with 10 degrees of freedom 2.5 % are below 3.24697 and 2.5 % above 20.4832.
    const auto limits = limits_of(2, 10, 0.95);
    ASSERT_TRUE(limits);
    EXPECT_NEAR(limits->low, 2 * std::sqrt(10 / 20.4832), 1e-5);
    EXPECT_NEAR(limits->high, 2 * std::sqrt(10 / 3.24697), 1e-5);
    EXPECT_FALSE(limits_of(2, 0, 0.95));
}

// A machine whose clock wanders, and the log of a daemon that keeps it: it measures with noise, believes some of what
// it measures, and notes what it corrects.
class SimulatedMachine {
public:
    static constexpr int poll = 256;         // s
    static constexpr double shaking = 3e-5;  // s, of a measurement
    static constexpr double believed = 0.5;  // of an offset
    static constexpr double followed = 0.05; // of an offset, by the frequency

    explicit SimulatedMachine(std::uint64_t seed, double wandering = 2e-10) : m_random(seed), m_wandering(wandering) {}

    std::string next_line() {
        m_time += poll;
        m_rate += m_wandering * m_normal(m_random);
        m_truth.push_back((m_truth.empty() ? 0 : m_truth.back()) + m_rate * poll);
        m_estimate += m_frequency * poll;
        const double offset = believed * (m_truth.back() + shaking * m_normal(m_random) - m_estimate);
        m_estimate += offset;
        m_frequency += followed / believed * offset / poll;
        m_frequencies.push_back(m_frequency);
        m_estimates.push_back(m_estimate);
        return fmt::format(
            "2026-11-{:02} {:02}:{:02}:{:02} 192.0.2.1 2 {:.6f} 0.050 {:.6e} N 1 {:.3e} 0.0 1e-3 2e-4 1e-3",
            1 + m_time / 86400, m_time / 3600 % 24, m_time / 60 % 60, m_time % 60, 1e6 * m_frequency, offset, shaking);
    }

    // Of what followed from the n-th line on: how often the clock, left alone for a time, stayed within an error.
    [[nodiscard]] double share_within(double error, int seconds, std::size_t first) const {
        const auto later = static_cast<std::size_t>(seconds / poll);
        double within = 0;
        double all = 0;
        for (std::size_t at = first; at + later < m_truth.size(); ++at, ++all)
            within += std::abs(m_truth[at + later] - m_estimates[at] -
                               m_frequencies[at] * poll * static_cast<double>(later)) <= error
                          ? 1
                          : 0;
        return within / all;
    }

private:
    std::mt19937_64 m_random;
    std::normal_distribution<double> m_normal;
    double m_wandering; // s/s a poll
    int m_time = 0;
    double m_rate = 2e-5;
    double m_estimate = 0;
    double m_frequency = 2e-5;
    Numbers m_truth;
    Numbers m_estimates; // what the daemon takes for the truth: left alone, the clock goes on from there
    Numbers m_frequencies;
};

constexpr std::size_t lines_a_day = 86400 / SimulatedMachine::poll;

FreeRunningClock clock_of(SimulatedMachine& machine, std::size_t lines) {
    FreeRunningClockReader reader;
    for (std::size_t line = 0; line < lines; ++line)
        reader.add_line(machine.next_line());
    return std::move(reader).finish();
}

TEST(Laboratory, ForecastsHoldoverAsItThenComes) {
    std::map<int, double> shares;
    constexpr int machines = 10;
    for (int seed = 1; seed <= machines; ++seed) {
        SimulatedMachine machine(static_cast<std::uint64_t>(seed), 1e-9);
        const std::size_t past = 12 * lines_a_day;
        const HoldoverForecast forecast = forecast_holdover(clock_of(machine, past), 0.95);
        ASSERT_EQ(forecast.horizons.size(), 4) << "12 days are too few for 48 h, and enough for 24 h";
        (void)clock_of(machine, 12 * lines_a_day);
        for (const HoldoverError& error : forecast.horizons) {
            EXPECT_LE(error.low, error.error);
            EXPECT_GE(error.high, error.error);
            EXPECT_GT(error.high, error.low);
            EXPECT_NEAR(error.chronyd, 7e-4 + 1.05e-6 * error.seconds, 1e-9);
            shares[static_cast<int>(error.seconds)] +=
                machine.share_within(error.error, static_cast<int>(error.seconds), past) / machines;
        }
    }
    for (const int seconds : {3600, 21600, 86400}) {
        EXPECT_GT(shares[seconds], 0.85) << seconds;
        EXPECT_LT(shares[seconds], 0.99) << seconds;
    }
}

TEST(Laboratory, TellsWhenALimitIsPassed) {
    SimulatedMachine machine(7);
    const FreeRunningClock clock = clock_of(machine, 3 * lines_a_day);
    const HoldoverForecast forecast = forecast_holdover(clock, 0.95);
    ASSERT_EQ(forecast.horizons.size(), 3);
    const auto limit_after = [&](double limit) {
        return forecast_holdover(clock, 0.95, limit).limit_after;
    };
    const double hour = forecast.horizons[1].error;
    ASSERT_TRUE(limit_after(hour));
    EXPECT_NEAR(*limit_after(hour) / 3600, 1, 0.15);
    EXPECT_LT(limit_after(hour / 2), limit_after(hour));
    const LimitInterval around = limit_interval(forecast_holdover(clock, 0.95, hour));
    EXPECT_LT(around.earliest.value_or(1e9), 3600);
    EXPECT_GT(around.latest.value_or(0), 3600);
    EXPECT_LT(*limit_interval(forecast_holdover(clock, 0.95, hour / 1000)).earliest, 300);
    EXPECT_FALSE(limit_interval(forecast).latest) << "without a limit";
    EXPECT_FALSE(limit_after(2 * forecast.horizons.back().error)) << "not within what the past can tell";
    SimulatedMachine young(8);
    EXPECT_TRUE(forecast_holdover(clock_of(young, 11), 0.95).horizons.empty());
}

std::string log_line(int seconds, double frequency, double offset, std::string_view stratum = "2") {
    return fmt::format("2026-11-01 00:{:02}:{:02} 192.0.2.1 {} {} 0.1 {} N 1 1e-5 0 1e-3 2e-4 1e-3", seconds / 60,
                       seconds % 60, stratum, frequency, offset);
}

TEST(Laboratory, TakesTheSteeringOutOfALog) {
    FreeRunningClockReader reader;
    for (const auto& line :
         {std::string("=== banner ==="), log_line(0, 1, 0), log_line(10, 2, 1e-6), log_line(10, 9, 9),
          log_line(20, 2, -1e-6), log_line(30, 2, 0), log_line(40, 2, 0), log_line(90, 2, 5), log_line(100, 2, 1e-6),
          log_line(110, 2, 0, "0"), log_line(120, 2, 3), log_line(60, 2, 3)})
        reader.add_line(line);
    const FreeRunningClock clock = std::move(reader).finish();
    EXPECT_EQ(clock.interval, 10);
    EXPECT_EQ(clock.offset_sd, 1e-5);
    std::vector<std::size_t> lengths;
    for (const auto stretch : clock.stretches())
        lengths.push_back(stretch.size());
    EXPECT_EQ(lengths, (std::vector<std::size_t>{5, 2, 1, 1})) << "a gap, the lost reference, the time that went back";
    EXPECT_NEAR(clock.records[1].phase, 1e-6 * 10 + 1e-6, 1e-15);
    EXPECT_NEAR(clock.records[2].phase, 1e-5 + 1e-6 + 2e-6 * 10 - 1e-6, 1e-15);
    EXPECT_NEAR(clock.records[6].phase, 2e-6 * 10 + 1e-6, 1e-15);
    EXPECT_NEAR(clock.records[0].bound, 2e-4 + 5e-4, 1e-12);
    EXPECT_NEAR(clock.records[0].bound_growth, 1.1e-6, 1e-15);
    EXPECT_EQ(clock.seconds(), 50);
    const PhaseData data = phase_of(clock);
    ASSERT_EQ(data.segments.size(), 1) << "two records have no difference of differences";
    EXPECT_EQ(data.segments.front().size(), 5);
}

TEST(Laboratory, ReadsAFolderWithWhatWasRotatedAway) {
    testing::FakeFollowedFiles files;
    files.create("log/tracking.log", log_line(30, 1, 0) + '\n' + log_line(40, 1, 0) + '\n');
    files.create("log/tracking.log.1", log_line(10, 1, 0) + '\n' + log_line(20, 1, 0) + '\n');
    const auto clock = read_free_running_clock(files, "log");
    ASSERT_TRUE(clock) << english(clock.error());
    EXPECT_EQ(clock->stretches().size(), 1) << "the older records come first, and what follows them goes on";
    EXPECT_EQ(clock->seconds(), 30);
    files.create("one/tracking.log", log_line(10, 1, 0) + '\n');
    EXPECT_EQ(english(read_free_running_clock(files, "one").error()),
              "The tracking log one has fewer than two records.");
    EXPECT_FALSE(read_free_running_clock(files, "elsewhere"));
}

TEST(Laboratory, TellsTheClockFromTheMeasurement) {
    SimulatedMachine machine(3, 2e-9);
    const PhaseData data = phase_of(clock_of(machine, 14 * lines_a_day));
    const auto curves = stability_of(data, {});
    ASSERT_TRUE(curves);
    const auto& points = curves->front().points;
    ASSERT_GT(points.size(), 8U);
    EXPECT_TRUE(points.front().is_hollow);
    EXPECT_FALSE(points.back().is_hollow);
    for (const StabilityPoint& point : points) {
        EXPECT_EQ(point.is_hollow, point.value < 2 * std::sqrt(3.0) * SimulatedMachine::shaking / point.tau)
            << point.tau;
        if (point.tau < 2e5) {
            EXPECT_LT(point.low.value_or(1), point.value) << point.tau;
            EXPECT_GT(point.high.value_or(0), point.value) << point.tau;
        }
    }
    const auto interval = best_poll_interval(data);
    ASSERT_TRUE(interval);
    EXPECT_GT(*interval, 512);
    EXPECT_LT(*interval, 20000);
    ASSERT_TRUE(poll_advice(data, 6, 17));
    EXPECT_NE(english(*poll_advice(data, 6, 17)), english(*poll_advice(data, 6, 8)));
    EXPECT_FALSE(best_poll_interval(data_of(Numbers(100)))) << "nothing is known of the measurement";
}

TEST(Laboratory, ReadsNumbersAndQuestions) {
    const auto phase = phase_of_numbers("# s\n1\n\n 2.5e-1 \r\n-3", NumberKind::phase, 2, "p");
    ASSERT_TRUE(phase);
    EXPECT_EQ(phase->segments.front(), (Numbers{1, 0.25, -3}));
    EXPECT_EQ(phase->count, 3);
    const auto frequency = phase_of_numbers("1\n2\n", NumberKind::frequency, 2, "f");
    ASSERT_TRUE(frequency);
    EXPECT_EQ(frequency->segments.front(), (Numbers{0, 2, 6}));
    for (const auto* bad : {"1\n2\nthree\n", "1\n2\nnan\n", "1\n2\n3 4\n"}) {
        const auto read = phase_of_numbers(bad, NumberKind::phase, 1, "bad");
        ASSERT_FALSE(read) << bad;
        EXPECT_EQ(english(read.error()), "Line 3 of bad is no number.");
    }
    EXPECT_FALSE(phase_of_numbers("1\n2\n", NumberKind::phase, 1, "short"));
    EXPECT_EQ(measures_in("mtie,adev,mtie").value(), (std::vector{StabilityMeasure::mtie, StabilityMeasure::adev}));
    EXPECT_FALSE(measures_in("adev,"));
    for (const auto* bad : {"", "0", "10,", "octaves", "-1"}) {
        StabilityQuestion question;
        EXPECT_FALSE(take_averaging_times(bad, question)) << bad;
    }
}

std::vector<double> taus_of(const PhaseData& data, std::string_view times) {
    StabilityQuestion question;
    EXPECT_TRUE(take_averaging_times(times, question)) << times;
    std::vector<double> taus;
    const auto curves = stability_of(data, question);
    EXPECT_TRUE(curves) << times;
    if (curves)
        for (const StabilityPoint& point : curves->front().points)
            taus.push_back(point.tau);
    return taus;
}

TEST(Laboratory, TakesTheAveragingTimesAskedFor) {
    const PhaseData data = data_of(Numbers(31), 2);
    EXPECT_EQ(taus_of(data, "octave"), (Numbers{2, 4, 8, 16}));
    EXPECT_EQ(taus_of(data, "decade"), (Numbers{2, 20}));
    EXPECT_EQ(taus_of(data, "all").size(), 15);
    EXPECT_EQ(taus_of(data, "20,4.2,4,1000"), (Numbers{4, 20}));
    StabilityQuestion question{.spacing = TauSpacing::listed, .taus = {0.5}};
    EXPECT_FALSE(stability_of(data, question));
    question.spacing = TauSpacing::all;
    EXPECT_FALSE(stability_of(data_of(Numbers(20'001)), question));
}

} // namespace
} // namespace tickervantage
