#include "base/failure_codes.h"
#include "linux/posix_followed_file.h"
#include "linux/posix_user_files.h"
#include "studies/freqtemp/recorded_temperatures.h"
#include "studies/laboratory/compensation_state.h"
#include "support/child_program.h"
#include "support/test.h"

namespace tickervantage {
namespace {

constexpr std::int64_t begin = 1'790'000'000;

// A reading each five minutes, with `slope` ppm a degree.
std::vector<TemperatureSample> readings(double slope, double days = 5, unsigned seed = 1) {
    std::mt19937 random(seed);
    std::normal_distribution<double> normal;
    std::vector<TemperatureSample> samples;
    for (int at = 0; at < days * 288; ++at) {
        const double temperature = 40 + 6 * std::sin(2 * std::numbers::pi * at / 288) + 0.1 * normal(random);
        samples.push_back({begin + 300 * at, temperature, slope * (temperature - 40) + 0.05 * normal(random)});
    }
    return samples;
}

TEST(CompensationChoice, IsTheSensorThatTheClockGainsMostBy) {
    EXPECT_FALSE(choose_compensation({}, std::nullopt));
    const auto best = choose_compensation(
        {{"a", readings(0, 5, 2)}, {"b", readings(0.2, 5, 3)}, {"c", readings(0.5, 5, 4)}, {"d", readings(1, 2, 5)}},
        std::nullopt);
    ASSERT_TRUE(best);
    EXPECT_EQ(best->sensor, "c");
    EXPECT_FALSE(best->study.refused);
    const auto none = choose_compensation({{"a", readings(0, 5, 2)}, {"d", readings(1, 2, 5)}}, std::nullopt);
    ASSERT_TRUE(none && none->study.refused);
    EXPECT_EQ(none->sensor, "a") << "whose study got further";
}

// Compensated since the third day: what is seen is flat from there on, and the curve is found all the same.
TEST(CompensationChoice, TakesOffWhatIsInstalled) {
    InstalledCompensation installed{.points = {{30000, 5}, {50000, -5}},
                                    .since = static_cast<double>(begin + 2 * 86400),
                                    .sensor = SensorPlace{"/sys/devices/x", "chip", "temp1_input"}};
    auto seen = readings(0.5);
    for (TemperatureSample& one : seen)
        if (one.time >= begin + 2 * 86400)
            one.frequency += compensation_in(installed.points, 1000 * one.temperature);
    const auto found = choose_compensation({{"chip-isa-0000/temp1", seen}}, installed);
    ASSERT_TRUE(found && !found->study.refused);
    const FrequencyCurve& curve = found->study.compensation->curve;
    EXPECT_NEAR(curve.at(44) - curve.at(36), 4, 0.1);
    EXPECT_EQ(found->samples.size(), seen.size());

    for (const std::string other : {"chip-isa-0000/temp2", "chips-isa-0000/temp1", "cpu"}) {
        const auto rest = choose_compensation({{other, seen}}, installed);
        ASSERT_TRUE(rest) << other;
        EXPECT_EQ(rest->samples.size(), 2 * 288U) << other << ": under another sensor's compensation nothing is known";
    }
}

TEST(CompensationAdvice, FollowsFromWhatIsKnown) {
    const auto state = [](double slope, double days) {
        CompensationState found;
        found.choice = choose_compensation({{"a", readings(slope, days)}}, std::nullopt);
        return found;
    };
    EXPECT_EQ(advice_of({}), CompensationAdvice::gather);
    EXPECT_EQ(advice_of(state(0.5, 2)), CompensationAdvice::gather);
    EXPECT_EQ(advice_of(state(0, 5)), CompensationAdvice::leave);
    EXPECT_EQ(advice_of(state(0.5, 5)), CompensationAdvice::install);
    CompensationState with = state(0.5, 5);
    with.installed = InstalledCompensation{};
    EXPECT_EQ(advice_of(with), CompensationAdvice::wait);
    with.gain = CompensationGain{};
    EXPECT_EQ(advice_of(with), CompensationAdvice::wait);
    with.gain->day = DayGain{.gain = 0.8};
    EXPECT_EQ(advice_of(with), CompensationAdvice::take_back);
    with.gain->week = DayGain{.gain = 3};
    EXPECT_EQ(advice_of(with), CompensationAdvice::keep) << "a week knows more than a day";
}

TEST(CompensationPicture, ShowsTheReadingsFlatWithTheCompensation) {
    const auto choice = choose_compensation({{"a", readings(0.5, 30)}}, std::nullopt);
    ASSERT_TRUE(choice);
    const ScatterMap picture = picture_of(*choice);
    ASSERT_EQ(picture.size(), 3U);
    const auto spread = [&picture](const char* name) {
        const auto extent = picture.at(name).points.extent();
        return extent ? extent->max_frequency - extent->min_frequency : 0;
    };
    EXPECT_GT(spread(picture_measured), 5);
    EXPECT_GT(spread(picture_curve), 5);
    EXPECT_LT(spread(picture_compensated), 0.6);
    EXPECT_LE(picture.at(picture_measured).points.size(), 4000U);
}

TEST(CompensationState, WithoutFilesThereIsNothingToRefuse) {
    const testing::PrivateHome home;
    PosixUserFiles files;
    PosixFollowedFiles logs;
    const auto nothing = read_compensation({home.path("no.json"), home.path("no.conf")}, files, logs);
    EXPECT_FALSE(nothing.choice || nothing.installed || nothing.unread);
    testing::write_file(home.path("bad.json"), "[");
    const auto bad = read_compensation({home.path("bad.json"), home.path("no.conf")}, files, logs);
    ASSERT_TRUE(bad.unread);
    EXPECT_EQ(bad.unread->code, FailureCode::cannot_read);
}

TEST(RecordedTemperatures, ShowWhatACompensationIsWorth) {
    constexpr std::int64_t end = 1'795'342'307;
    const ScatterMap map = recorded_temperatures(end);
    const auto best = choose_compensation(samples_in_map(map), std::nullopt);
    ASSERT_TRUE(best && best->study.compensation);
    EXPECT_FALSE(best->study.refused);
    EXPECT_GT(best->study.compensation->gain_low, 2);
    EXPECT_TRUE(map.at(best->sensor).quadRegression->valid) << "the plot has its curve before a reading comes";
    EXPECT_EQ(best->samples.back().time, end);
    EXPECT_LT(best->samples.size(), 2000U) << "what a fresh window keeps";
}

} // namespace
} // namespace tickervantage
