#include "base/failure_codes.h"
#include "studies/laboratory/clock_series.h"
#include "studies/laboratory/free_running_clock.h"
#include "studies/laboratory/periodogram.h"
#include "studies/laboratory/trigonometric_sums.h"
#include "support/test.h"

#include <cmath>
#include <numbers>
#include <numeric>
#include <random>

namespace tickervantage {
namespace {

constexpr double turn = 2 * std::numbers::pi;
constexpr double day = 86400;

std::vector<double> even_times(std::size_t count, double step) {
    std::vector<double> times(count);
    for (std::size_t at = 0; at < count; ++at)
        times[at] = static_cast<double>(at) * step;
    return times;
}

// Each up to half a step late, and nothing between a third and a half of the record.
std::vector<double> uneven_times(std::size_t count, double step, std::mt19937_64& random) {
    std::uniform_real_distribution<double> late(0, 0.5);
    std::vector<double> times;
    for (std::size_t at = 0; at < count; ++at)
        if (at < count / 3 || at > count / 2)
            times.push_back((static_cast<double>(at) + late(random)) * step);
    return times;
}

UnevenSeries noise(std::vector<double> times, double deviation, std::mt19937_64& random) {
    std::normal_distribution<double> normal(0, deviation);
    UnevenSeries series{std::move(times), {}};
    series.values.resize(series.times.size());
    std::ranges::generate(series.values, [&] { return normal(random); });
    return series;
}

void add_sine(UnevenSeries& series, double amplitude, double period, double phase = 0.3) {
    for (std::size_t at = 0; at < series.times.size(); ++at)
        series.values[at] += amplitude * std::sin(turn * series.times[at] / period + phase);
}

double integral(const Periodogram& found) {
    return std::accumulate(found.density.begin(), found.density.end(), 0.0) * found.step;
}

Periodogram periodogram(const UnevenSeries& series, const PeriodogramQuestion& question = {}) {
    const auto found = periodogram_of(series, question);
    EXPECT_TRUE(found) << english(found.error());
    return found.value_or(Periodogram{});
}

TEST(Periodogram, SumsAtUnevenTimesAreThoseOfTheDefinition) {
    std::mt19937_64 random(5);
    UnevenSeries series = noise(uneven_times(300, 1.0 / 700, random), 1, random);
    const auto sums = trigonometric_sums(series.times, series.values, 400);
    for (std::size_t k = 1; k <= sums.size(); ++k) {
        std::complex<double> exact;
        for (std::size_t at = 0; at < series.times.size(); ++at)
            exact += series.values[at] * std::polar(1.0, turn * static_cast<double>(k) * series.times[at]);
        ASSERT_LT(std::abs(exact - std::complex<double>(sums[k - 1])), 1e-3) << k;
    }
}

TEST(Periodogram, ItsIntegralIsTheVarianceAndWhiteNoiseIsFlat) {
    std::mt19937_64 random(1);
    for (const bool is_even : {true, false}) {
        const UnevenSeries series =
            noise(is_even ? even_times(9973, 16) : uneven_times(9973, 16, random), 3e-6, random);
        const Periodogram found = periodogram(series);
        EXPECT_EQ(found.is_even, is_even);
        EXPECT_NEAR(integral(found) / found.variance, 1, 1e-4);
        EXPECT_NEAR(found.variance / 9e-12, 1, 0.06);
        // One-sided and white, up to half the sampling frequency: 2 × step × variance, whatever the frequency.
        const double step = is_even ? 16 : found.span / static_cast<double>(found.count) * 5 / 6;
        double within = 0;
        for (const SpectralBand& band : found.bands) {
            within += band.low < 2 * step * 9e-12 && band.high > 2 * step * 9e-12 ? 1 : 0;
            EXPECT_LE(band.smallest, band.density);
            EXPECT_GE(band.largest, band.density);
        }
        EXPECT_GT(within / static_cast<double>(found.bands.size()), 0.8) << "limits of 95 %";
    }
}

TEST(Periodogram, FindsASineAsLargeAsItIs) {
    struct Row {
        double period;
        std::optional<KnownPeriod> known;
    };
    std::mt19937_64 random(2);
    int held = 0;
    for (const Row& row :
         {Row{day, KnownPeriod::day}, Row{day / 2, KnownPeriod::half_day}, Row{3600, KnownPeriod::hour},
          Row{1024, KnownPeriod::poll_interval}, Row{7 * day, KnownPeriod::week}, Row{day / 5.37, {}}})
        for (const bool is_even : {true, false}) {
            UnevenSeries series =
                noise(is_even ? even_times(10'800, 256) : uneven_times(10'800, 256, random), 1e-8, random);
            add_sine(series, 2e-9, row.period);
            const Periodogram found = periodogram(series);
            ASSERT_EQ(found.peaks.size(), 1U) << row.period << is_even;
            const SpectralPeak& peak = found.peaks.front();
            EXPECT_NEAR(peak.frequency * row.period, 1, 0.4 * row.period / found.span) << row.period;
            EXPECT_NEAR(peak.amplitude / 2e-9, 1, 0.25) << row.period;
            held += peak.amplitude_low < 2e-9 && peak.amplitude_high > 2e-9 ? 1 : 0;
            const double deviation = std::sqrt(2e-16 / static_cast<double>(found.count));
            EXPECT_NEAR((peak.amplitude_high - peak.amplitude) / (1.96 * deviation), 1.3, 0.5) << row.period;
            EXPECT_LT(peak.false_alarm, 1e-6);
            EXPECT_EQ(peak.known, row.known) << row.period;
        }
    EXPECT_GE(held, 10) << "of 12 intervals of 95 %";
}

// Without noise to hide in, each side lobe of a sine would be a peak, and with pauses of the same hours each day a day
// would stand beside it as well.
TEST(Periodogram, TellsAPeakFromItsSideLobes) {
    std::mt19937_64 random(3);
    UnevenSeries series = noise(even_times(4000, 900), 1e-3, random);
    UnevenSeries by_day;
    for (std::size_t at = 0; at < series.times.size(); ++at)
        if (std::fmod(series.times[at], day) < day / 3) {
            by_day.times.push_back(series.times[at]);
            by_day.values.push_back(series.values[at]);
        }
    for (UnevenSeries* one : {&series, &by_day}) {
        add_sine(*one, 1, 5.3 * 3600);
        const Periodogram found = periodogram(*one);
        ASSERT_EQ(found.peaks.size(), 1U);
        EXPECT_NEAR(found.peaks.front().period(), 5.3 * 3600, 30);
        EXPECT_NEAR(found.peaks.front().amplitude, 1, 0.03);
    }
    add_sine(series, 0.1, day);
    const Periodogram both = periodogram(series);
    ASSERT_EQ(both.peaks.size(), 2U);
    EXPECT_EQ(both.peaks.back().known, KnownPeriod::day);
}

// Of a hundred records one may have a peak that is none; where noise wanders about a gap, some more do.
TEST(Periodogram, NoiseHasNoPeaks) {
    std::mt19937_64 random(4);
    for (const bool wanders : {false, true})
        for (const bool is_even : {true, false}) {
            int alarms = 0;
            constexpr int records = 150;
            for (int turns = 0; turns < records; ++turns) {
                UnevenSeries series = noise(is_even ? even_times(2000, 64) : uneven_times(2000, 64, random), 1, random);
                if (wanders)
                    std::partial_sum(series.values.begin(), series.values.end(), series.values.begin());
                alarms += periodogram(series, {.removes_trend = wanders}).peaks.empty() ? 0 : 1;
            }
            EXPECT_LE(alarms, wanders && !is_even ? records / 10 : records * 3 / 100) << wanders << is_even;
        }
}

TEST(Periodogram, TakesATrendOutWhenAsked) {
    std::mt19937_64 random(6);
    UnevenSeries series = noise(even_times(1000, 64), 1, random);
    for (std::size_t at = 0; at < series.values.size(); ++at)
        series.values[at] += 0.1 * static_cast<double>(at) + 7;
    EXPECT_GT(periodogram(series).variance, 800);
    EXPECT_NEAR(periodogram(series, {.removes_trend = true}).variance, 1, 0.15);
}

TEST(Periodogram, RefusesWithAReason) {
    const UnevenSeries few{even_times(15, 1), std::vector<double>(15, 1)};
    EXPECT_EQ(periodogram_of(few).error().code, FailureCode::too_few_for_spectrum);
    const UnevenSeries same{even_times(100, 1), std::vector<double>(100, 1)};
    EXPECT_EQ(periodogram_of(same).error().code, FailureCode::nothing_varies);
}

TEST(Periodogram, TakesItsValuesFromTheFreeRunningClock) {
    FreeRunningClockReader reader;
    reader.add({.time = 0, .frequency = 1e-6, .offset = 5});
    reader.add({.time = 10, .frequency = 3e-6, .offset = 2e-5});
    reader.add({.time = 20, .frequency = 3e-6, .offset = -1e-5});
    reader.add_loss();
    reader.add({.time = 30, .frequency = 9e-6, .offset = 7});
    reader.add({.time = 20, .frequency = 9e-6, .offset = 8});
    const FreeRunningClock clock = std::move(reader).finish();
    const UnevenSeries frequency = series_of(clock, ClockQuantity::frequency);
    EXPECT_EQ(frequency.times, (std::vector<double>{5, 15}));
    ASSERT_EQ(frequency.values.size(), 2U);
    EXPECT_NEAR(frequency.values[0], 1e-6 + 2e-6, 1e-15);
    EXPECT_NEAR(frequency.values[1], 3e-6 - 1e-6, 1e-15);
    EXPECT_EQ(series_of(clock, ClockQuantity::offset).values, (std::vector<double>{5, 2e-5, -1e-5, 7}));
}

} // namespace
} // namespace tickervantage
