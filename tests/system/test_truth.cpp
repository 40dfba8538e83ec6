// Real daemons on loopback, brought into every situation that a source or a clock can be in: what the program says of
// them is what was done to them.
#include "chrony/data/live_capture.h"
#include "chrony/reports/runchronyc.h"
#include "chrony/reports/tracking_report.h"
#include "chrony/truth/explain.h"
#include "chrony/truth/probe.h"
#include "chrony/truth/verdict.h"
#include "linux/posix_execute.h"
#include "linux/user_name.h"
#include "roothelper/client/no_privileged_channel.h"
#include "roothelper/client/privileged_actions.h"
#include "support/child_program.h"
#include "support/test.h"

namespace tickervantage {
namespace {

using testing::ChildProgram;

const std::string chronyd_program = "/usr/sbin/chronyd";
const std::string chronyc_program = "/usr/bin/chronyc";

// Each test process its own, so that two may run side by side.
const std::string port = std::to_string(20000 + ::getpid() % 20000);

std::string server(int number, const std::string& options = {}) {
    return "server 127.0.0." + std::to_string(number) + " port " + port + " minpoll -4 maxpoll -4 iburst " + options +
           '\n';
}

// Chronyds of the ordinary user that leave the clock alone, gone with the object.
class Daemons {
public:
    ChildProgram& start(const std::string& name, const std::string& configuration) {
        const std::string folder = m_home.path(name);
        mkdir(folder.c_str(), 0700);
        testing::write_file(folder + "/conf", configuration + "cmdport 0\nbindcmdaddress " + socket(name) +
                                                  "\npidfile " + folder + "/pid\n");
        return m_daemons.emplace_back(
            std::vector<std::string>{chronyd_program, "-x", "-U", "-u", user_name(), "-d", "-f", folder + "/conf"},
            m_home.environment, m_home.path());
    }

    ChildProgram& serve(int number, const std::string& configuration = "local stratum 5\n") {
        const std::string address = "127.0.0." + std::to_string(number);
        return start("server" + std::to_string(number),
                     configuration + "allow\nport " + port + "\nbindaddress " + address + '\n');
    }

    Capture ask(const std::string& name, const std::string& program = chronyc_program) {
        const Runchronyc chronyc(m_execute, m_actions, {.bundle = {}, .chronyc = program, .chronyd = {}}, false, false,
                                 {"-h", socket(name)});
        Capture capture = read_capture(chronyc, CaptureDepth::with_root);
        capture.configuration = read_configuration(m_home.path(name + "/conf"));
        m_text = chronyc.run("tracking").output;
        return capture;
    }

    // By somebody who may not reach the daemon's socket.
    Capture ask_from_outside(const std::string& name) {
        const std::string program = m_home.path("chronyc");
        const std::string as_nobody =
            ::geteuid() == 0 ? "/usr/bin/setpriv --reuid 65534 --regid 65534 --clear-groups " : "";
        testing::write_file(program, "#!/bin/sh\nexec " + as_nobody + chronyc_program + " \"$@\"\n", 0700);
        ::chmod(m_home.path(name).c_str(), 0);
        Capture capture = ask(name, program);
        ::chmod(m_home.path(name).c_str(), 0700);
        return capture;
    }

    [[nodiscard]] const std::string& tracking_text() const { return m_text; }
    [[nodiscard]] static std::string user_name() { return tickervantage::user_name(::geteuid()); }
    PosixExecute& execute() { return m_execute; }

private:
    [[nodiscard]] std::string socket(const std::string& name) const { return m_home.path(name + "/s"); }

