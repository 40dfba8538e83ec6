// Writes a chrony tracking log as a machine of some years would have it: make_log RECORDS [SEED] >FILE
//
// Four records a minute; banner lines before every 32nd; a frequency that wanders with the temperature, an offset with
// noise and a few outliers; sources that change, one of them with an address longer than its column; and now and then
// all sources lost. The same seed gives the same bytes.
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <random>

namespace {

constexpr int records_per_banner = 32;
constexpr int seconds_per_record = 16;
constexpr std::time_t start = 1600000000; // 2020-09-13
constexpr const char* line =
    "==================================================================================================="
    "================================";
constexpr const char* sources[] = {"192.0.2.17", "198.51.100.203", "203.0.113.5", "2001:db8:4:17::123", "PPS"};

void print_banner() {
    std::puts(line);
    std::puts("   Date (UTC) Time     IP Address   St   Freq ppm   Skew ppm     Offset L Co  Offset sd Rem. corr. Root "
              "delay Root disp. Max. error");
    std::puts(line);
}

class Machine {
public:
    explicit Machine(unsigned long seed) : m_random(seed) {}

    void print_record(long number) {
        change_source();
        const double day = 2 * M_PI * static_cast<double>(number) * seconds_per_record / 86400;
        m_frequency += 0.002 * normal();
        const double frequency = m_frequency + 0.4 * std::sin(day);
        const double noise = chance(0.003) ? 60e-6 : 6e-6;
        const double offset = noise * normal();
        m_remaining = 0.7 * m_remaining - 0.3 * offset;
        const std::time_t now = start + number * seconds_per_record;
        char time[32];
        std::strftime(time, sizeof time, "%Y-%m-%d %H:%M:%S", std::gmtime(&now));
        const bool lost = m_lost > 0;
        std::printf("%s %-15s %2d %10.3f %10.3f %10.3e %1c %2d %10.3e %10.3e %10.3e %10.3e %10.3e\n", time,
                    lost ? "0.0.0.0" : sources[m_source],
                    lost            ? 0
                    : m_source == 4 ? 1
                                    : 3,
                    frequency, std::abs(0.02 + 0.01 * normal()), lost ? 0 : offset, lost ? '?' : 'N',
                    lost ? 0 : m_combined, std::abs(8e-6 + 2e-6 * normal()), m_remaining,
                    0.012 + 1e-4 * std::abs(normal()), 4e-4 + 5e-5 * std::abs(normal()),
                    0.008 + 1e-4 * std::abs(normal()));
    }

private:
    double normal() { return m_normal(m_random); }
    bool chance(double probability) { return m_uniform(m_random) < probability; }

    void change_source() {
        m_lost = m_lost > 0 ? m_lost - 1 : chance(0.0002) ? 8 : 0;
        if (chance(0.001))
            m_source = static_cast<int>(m_random() % std::size(sources));
        if (chance(0.02))
            m_combined = 1 + static_cast<int>(m_random() % 4);
    }

    std::mt19937_64 m_random;
    std::normal_distribution<double> m_normal;
    std::uniform_real_distribution<double> m_uniform;
    double m_frequency = -12.4; // ppm
    double m_remaining = 0;     // s
    int m_source = 0;
    int m_combined = 2;
    int m_lost = 0; // records until there are sources again
};

} // namespace

int main(int argc, char** argv) {
    if (argc < 2 || argc > 3) {
        std::fputs("Usage: make_log RECORDS [SEED] >FILE\n", stderr);
        return 2;
    }
    const long records = std::atol(argv[1]);
    Machine machine(argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 1);
    for (long number = 0; number < records; ++number) {
        if (number % records_per_banner == 0)
            print_banner();
        machine.print_record(number);
    }
    return std::fflush(stdout) == 0 ? 0 : 1;
}
