#include "chrony/demonstration/recorded_day.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <iterator>
#include <numbers>
#include <random>
#include <string_view>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::int64_t hour = 3600;
constexpr std::int64_t day = 24 * hour;
constexpr std::int64_t step = 2; // s; both of the next are some of these
constexpr int poll_exponent = 4;
constexpr std::int64_t poll = 16;    // s between two updates
constexpr std::int64_t reading = 10; // s between two readings
constexpr double ppm = 1e-6;
constexpr int kept_samples = 24;
constexpr int kept_runs = 11;

struct Span {
    double from; // h before the end
    double to;
    [[nodiscard]] bool holds(double left) const { return left <= from && left > to; }
};
constexpr Span falseticker{21.5, 20};
constexpr Span other_reference{16.7, 14.9};
constexpr Span outage{9.25, 8};
constexpr Span restart{4.5, 4.494};

struct Source {
    double delay; // s
    unsigned reach = 0xFF;
    std::int64_t heard = 0; // s since 1970
    double offset = 0;
    double deviation = 0;
};

std::string banner(std::string_view columns) {
    const std::string ruler(columns.size(), '=');
    return fmt::format("{}\n{}\n{}\n", ruler, columns, ruler);
}

// A clock that is steered by what its sources say, as far as its reports show it.
class Simulation {
public:
    explicit Simulation(std::int64_t end) : m_end(end) {}

    RecordedDay run() {
        RecordedDay recorded;
        recorded.installed = m_end - static_cast<std::int64_t>(restart.from * hour);
        for (std::int64_t time = (m_end - day) / step * step; time < m_end; time += step) {
            m_left = static_cast<double>(m_end - time) / hour;
            const bool was_away = std::exchange(m_is_away, restart.holds(m_left));
            if (m_is_away)
                forget_reach();
            else if (time % poll == 0 || was_away)
                update(time, recorded.logs);
            if (time % reading == 0 && m_updated != 0)
                recorded.readings.push_back(report(time));
        }
        return recorded;
    }

private:
    // Of a normal distribution, near enough, and the same with every library.
    double lot() {
        double sum = -6;
        for (int draw = 0; draw < 12; ++draw)
            sum += static_cast<double>(m_draws()) / static_cast<double>(std::mt19937::max());
        return sum;
    }

    // Offsets scatter more when the network has much to do, and little where the live part begins.
    [[nodiscard]] double scatter() const {
        const double busy = 9 - 5 * std::cos(2 * std::numbers::pi * m_left / 24);
        return std::min(busy, 1 + 20 * m_left) * ppm;
    }

    [[nodiscard]] double since_outage() const { return std::max(0.0, outage.to - m_left) * hour; }

    void forget_reach() {
        for (Source& source : m_sources)
            source.reach = 0;
    }

    void update(std::int64_t time, RecordedLogs& logs) {
        m_stamp = fmt::format("{:%Y-%m-%d %H:%M:%S}", fmt::gmtime(static_cast<std::time_t>(time)));
        const bool is_silent = outage.holds(m_left);
        for (std::size_t at = 0; at < m_sources.size(); ++at) {
            Source& source = m_sources.at(at);
            source.reach = (source.reach << 1U | (is_silent ? 0U : 1U)) & 0xFFU;
            if (is_silent)
                continue;
            source.heard = time;
            const bool is_false = at == 2 && falseticker.holds(m_left);
            source.offset = scatter() * lot() * (1 + static_cast<double>(at)) + (is_false ? 4.2e-3 : 0);
            source.deviation = scatter() * (1 + 0.1 * std::abs(lot()));
            log_source(at, logs);
        }
        m_was_silent = m_was_silent || is_silent;
        if (!is_silent)
            follow(time, logs);
    }

