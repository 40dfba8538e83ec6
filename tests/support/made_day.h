// A day of chronyd's logs and messages in which what happens is scripted, with the noise of a real clock around it.
#pragma once

#include "base/local_clock.h"
#include "studies/events/clock_event.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace tickervantage::testing {

struct MadeLogs {
    std::string tracking;
    std::string selection;
    std::string messages;
};

class MadeDay {
public:
    static constexpr std::int64_t poll = 64;             // s
    static constexpr std::int64_t midnight = 1795219200; // 2026-11-21 00:00:00 UTC
    [[nodiscard]] static constexpr std::int64_t at(int hours, int minutes = 0) {
        return midnight + hours * 3600 + minutes * 60;
    }

    // What the next records say.
    std::string source = "192.0.2.1";
    std::string liar;         // a source that disagrees
    double frequency = -12.3; // ppm
    char leap = 'N';

    [[nodiscard]] std::int64_t now() const { return m_now; }
    [[nodiscard]] const MadeLogs& logs() const { return m_logs; }

    // A record every poll, up to that moment.
    void run_to(std::int64_t end) {
        for (; m_now < end; m_now += poll)
            write_record();
    }

    // Nothing is written until then; or the clock is set there, also back.
    void pass_to(std::int64_t moment) { m_now = moment; }

    void lose_reference() { track("0.0.0.0", 0, 0.1, 0, '?', 0.02, 0.001); }

    // chronyd ends and comes back so much later, with a burst of quick measurements whose frequency is a guess.
    void restart(std::int64_t seconds) {
        say("chronyd exiting");
        m_now += seconds;
        say("chronyd version 4.3 starting (+CMDMON +NTP)");
        say(fmt::format("Frequency {:.3f} +/- 0.020 ppm read from /var/lib/chrony/chrony.drift", frequency));
        track("0.0.0.0", 0, 1e6, 0, '?', 1, 1);
        for (const double guess : {40.0, 9.0, -3.0, 0.5}) {
            m_now += 2;
            track(source, 3, std::abs(guess) * 3, guess, leap, 0.02, 0.001);
        }
        m_now += poll;
    }

    void say(const std::string& words) { m_logs.messages += fmt::format("{} {}\n", utc_stamp(m_now), words); }

private:
    void write_record() {
        track(source, 3, 0.02 + 0.005 * std::abs(normal()), 0.01 * normal(), leap, 0.02, 0.0005);
        for (const auto* one : {"192.0.2.1", "192.0.2.2", "192.0.2.3", "192.0.2.4"})
            select(one, one == liar ? 'x' : one == source ? '*' : '+');
    }

    // `guess`: what the frequency seems to be more, ppm.
    void track(const std::string& address, int stratum, double skew, double guess, char status, double root_delay,
               double root_dispersion) {
        add_banner(m_logs.tracking, m_tracked++,
                   "   Date (UTC) Time     IP Address   St   Freq ppm   Skew ppm     Offset L Co  Offset sd Rem. corr. "
                   "Root delay Root disp. Max. error");
        if (status == '?' && root_delay == 1)
            root_dispersion = 1;
        m_logs.tracking += fmt::format(
            "{} {:<15} {:2} {:10.3f} {:10.3f} {:10.3e} {} {:2} {:10.3e} {:10.3e} {:10.3e} {:10.3e} {:10.3e}\n",
            utc_date_time(m_now), address, stratum, frequency + guess, skew, 2e-5 * normal(), status,
            status == '?' ? 0 : 3, 1e-5 + 1e-6 * std::abs(normal()), 1e-6 * normal(), root_delay, root_dispersion,
            root_delay / 2 + root_dispersion);
    }

    void select(const std::string& address, char letter) {
        add_banner(m_logs.selection, m_selected++,
                   "   Date (UTC) Time     IP Address   S EOpts Reach Score Last sample  Low end   High end");
        m_logs.selection += fmt::format("{} {:<15} {} -----  377  1.00  {:9.3e} {:10.3e} {:10.3e}\n",
                                        utc_date_time(m_now), address, letter, 10 + normal(), -1e-3, 1e-3);
    }

    static void add_banner(std::string& log, int record, const char* heading) {
        constexpr int records_a_banner = 32;
        if (record % records_a_banner == 0)
            log += fmt::format("{0}\n{1}\n{0}\n", std::string(80, '='), heading);
    }

    double normal() { return m_normal(m_random); }

    MadeLogs m_logs;
    std::int64_t m_now = midnight;
    int m_tracked = 0;
    int m_selected = 0;
    std::mt19937 m_random{2026};
    std::normal_distribution<double> m_normal;
};

// What happens in it, in the order of time.
struct Scripted {
    std::int64_t time;
    EventKind kind;
    std::string source = {};
    std::optional<double> value = {};
};

inline std::vector<Scripted> scripted_day(MadeDay& day) {
    using enum EventKind;
    std::vector<Scripted> script;
    const auto expect = [&](EventKind kind, std::string source = {}, std::optional<double> value = {}) {
        script.push_back({day.now(), kind, std::move(source), value});
    };
    day.run_to(MadeDay::at(3));
    expect(lost, "192.0.2.1", 7200);
    day.lose_reference();
    day.pass_to(day.now() + 7200);
    expect(gap, {}, 7200);
    day.run_to(MadeDay::at(6));
    day.source = "192.0.2.2";
    expect(source, "192.0.2.2");
    day.run_to(MadeDay::at(8));
    expect(stop);
    day.pass_to(day.now() + 30);
    expect(start);
    expect(start); // the log tells it as well as the message
    day.pass_to(day.now() - 30);
    day.restart(30);
    day.run_to(MadeDay::at(11));
    day.liar = "192.0.2.4";
    expect(falseticker, "192.0.2.4");
    day.run_to(MadeDay::at(12));
    day.liar.clear();
    day.run_to(MadeDay::at(13));
    day.say("System clock was stepped by -0.734127 seconds");
    expect(step, {}, -0.734127);
    day.run_to(MadeDay::at(15));
    day.pass_to(MadeDay::at(16));
    expect(gap);
    day.run_to(MadeDay::at(18));
    day.pass_to(day.now() - 600);
    expect(backwards);
    day.run_to(MadeDay::at(20));
    day.frequency += 3;
    expect(frequency);
    day.run_to(MadeDay::at(22));
    day.leap = '+';
    expect(leap, {}, 1);
    day.run_to(MadeDay::at(24));
    std::ranges::stable_sort(script, {}, &Scripted::time);
    return script;
}

} // namespace tickervantage::testing
