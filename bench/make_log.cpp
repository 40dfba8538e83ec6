// Writes a log of chrony as a machine of some years would have it: make_log RECORDS [SEED [KIND]] >FILE
//
// KIND is tracking, measurements, statistics, selection, refclocks, tempcomp or rtc. Of a tracking log:
//
// Four records a minute; banner lines before every 32nd; a frequency that wanders with the temperature, an offset with
// noise and a few outliers; sources that change, one of them with an address longer than its column; and now and then
// all sources lost. The same seed gives the same bytes.
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
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

void print_banner(const char* heading) {
    std::puts(line);
    std::puts(heading);
    std::puts(line);
}

constexpr const char* tracking_heading =
    "   Date (UTC) Time     IP Address   St   Freq ppm   Skew ppm     Offset L Co  "
    "Offset sd Rem. corr. Root delay Root disp. Max. error";

void print_time(std::time_t time) {
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", std::gmtime(&time));
    std::fputs(text, stdout);
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
        print_time(now);
        const bool lost = m_lost > 0;
        std::printf(" %-15s %2d %10.3f %10.3f %10.3e %1c %2d %10.3e %10.3e %10.3e %10.3e %10.3e\n",
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

// The other logs: the same columns in the same widths, with values that vary in all digits.
class Columns {
public:
    explicit Columns(unsigned long seed) : m_random(seed) {}

    void print(const char* kind, long number) {
        const char* source = sources[static_cast<std::size_t>(number) % std::size(sources)];
        print_time(start + number * seconds_per_record);
        const auto is = [kind](const char* name) {
            return std::strcmp(kind, name) == 0;
        };
        if (is("measurements"))
            std::printf(" %-15s %1c %2d 111 111 1111 %3d %2d %4.2f %10.3e %10.3e %10.3e %10.3e %10.3e %s 4B K K\n",
                        source, 'N', 2, 6, 6, m_share(m_random), small(), small(), small(), small(), small(),
                        "C0000211");
        else if (is("statistics"))
            std::printf(" %-15s %10.3e %10.3e %10.3e %10.3e %10.3e %7.1e %3d %3d %3d %5.2f\n", source, small(), small(),
                        small(), small(), small(), std::abs(small()), 16, 0, 8, 0.25);
        else if (is("selection"))
            std::printf(" %-15s %c ----- %4o %5.2f %10.3e %10.3e %10.3e\n", source, '+', 255, 1.0, std::abs(small()),
                        small(), small());
        else if (is("refclocks"))
            std::printf(".%06ld %-4s %4d %1c %1d %13.6e %13.6e %10.3e\n", number % 1000000, "PPS", 3, 'N', 1, small(),
                        small(), small());
        else if (is("tempcomp"))
            std::printf(" %11.4e %11.4e\n", 28000 + 1e5 * small(), 1e3 * small());
        else
            std::printf(" %14.6f %1d  %14.6f  %12.3f  %2d  %2d %4d\n", small(), 1, small(), 1e3 * small(), 12, 5, 120);
    }

private:
    double small() { return 1e-4 * m_normal(m_random); }

    std::mt19937_64 m_random;
    std::normal_distribution<double> m_normal;
    std::uniform_real_distribution<double> m_share;
};

} // namespace

int main(int argc, char** argv) {
    if (argc < 2 || argc > 4) {
        std::fputs("Usage: make_log RECORDS [SEED [KIND]] >FILE\n", stderr);
        return 2;
    }
    const long records = std::atol(argv[1]);
    const unsigned long seed = argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 1;
    const char* kind = argc > 3 ? argv[3] : "tracking";
    const bool is_tracking = std::strcmp(kind, "tracking") == 0;
    Machine machine(seed);
    Columns columns(seed);
    for (long number = 0; number < records; ++number) {
        if (number % records_per_banner == 0)
            print_banner(is_tracking ? tracking_heading : "   Date (UTC) Time");
        if (is_tracking)
            machine.print_record(number);
        else
            columns.print(kind, number);
    }
    return std::fflush(stdout) == 0 ? 0 : 1;
}
