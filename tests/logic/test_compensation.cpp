#include "base/failure_codes.h"
#include "studies/laboratory/compensation.h"
#include "support/test.h"

namespace tickervantage {
namespace {

struct Crystal {
    double linear = -0.1;    // ppm a degree, about 40 °C
    double quadratic = 0.02; // ppm a degree squared
    double aging = 0.02;     // ppm a day
    double shaking = 0.02;   // ppm
    double range = 12;       // degrees a day
    int days = 6;
};

// A reading every four minutes; the temperature goes up and down with the day and wanders from day to day.
std::vector<TemperatureSample> readings(const Crystal& crystal, unsigned seed) {
    std::mt19937 random(seed);
    std::normal_distribution<double> normal;
    std::vector<TemperatureSample> samples;
    double level = 40;
    for (int at = 0; at < crystal.days * 360; ++at) {
        const double days = at / 360.0;
        level += at % 360 == 0 ? normal(random) : 0;
        const double temperature =
            level + crystal.range / 2 * std::sin(2 * std::numbers::pi * days) + 0.2 * normal(random);
        const double warm = temperature - 40;
        samples.push_back({1'790'000'000 + 240 * at, temperature,
                           -20 + crystal.linear * warm + crystal.quadratic * warm * warm + crystal.aging * days +
                               crystal.shaking * normal(random)});
    }
    return samples;
}

TEST(Compensation, TakesOutWhatTheTemperatureDoes) {
    const auto study = study_compensation(readings({}, 1));
    ASSERT_FALSE(study.refused) << english(*study.refused);
    const Compensation& found = *study.compensation;
    EXPECT_EQ(found.degree(), 2);
    EXPECT_NEAR(found.after, 0.02, 0.005) << "what shakes is left, and a little of a day's aging";
    EXPECT_GT(found.gain_low, 2);
    EXPECT_LT(found.gain_low, found.gain);
    EXPECT_LT(found.gain, found.gain_high);
    EXPECT_NEAR(found.gain, found.before / found.after, 1e-9);
    const auto true_difference = [](double one, double other) {
        return -0.1 * (one - other) + 0.02 * (std::pow(one - 40, 2) - std::pow(other - 40, 2));
    };
    for (const double temperature : {35.0, 38.0, 45.0})
        EXPECT_NEAR(found.compensation_at(40) - found.compensation_at(temperature), true_difference(temperature, 40),
                    0.05)
            << temperature;

    const auto points = points_of(found, 1000);
    EXPECT_EQ(points[1].temperature, 1000 * std::ceil(found.coldest));
    EXPECT_EQ(points[0].temperature, points[1].temperature - 1000);
    EXPECT_EQ(points[0].compensation, points[1].compensation) << "beyond the end nothing is known";
    EXPECT_EQ(points.back().compensation, points[points.size() - 2].compensation);
    EXPECT_EQ(points[points.size() - 2].temperature, 1000 * std::floor(found.warmest));
    double most = 0;
    double least = 0;
    for (double temperature = found.coldest; temperature <= found.warmest; temperature += 0.01) {
        most = std::max(most, found.compensation_at(temperature));
        least = std::min(least, found.compensation_at(temperature));
    }
    EXPECT_NEAR(most, -least, 0.01) << "as much to one side as to the other";

    const auto coefficients = coefficients_of(found, 1000);
    ASSERT_TRUE(coefficients);
    const auto& [t0, k0, k1, k2] = *coefficients;
    for (const double temperature : {33.0, 40.0, 47.0}) {
        const double apart = 1000 * temperature - t0;
        EXPECT_NEAR(k0 + apart * k1 + apart * apart * k2, found.compensation_at(temperature), 1e-9);
    }
}

TEST(Compensation, DoubtsTheGainAsFarAsTheDaysDiffer) {
    auto alike = readings({.aging = 0, .days = 1}, 2);
    for (TemperatureSample& sample : alike)
        sample.time += 20718 * std::int64_t{86400} - 1'790'000'000; // whole days
    const auto day = alike;
    for (int number = 1; number < 5; ++number)
        for (TemperatureSample sample : day) {
            sample.time += std::int64_t{86400} * number;
            alike.push_back(sample);
        }
    const auto study = study_compensation(std::move(alike));
    ASSERT_FALSE(study.refused) << english(*study.refused);
    EXPECT_NEAR(study.compensation->gain_high / study.compensation->gain_low, 1, 1e-6);
}

TEST(Compensation, InterpolatesAsChronydDoes) {
    const std::vector<TempcompPoint> points{{20, 1}, {30, 2}, {31, 5}};
    for (const auto& [temperature, wanted] :
         std::map<double, double>{{20, 1}, {25, 1.5}, {30, 2}, {30.5, 3.5}, {10, 0}, {33, 11}})
        EXPECT_NEAR(compensation_in(points, temperature), wanted, 1e-12) << temperature;
}

FailureCode refusal_of(const Crystal& crystal, std::size_t count = SIZE_MAX) {
    auto samples = readings(crystal, 5);
    samples.resize(std::min(count, samples.size()));
    const auto study = study_compensation(std::move(samples));
    return study.refused ? study.refused->code : FailureCode::others_words;
}

TEST(Compensation, RefusesWhatItCannotKnow) {
    EXPECT_EQ(refusal_of({}), FailureCode::others_words) << "this crystal is none of them";
    EXPECT_EQ(refusal_of({}, 0), FailureCode::compensation_without_history);
    EXPECT_EQ(refusal_of({.days = 3}), FailureCode::compensation_without_history) << "a reading short of three days";
    EXPECT_EQ(refusal_of({.range = 0.5, .days = 4}), FailureCode::compensation_without_range);
    EXPECT_EQ(refusal_of({.linear = 2, .quadratic = 0}), FailureCode::compensation_too_large);
    EXPECT_EQ(refusal_of({.linear = 0, .quadratic = 0}), FailureCode::compensation_without_gain);
    auto sparse = readings({.days = 6}, 5);
    std::erase_if(sparse,
                  [](const TemperatureSample& one) { return one.time / 86400 % 3 != 0 && one.time / 240 % 60 != 0; });
    EXPECT_EQ(study_compensation(sparse).refused.value_or(Failure{}).code, FailureCode::compensation_without_days);
}

TEST(Compensation, DoesNotBelieveNoise) {
    int refused = 0;
    constexpr int seeds = 200;
    for (unsigned seed = 0; seed < seeds; ++seed)
        refused +=
            study_compensation(readings({.linear = 0, .quadratic = 0, .aging = 0, .days = 4}, seed)).refused ? 1 : 0;
    EXPECT_GE(refused, seeds * 95 / 100);
}

} // namespace
} // namespace tickervantage