    testing::PrivateHome m_home;
    PosixExecute m_execute;
    NoPrivilegedChannel m_channel;
    PrivilegedActions m_actions{m_channel};
    std::deque<ChildProgram> m_daemons;
    std::string m_text;
};

struct Situation {
    std::string name;
    std::string configuration;
    std::map<std::string, std::string> rules; // expected, by source
    std::string verdict;
};

const std::string one_of_them = "one of them";

std::string host(int number) {
    return "127.0.0." + std::to_string(number);
}

std::vector<Situation> situations() {
    const std::string wrong = "offset 0.5";
    return {
        {"followed", server(1), {{host(1), "best"}}, "synchronised"},
        {"noselect", server(1) + server(2, "noselect"), {{host(2), "noselect"}}, "synchronised"},
        {"unsynchronised", server(5), {{host(5), "unsynchronised"}}, "unsynchronised"},
        {"unanswered", server(9), {{host(9), "unanswered"}}, "unsynchronised"},
        {"distant", server(1) + "maxdistance 1e-9\n", {{host(1), "distant"}}, "unsynchronised"},
        {"jittery", server(1) + "maxjitter 1e-12\n", {{host(1), "jittery"}}, "unsynchronised"},
        {"orphan", server(1) + "local stratum 5 orphan\n", {{host(1), "orphan"}}, "local"},
        {"trust", server(1, "trust") + server(2, wrong), {{host(1), "best"}, {host(2), "falseticker"}}, "synchronised"},
        {"trusted-few",
         server(1, "trust") + server(2, "trust") + server(3, wrong) + server(4, wrong) + server(7, wrong),
         {{host(3), "falseticker"}, {host(4), "falseticker"}, {host(7), "falseticker"}},
         "synchronised"},
        {"falseticker",
         server(1) + server(2) + server(3) + server(4, wrong),
         {{host(4), "falseticker"}},
         "synchronised"},
        {"no-majority",
         server(1) + server(2, wrong),
         {{host(1), "no_majority"}, {host(2), "no_majority"}},
         "unsynchronised"},
        {"minsources",
         server(1) + server(2) + "minsources 3\n",
         {{host(1), "required"}, {host(2), "required"}},
         "unsynchronised"},
        {"require",
         server(1) + server(9, "require"),
         {{host(1), "required"}, {host(9), "unanswered"}},
         "unsynchronised"},
        {"prefer", server(1, "prefer") + server(2), {{host(1), "best"}, {host(2), "not_preferred"}}, "synchronised"},
        // Which of the two is the best is decided by nanoseconds.
        {"combinelimit", server(1) + server(2) + "combinelimit 0\n", {{one_of_them, "not_combined"}}, "synchronised"},
        {"no-name", "server nosuch.invalid iburst\n", {{"ID#0000000001", "unresolved"}}, "unsynchronised"},
        {"own-clock", "local stratum 5\n", {}, "local"}};
}

// What differs from what was done to it; empty: nothing.
std::string differences(const Situation& situation, const Capture& capture) {
    const ChronyReports reports = reports_in(capture);
    std::string text =
        name_of(judge(reports)) == situation.verdict ? "" : "verdict " + std::string(name_of(judge(reports))) + "; ";
    std::map<std::string, std::string> found;
    for (const auto& explanation : explain(reports, capture.configuration))
        found[explanation.source] = name_of(explanation.rule);
    const auto anywhere = [&found](const std::string& rule) {
        return std::ranges::any_of(found, [&rule](const auto& one) { return one.second == rule; });
    };
    for (const auto& [source, rule] : situation.rules)
        if (source == one_of_them ? !anywhere(rule) : found[source] != rule)
            text += source + ' ' + found[source] + "; ";
    return text;
}

class Truth : public ::testing::Test {
protected:
    void SetUp() override {
        if (access(chronyd_program.c_str(), X_OK) != 0 || access(chronyc_program.c_str(), X_OK) != 0)
            GTEST_SKIP() << "chrony is not installed";
    }
    Daemons daemons;
};

TEST_F(Truth, NamesWhatWasDoneToEverySource) {
    constexpr std::chrono::seconds patience{30};
    for (const int number : {1, 2, 3, 4, 7})
        (void)daemons.serve(number);
    (void)daemons.serve(5, "");
    ChildProgram& victim = daemons.serve(6);
    const auto all = situations();
    for (const Situation& situation : all)
        (void)daemons.start(situation.name, situation.configuration);
    (void)daemons.start("killed", server(6));

    for (const Situation& situation : all) {
        std::string wrong;
        EXPECT_TRUE(testing::eventually(patience,
                                        [&] {
                                            wrong = differences(situation, daemons.ask(situation.name));
                                            return wrong.empty();
                                        }))
            << situation.name << ": " << wrong;
    }
    const Situation running{"killed", {}, {{host(6), "best"}}, "synchronised"};
    const Situation killed{"killed", {}, {{host(6), "unreachable"}}, "holdover"};
    EXPECT_TRUE(testing::eventually(patience, [&] { return differences(running, daemons.ask("killed")).empty(); }));
    victim.signal(SIGKILL);
    std::string wrong;
    EXPECT_TRUE(testing::eventually(patience, [&] {
        wrong = differences(killed, daemons.ask("killed"));
        return wrong.empty();
    })) << wrong;
    EXPECT_EQ(judge(reports_in(daemons.ask("nobody"))), Verdict::unavailable);
}

TEST_F(Truth, ASocketThatMayNotBeReachedTellsNothingOfTheClock) {
    (void)daemons.start("client", "local stratum 5\n");
    ASSERT_TRUE(testing::eventually(std::chrono::seconds(20),
                                    [&] { return judge(reports_in(daemons.ask("client"))) == Verdict::local; }));
    const ChronyReports reports = reports_in(daemons.ask_from_outside("client"));
    EXPECT_EQ(judge(reports), Verdict::unavailable);
    EXPECT_FALSE(error_budget(reports));
    EXPECT_FALSE(reports.refusal.empty());
    EXPECT_EQ(judge(reports_in(daemons.ask("client"))), Verdict::local) << "it was there all the time";
}

// As far as two readings, one after the other, can.
bool agree(const TrackingData& one, const TrackingData& other) {
    using Pair = std::tuple<std::optional<double>, std::optional<double>, double>;
    const std::array<Pair, 9> pairs{{{one.reference_time, other.reference_time, 1.5}, // the text has whole seconds
                                     {one.system_time, other.system_time, 1e-5},
                                     {one.rms_offset, other.rms_offset, 1e-5},
                                     {one.frequency_ppm, other.frequency_ppm, 0.5},
                                     {one.residual_frequency_ppm, other.residual_frequency_ppm, 0.5},
                                     {one.skew_ppm, other.skew_ppm, 0.5},
                                     {one.root_delay, other.root_delay, 1e-5},
                                     {one.root_dispersion, other.root_dispersion, 1e-5},
                                     {one.update_interval, other.update_interval, 0.1}}};
    const auto is_near = [](const Pair& pair) {
        const auto& [text, data, apart] = pair;
        return text && data && std::abs(*text - *data) < apart;
    };
    return one.reference_id == other.reference_id && one.stratum == other.stratum && one.address == other.address &&
           one.leap_status == other.leap_status && std::ranges::all_of(pairs, is_near);
}

// One daemon, both forms of the report: rounded alike, they say the same.
TEST_F(Truth, BothFormsOfTheTrackingReportAgree) {
    (void)daemons.serve(1);
    (void)daemons.start("client", server(1, "offset 0.5"));
    Capture capture;
    ASSERT_TRUE(testing::eventually(std::chrono::seconds(20), [&] {
        capture = daemons.ask("client");
        const ChronyReports now = reports_in(capture);
        const auto text = tracking_in_text(daemons.tracking_text());
        return judge(now) == Verdict::correcting && text && agree(*text, *now.tracking); // once it has settled
    }));
    const ChronyReports reports = reports_in(capture);
    const TrackingReport text = parse_tracking(daemons.tracking_text());
    const auto record = tracking_in_text(daemons.tracking_text());
    ASSERT_TRUE(record);
    EXPECT_TRUE(agree(*record, *reports.tracking)) << daemons.tracking_text();
    ChronyReports of_text;
    of_text.tracking = record;
    EXPECT_EQ(judge(of_text), judge(reports));
    const TrackingData& data = *reports.tracking;
    constexpr double while_it_slews = 1e-5; // between the two runs
    EXPECT_NEAR(data.system_time.value_or(9), text.systemtime, while_it_slews);
    EXPECT_LT(data.system_time.value_or(9), -0.4) << "behind the server";
    EXPECT_NEAR(data.root_delay.value_or(9), text.rootdelay, while_it_slews);
    EXPECT_NEAR(data.root_dispersion.value_or(9), text.rootdispersion, while_it_slews);
    EXPECT_NEAR(data.rms_offset.value_or(9), text.rmsoffset, while_it_slews);
    EXPECT_EQ(data.leap_status, text.leapstatus);
    EXPECT_EQ(std::signbit(data.frequency_ppm.value_or(9)), std::signbit(text.frequency));
    EXPECT_NEAR(data.frequency_ppm.value_or(9), text.frequency, 0.5);
    EXPECT_EQ(reports.steers, false) << "-x";
    const auto explanations = explain(reports, capture.configuration);
    ASSERT_EQ(explanations.size(), 1U);
    ASSERT_TRUE(explanations[0].line);
    EXPECT_EQ(explanations[0].line->line, 1);
}

TEST_F(Truth, ProbeMeasuresOnceAndNeverTouchesTheClock) {
    (void)daemons.serve(1);
    ProbeRequest request{
        .host = host(1), .port = std::stoi(port), .chronyd = chronyd_program, .user = Daemons::user_name()};
    ProbeAnswer answer;
    EXPECT_TRUE(testing::eventually(std::chrono::seconds(20), [&] {
        answer = probe(daemons.execute(), request);
        return answer.offset.has_value();
    }));
    EXPECT_NEAR(answer.offset.value_or(1), 0, 0.1);
    EXPECT_FALSE(answer.failure);
    request.host = host(9);
    request.time_limit = 1;
    const ProbeAnswer silent = probe(daemons.execute(), request);
    EXPECT_FALSE(silent.offset);
    ASSERT_TRUE(silent.failure);
    EXPECT_EQ(english(*silent.failure), "127.0.0.9 gave no answer.");
    for (const char* hostile : {"", "a b", "127.0.0.1 port 123\nallow", "a\"b", "#a"}) {
        request.host = hostile;
        EXPECT_TRUE(probe(daemons.execute(), request).failure) << hostile;
    }
}

} // namespace
} // namespace tickervantage