    // What has run up while nobody was heard is found at the first update.
    void follow(std::int64_t time, RecordedLogs& logs) {
        constexpr double drift = 1.07;
        const double error_before = -age(time) * growth();
        const double remaining = -system_time(time);
        const bool is_back = std::exchange(m_was_silent, false);
        m_offset = is_back ? drift * ppm * (outage.from - outage.to) * hour : scatter() * lot();
        if (is_back) {
            m_back = time;
            m_run_up = m_offset;
        }
        const double after = m_left < outage.to ? std::exp(-since_outage() / 1500) : 0;
        m_frequency = 0.42 * std::sin(2 * std::numbers::pi * m_left / 24) + drift * after + 0.004 * lot();
        m_residual = 0.003 * lot() + 0.2 * drift * after;
        m_skew = 0.014 + 0.002 * std::abs(lot()) + 0.4 * after;
        m_rms = std::sqrt(0.9 * m_rms * m_rms + 0.1 * m_offset * m_offset);
        m_delay = followed().delay * (1 + 0.05 * std::abs(lot()));
        const double most = std::abs(m_offset) + std::abs(remaining) + m_delay / 2 + m_dispersion - error_before;
        m_dispersion = 2 * scatter() + 40 * ppm;
        m_updated = time;
        log_tracking(remaining, most, logs.tracking);
    }

    [[nodiscard]] std::size_t reference() const { return other_reference.holds(m_left) ? 1 : 0; }
    [[nodiscard]] const Source& followed() const { return m_sources.at(reference()); }
    [[nodiscard]] double age(std::int64_t time) const { return static_cast<double>(time - m_updated); }
    [[nodiscard]] double growth() const { return (m_skew + std::abs(m_residual) + 1) * ppm; }
    // What ran up in the outage takes minutes to be slewed away.
    [[nodiscard]] double system_time(std::int64_t time) const {
        const double run_up = m_run_up * std::exp(-static_cast<double>(time - m_back) / 60);
        return run_up + (m_updated == m_back ? 0 : m_offset * std::exp(-age(time) / 5));
    }

    void log_tracking(double remaining, double most, std::string& text) {
        if (m_records++ % 32 == 0)
            text +=
                banner("   Date (UTC) Time     IP Address   St   Freq ppm   Skew ppm     Offset L Co  Offset sd Rem. "
                       "corr. Root delay Root disp. Max. error");
        fmt::format_to(
            std::back_inserter(text),
            "{} {:<15} {:2} {:10.3f} {:10.3f} {:10.3e} N {:2} {:10.3e} {:10.3e} {:10.3e} {:10.3e} {:10.3e}\n", m_stamp,
            demonstration_servers.at(reference()), demonstration_stratum(reference()) + 1, m_frequency, m_skew,
            m_offset, combined(), followed().deviation, remaining, m_delay, m_dispersion, most);
    }

    // In measurements.log an offset is what the clock lacks, in the others what it is ahead.
    void log_source(std::size_t at, RecordedLogs& logs) {
        const Source& source = m_sources.at(at);
        if (m_samples++ % 32 == 0) {
            logs.measurements += banner("   Date (UTC) Time     IP Address   L St 123 567 ABCD  LP RP Score    Offset  "
                                        "Peer del. Peer disp.  Root del. Root disp. Refid     MTxRx");
            logs.statistics += banner("   Date (UTC) Time     IP Address    Std dev'n Est offset  Offset sd  Diff freq "
                                      "  Est skew  Stress  Ns  Bs  Nr  Asym");
        }
        fmt::format_to(std::back_inserter(logs.measurements),
                       "{} {:<15} N {:2} 111 111 1111  {:2} {:2} 1.0 {:10.3e} {:10.3e} {:10.3e} {:10.3e} {:10.3e} "
                       "7F7F0101 4B K K\n",
                       m_stamp, demonstration_servers.at(at), demonstration_stratum(at), poll_exponent, poll_exponent,
                       -source.offset, source.delay, 1e-6, 0.0, 2e-5);
        fmt::format_to(std::back_inserter(logs.statistics),
                       "{} {:<15} {:10.3e} {:10.3e} {:10.3e} {:10.3e} {:10.3e} {:7.1e} {:3} {:3} {:3} {:5.2f}\n",
                       m_stamp, demonstration_servers.at(at), source.deviation, source.offset, source.deviation / 4,
                       m_residual * ppm, m_skew * ppm, 0.1, kept_samples, 0, kept_runs, 0.0);
    }

