#include "chrony/configuration/installed_compensation.h"
#include "linux/posix_followed_file.h"
#include "studies/laboratory/compensation_gain.h"
#include "support/child_program.h"
#include "support/test.h"

#include <fmt/chrono.h>

namespace tickervantage {
namespace {

constexpr double since = 1'790'000'000;

// An oscillator that goes up and down with the day by `swing`; from `since` on a compensation takes `part` of that out.
struct Machine {
    double swing = 2; // ppm
    double part = 0.9;
    double days = 8;        // with the compensation
    double days_before = 3; // without
    double noise = 0.02;    // ppm
    double note_every = 10; // s: the compensation
    double measure_every = 300;
};

NotedCompensation noted_on(const Machine& machine, unsigned seed = 1) {
    std::mt19937 random(seed);
    std::normal_distribution<double> normal;
    const auto oscillator = [&](double time) {
        return machine.swing * std::sin(2 * std::numbers::pi * time / 86400);
    };
    NotedCompensation noted;
    for (double time = since; time < since + machine.days * 86400; time += machine.note_every)
        noted.compensations.push_back({time, -machine.part * oscillator(time)});
    for (double time = since - machine.days_before * 86400; time < since + machine.days * 86400;
         time += machine.measure_every) {
        const double compensation = time < since ? 0 : -machine.part * oscillator(time);
        noted.frequencies.push_back({time, -20 + oscillator(time) + compensation + machine.noise * normal(random)});
    }
    return noted;
}

TEST(CompensationGain, IsWhatTheLogsSay) {
    const struct {
        const char* name;
        Machine machine;
        double gain; // 0: no day yet
        bool has_week, is_worse;
    } cases[] = {{"good", {}, 10, true, false},
                 {"the wrong way round", {.part = -1}, 0.5, true, true},
                 {"too much", {.part = 2.5}, 1 / 1.5, true, true},
                 {"nothing to gain", {.swing = 0, .part = 0}, 1, true, false},
                 {"some hours", {.days = 0.5}, 0, false, false},
                 {"a day", {.days = 1.2}, 10, false, false},
                 {"a day, worse", {.part = -1, .days = 1.2}, 0.5, false, true},
                 {"five days", {.days = 5}, 10, false, false},
                 {"the compensation is noted no more", {.note_every = 1e9}, 0, false, false}};
    for (const auto& [name, machine, wanted, has_week, is_worse] : cases) {
        const auto gain = gain_since(noted_on(machine), since);
        ASSERT_EQ(gain.day.has_value(), wanted > 0) << name;
        ASSERT_EQ(gain.week.has_value(), has_week) << name;
        EXPECT_EQ(gain.is_worse(), is_worse) << name;
        ASSERT_TRUE(gain.former) << name;
        EXPECT_NEAR(*gain.former, machine.swing > 0 ? machine.swing / std::sqrt(2) : machine.noise, 0.01) << name;
        if (gain.day) {
            EXPECT_NEAR(gain.day->gain / wanted, 1, 0.06) << name;
        }
        if (gain.week) {
            EXPECT_NEAR(gain.week->gain / wanted, 1, 0.06) << name;
            EXPECT_LE(gain.week->low, gain.week->gain) << name;
            EXPECT_GE(gain.week->high, gain.week->gain) << name;
        }
    }
}

TEST(CompensationGain, ComesFromTheFilesThatChronydWrites) {
    const testing::PrivateHome home;
    std::string tracking;
    std::string tempcomp;
    for (int at = 0; at < 400; ++at) {
        const std::time_t time = 1'790'000'000 + 300 * at;
        const double compensation = at % 2 == 0 ? 1.5 : -1.5;
        tempcomp += fmt::format("{:%Y-%m-%d %H:%M:%S}  2.6000e+04 {:11.4e}\n", fmt::gmtime(time - 5), compensation);
        tracking +=
            fmt::format("{:%Y-%m-%d %H:%M:%S} 192.0.2.1        3 {:10.3f}      0.010  1.000e-05 N  1  1.000e-06 "
                        "-1.000e-06  1.000e-03  1.000e-03  1.000e-03\n",
                        fmt::gmtime(time), at % 4 < 2 ? -20.1 : -19.9);
    }
    const std::string folder = home.path("data");
    testing::write_file(folder + "/tracking.log", tracking);
    testing::write_file(folder + "/tempcomp.log", tempcomp);
    PosixFollowedFiles files;
    const auto noted = read_noted_compensation(files, folder);
    ASSERT_TRUE(noted) << english(noted.error());
    ASSERT_EQ(noted->compensations.size(), 400U);
    const auto gain = gain_since(*noted, 0);
    ASSERT_TRUE(gain.day);
    EXPECT_NEAR(gain.day->after, 0.1, 0.001);
    EXPECT_NEAR(gain.day->before, std::hypot(0.1, 1.5), 0.02);
}

TEST(InstalledCompensation, IsReadFromTheMachine) {
    const testing::PrivateHome home;
    const std::string root = home.path("config");
    const std::string conf = root + "/etc/chrony/chrony.conf";
    std::filesystem::create_directories(root + "/etc/chrony");
    std::filesystem::create_directories(root + "/etc/systemd/system/chrony.service.d");
    EXPECT_FALSE(installed_compensation(conf, root));
    testing::write_file(conf, "logdir /l\ntempcomp /sys/x 1 /etc/y\n");
    EXPECT_FALSE(installed_compensation(conf, root)) << "somebody else's";
    testing::write_file(conf, "logdir /l\ntempcomp /etc/chrony/tickervantage.temperature 10 "
                              "/etc/chrony/tickervantage.tempcomp\n");
    auto found = installed_compensation(conf, root);
    ASSERT_TRUE(found);
    EXPECT_TRUE(found->points.empty() && !found->sensor && found->log_folder == "/l");
    testing::write_file(root + "/etc/chrony/tickervantage.tempcomp", "20000 1\n30000 2\n");
    const SensorPlace sensor{"/sys/devices/a/hwmon", "lm75", "temp1_input"};
    testing::write_file(root + "/etc/systemd/system/chrony.service.d/tickervantage-sensor.conf",
                        sensor_drop_in(sensor));
    found = installed_compensation(conf, root);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->points.size(), 2U);
    EXPECT_GT(found->since, 1e9);
    EXPECT_EQ(found->sensor, sensor);
}

} // namespace
} // namespace tickervantage
