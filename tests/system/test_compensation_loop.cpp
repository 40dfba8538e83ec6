// A clock with a temperature curve, and chronyd that compensates for it by a table of ours: real daemons on loopback.
//
// The oscillator is a server whose own compensation makes its time run by the curve; its clients leave the clock alone
// and measure it. One of them has the table that a study of that curve ends in.
#include "chrony/log/log_table.h"
#include "linux/user_name.h"
#include "studies/laboratory/compensation.h"
#include "support/child_program.h"
#include "support/test.h"

#include <fmt/format.h>

namespace tickervantage {
namespace {

using std::chrono::duration;
using std::chrono::steady_clock;

constexpr double coldest = 30;
constexpr double warmest = 50;

// ppm, by which a client sees its own clock run fast beside the server.
double curve_at(double temperature) {
    return 0.85 * (temperature - 40) - 0.02 * (temperature - 40) * (temperature - 40);
}

struct CompensationLoop : ::testing::Test {
    testing::PrivateHome home;
    std::deque<testing::ChildProgram> daemons;
    const std::string port = std::to_string(20000 + ::getpid() % 20000);

    void start(const std::string& name, const std::string& configuration) {
        const std::string folder = home.path(name);
        mkdir(folder.c_str(), 0700);
        testing::write_file(folder + "/conf", configuration + "cmdport 0\nbindcmdaddress " + folder + "/s\npidfile " +
                                                  folder + "/pid\nlogdir " + folder + "\nlog tracking\n");
        daemons.emplace_back(std::vector<std::string>{"/usr/sbin/chronyd", "-x", "-U", "-u", user_name(::geteuid()),
                                                      "-d", "-f", folder + "/conf"},
                             home.environment, home.path());
    }
    std::string compensated_by(const std::string& name, const std::string& points) {
        testing::write_file(home.path(name), points);
        return "tempcomp " + home.path("sensor") + " 0.1 " + home.path(name) + '\n';
    }
    std::string measuring() const {
        return "server 127.0.0.1 port " + port +
               " minpoll -2 maxpoll -2 iburst maxsamples 32\nport 0\nmaxupdateskew 1000\n";
    }
    void set_temperature(double temperature) {
        std::ofstream(home.path("new"), std::ios::binary) << std::llround(temperature * 1000) << '\n';
        std::filesystem::rename(home.path("new"), home.path("sensor"));
    }
    // Of the frequencies that a client noted, the first seconds left out; ppm.
    double spread(const std::string& name) {
        LogTable table(LogKind::tracking);
        std::istringstream lines(testing::contents(home.path(name + "/tracking.log")));
        for (std::string line; std::getline(lines, line);)
            (void)table.add_line(line);
        const std::size_t first = table.size() / 4;
        const auto count = static_cast<double>(table.size() - first);
        EXPECT_GT(count, 40) << name;
        double mean = 0;
        double squares = 0;
        for (std::size_t at = first; at < table.size(); ++at)
            mean += table.number(tracking_column::frequency, at) / count;
        for (std::size_t at = first; at < table.size(); ++at)
            squares += std::pow(table.number(tracking_column::frequency, at) - mean, 2) / count;
        return std::sqrt(squares);
    }
};

// Four days of readings of that curve.
Compensation studied() {
    std::mt19937 random(3);
    std::normal_distribution<double> normal;
    std::vector<TemperatureSample> samples;
    for (int at = 0; at < 4 * 288; ++at) {
        const double temperature = 40 + 9.9 * std::sin(2 * std::numbers::pi * at / 288) + 0.02 * normal(random);
        samples.push_back({1'790'000'000 + 300 * at, temperature, curve_at(temperature) + 0.05 * normal(random)});
    }
    const auto study = study_compensation(samples);
    EXPECT_FALSE(study.refused);
    return study.compensation.value_or(Compensation());
}

TEST_F(CompensationLoop, AClockWithATemperatureCurveIsSteadierByOurTable) {
    if (std::filesystem::exists("/usr/sbin/chronyd") == false)
        GTEST_SKIP() << "there is no chronyd here";
    std::string oscillator;
    for (double temperature = coldest - 1; temperature <= warmest + 1; ++temperature)
        oscillator += fmt::format("{} {:.4f}\n", 1000 * temperature, -curve_at(temperature));
    set_temperature(40);
    start("server", "local stratum 5\nallow\nport " + port + "\nbindaddress 127.0.0.1\n" +
                        compensated_by("oscillator", oscillator));
    start("plain", measuring());
    start("compensated", measuring() + compensated_by("table", points_text(points_of(studied(), 1000))));
    constexpr double seconds = 40;
    constexpr double period = 20;
    const auto begin = steady_clock::now();
    for (double now = 0; now < seconds; now = duration<double>(steady_clock::now() - begin).count()) {
        set_temperature(40 + 9.5 * std::sin(2 * std::numbers::pi * now / period));
        const timespec nap{0, 50'000'000}; // the temperature goes with the daemons' own time
        nanosleep(&nap, nullptr);
    }
    const double without = spread("plain");
    const double with = spread("compensated");
    std::printf("frequency spread %.3f ppm, compensated %.3f ppm: %.0f times less\n", without, with, without / with);
    EXPECT_GT(without, 2);
    EXPECT_GT(without / with, 5);
}

} // namespace
} // namespace tickervantage