    [[nodiscard]] int combined() const { return falseticker.holds(m_left) ? 2 : 3; }

    // As chronyc prints it: what was not heard for eight polls is out of reach, what the others outvote is false.
    [[nodiscard]] char letter(std::size_t at) const {
        if (m_sources.at(at).reach == 0)
            return '?';
        if (at == 2 && falseticker.holds(m_left))
            return 'x';
        return at == reference() ? '*' : '+';
    }

    [[nodiscard]] ChronyReports report(std::int64_t time) const {
        ChronyReports reports;
        reports.now = static_cast<double>(time);
        reports.steers = true;
        if (m_is_away)
            return reports;
        reports.tracking = tracking(time);
        reports.sources.emplace();
        reports.statistics.emplace();
        for (std::size_t at = 0; at < m_sources.size(); ++at) {
            reports.sources->push_back(source_data(at, time));
            auto& statistics = reports.statistics->emplace_back();
            statistics.source = demonstration_servers.at(at);
            statistics.samples = kept_samples;
            statistics.std_dev = m_sources.at(at).deviation;
        }
        return reports;
    }

    [[nodiscard]] SourceData source_data(std::size_t at, std::int64_t time) const {
        const Source& source = m_sources.at(at);
        SourceData data;
        data.letter = letter(at);
        data.source = demonstration_servers.at(at);
        data.stratum = demonstration_stratum(at);
        data.poll = poll_exponent;
        data.reach = source.reach;
        data.last_rx = static_cast<double>(time - source.heard);
        data.offset = data.measured = source.offset;
        data.error = source.delay / 2 + source.deviation;
        return data;
    }

    [[nodiscard]] TrackingData tracking(std::int64_t time) const {
        TrackingData data;
        data.reference_id = 0x7F000001U + static_cast<std::uint32_t>(reference());
        data.address = demonstration_servers.at(reference());
        data.stratum = demonstration_stratum(reference()) + 1;
        data.reference_time = static_cast<double>(m_updated);
        data.system_time = system_time(time);
        data.last_offset = m_offset;
        data.rms_offset = m_rms;
        data.frequency_ppm = m_frequency;
        data.residual_frequency_ppm = m_residual;
        data.skew_ppm = m_skew;
        data.root_delay = m_delay;
        data.root_dispersion = m_dispersion + age(time) * growth();
        data.update_interval = static_cast<double>(poll);
        data.leap_status = "Normal";
        return data;
    }

    std::int64_t m_end;
    double m_left = 0; // h to the end
    std::mt19937 m_draws{20261122};
    std::array<Source, demonstration_servers.size()> m_sources{{{180 * ppm}, {260 * ppm}, {410 * ppm}}};
    std::int64_t m_updated = 0; // s since 1970; 0: never
    bool m_is_away = false;
    bool m_was_silent = false;
    std::int64_t m_back = -1; // s since 1970, out of the outage
    double m_run_up = 0;      // s, during it
    double m_offset = 0;      // s
    double m_rms = 9 * ppm;   // s
    double m_frequency = 0;   // ppm
    double m_residual = 0;    // ppm
    double m_skew = 0;        // ppm
    double m_delay = 0;       // s
    double m_dispersion = 50 * ppm;
    std::string m_stamp; // of the update
    int m_records = 0;
    int m_samples = 0;
};

} // namespace

RecordedDay recorded_day(std::int64_t end) {
    return Simulation(end).run();
}

} // namespace tickervantage
