#include "base/text_lines.h"
#include "chrony/data/live_capture.h"
#include "chrony/data/records.h"
#include "chrony/reports/runchronyc.h"
#include "chrony/reports/tracking_report.h"
#include "chrony/status/refresh.h"
#include "roothelper/client/privileged_actions.h"
#include "support/chrony_reports.h"
#include "support/fake_privileged_channel.h"
#include "support/scripted_execute.h"
#include "support/test.h"
#include "support/tracking_text.h"

namespace tickervantage {
namespace {

using testing::tracking_text;

TEST(TrackingReport, ReadsEveryFieldWithItsSign) {
    const auto report = parse_tracking(tracking_text());
    EXPECT_EQ(report.frequency, -12.345);
    EXPECT_EQ(report.systemtime, -0.000000806);
    EXPECT_EQ(report.lastoffset, -0.000000032);
    EXPECT_EQ(report.rmsoffset, 0.000001125);
    EXPECT_EQ(report.rootdelay, 0.000005637);
    EXPECT_EQ(report.rootdispersion, 0.000001995);
    EXPECT_EQ(report.leapstatus, "Normal");
}

TEST(TrackingReport, SignFollowsTheWords) {
    struct Case {
        const char* text;
        double frequency;
        double systemtime;
    };
    for (const auto& [text, frequency, systemtime] :
         {Case{"Frequency : 1.5 ppm fast\nSystem time : 0.25 seconds fast of NTP time", 1.5, 0.25},
          Case{"Frequency : 1.5 ppm slow\nSystem time : 0.25 seconds slow of NTP time", -1.5, -0.25},
          Case{"Frequency : 1.5 ppm\nSystem time : 0.25 seconds", -1.5, 0.25},
          Case{"Frequency : -1.5 ppm slow\nSystem time : +0.25 seconds", 1.5, 0.25},
          Case{"Frequency : 0.000 ppm slow\nSystem time : 0.0 seconds slow", 0, 0}}) {
        const auto report = parse_tracking(text);
        EXPECT_EQ(report.frequency, frequency) << text;
        EXPECT_EQ(report.systemtime, systemtime) << text;
        EXPECT_FALSE(std::signbit(report.frequency) && frequency == 0) << text;
    }
}

TEST(TrackingReport, WhatIsMissingOrNoNumberIsZero) {
    for (const char* text : {"", "506 Cannot talk to daemon\n", "Last offset", "Last offset :", "Last offset : none",
                             "Last offset : nan", "Last offset : inf seconds", ": 5", "Last offset : 1e999"}) {
        const auto report = parse_tracking(text);
        EXPECT_EQ(report.lastoffset, 0) << text;
        EXPECT_EQ(report.leapstatus, "") << text;
    }
}

TEST(TrackingReport, KeyEndsAtTheFirstColonAndTheLastLineCounts) {
    const auto report = parse_tracking("Leap status : a: b\r\n\n\n  Last offset:1e-3x\nLast offset\t:  2.5e-3 s\n");
    EXPECT_EQ(report.leapstatus, "a: b");
    EXPECT_EQ(report.lastoffset, 2.5e-3);
}

TEST(TrackingReport, AsARecordLacksWhatTheTextLacks) {
    const auto whole = tracking_in_text(tracking_text());
    ASSERT_TRUE(whole);
    EXPECT_EQ(whole->reference_id, 0x7F000001U);
    EXPECT_EQ(whole->address, "127.0.0.1");
    EXPECT_EQ(whole->stratum, 6);
    EXPECT_EQ(whole->reference_time, 1795238432.0); // date -ud '2026-11-21 05:20:32' +%s
    EXPECT_EQ(whole->system_time, -0.000000806);
    EXPECT_EQ(whole->residual_frequency_ppm, -0.001);
    EXPECT_EQ(whole->skew_ppm, 0.128);
    EXPECT_EQ(whole->frequency_ppm, -12.345);
    const auto poor = tracking_in_text("Leap status : Normal\nRoot delay : none\nReference ID : ()\n");
    ASSERT_TRUE(poor);
    EXPECT_FALSE(poor->reference_id || poor->stratum || poor->reference_time || poor->system_time || poor->root_delay);
    EXPECT_FALSE(tracking_in_text("506 Cannot talk to daemon\n"));
    for (const char* time : {"Sat Nov 31 05:20:32 2026", "Sat Nov 21 24:20:32 2026", "Thu Jan 01 00:00:00 1970", "-1"})
        EXPECT_FALSE(tracking_in_text("Leap status : Normal\nRef time (UTC) : " + std::string(time))->reference_time)
            << time;
}

TEST(TextLines, WordsAndLinesSkipWhatIsEmpty) {
    EXPECT_EQ(trimmed(" \t a b \r\n"), "a b");
    EXPECT_EQ(trimmed("\n"), "");
    EXPECT_EQ(non_empty_lines("\n\na\n\nb").size(), 2U);
    EXPECT_EQ(first_words("  chronyc (chrony)\tversion 4.3 (+X)\n", 4), "chronyc (chrony) version 4.3");
    EXPECT_EQ(first_words("one", 4), "one");
}

struct RunnerTest : ::testing::Test {
    testing::ScriptedExecute execute;
    testing::FakePrivilegedChannel channel;
    PrivilegedActions actions{channel};
    ChronyPrograms programs{"/no/such/Bundle.app", "/bin/true", "/no/such/chronyd"};

    Runchronyc runner(bool resolv, bool original, std::vector<std::string> extra = {}) {
        return {execute, actions, programs, resolv, original, std::move(extra)};
    }
};

TEST(Report, IsWhatIsNoRefusalOfThreeDigits) {
    for (const auto& [text, expected] : {std::pair{"506 Cannot talk to daemon\n", false},
                                         {"5th of May\n", true},
                                         {"50: x\n", true},
                                         {"5x6 x\n", true},
                                         {"210 sources\n", true},
                                         {"506", true},
                                         {" \n", false},
                                         {"", false}})
        EXPECT_EQ(is_report(text), expected) << text;
}

TEST_F(RunnerTest, OptionsComeBeforeTheCommandWhichIsOneArgument) {
    (void)runner(true, false).run("sources -v");
    (void)runner(false, true).run("tracking");
    (void)runner(false, false, {"-h", "/a socket"}).run("manual list");
    EXPECT_EQ(execute.calls,
              (std::vector<std::string>{"true|sources -v", "true|-n|-N|tracking", "true|-n|-h|/a socket|manual list"}));
}

TEST_F(RunnerTest, MissingProgramFallsBackToTheBundle) {
    EXPECT_EQ(choose_program("/bin/true", programs, bundle_chronyc), "/bin/true");
    for (const char* path : {"", "/no/such/chronyc", "/bin/true/below a file"})
        EXPECT_EQ(choose_program(path, programs, bundle_chronyc), "/no/such/Bundle.app/Contents/MacOS/chronyc");
    execute.answer("chronyd", "chronyd (chrony) version 4.3 (+CMDMON)\n");
    EXPECT_EQ(version_query(execute, programs, bundle_chronyd).output, "chronyd (chrony) version 4.3 (+CMDMON)\n");
    EXPECT_EQ(execute.calls, std::vector<std::string>{"chronyd|-n|-v"});
}

TEST_F(RunnerTest, UnknownProgramIsNotRunForItsVersion) {
    EXPECT_EQ(version_query(execute, programs, "/bin/sh").output, "Unknown program: /bin/sh");
    EXPECT_TRUE(execute.calls.empty());
}

TEST_F(RunnerTest, PrivilegedRunIsOneShellLineAndEmptyWithoutTheHelper) {
    programs.chronyc = "/usr/local/bin/chronyc";
    channel.reply = "report";
    const auto one = runner(true, false);
    EXPECT_EQ(one.run_privileged(false, false, "ntpdata", "192.0.2.1"), "");
    EXPECT_TRUE(channel.commands.empty());
    ASSERT_TRUE(actions.blessHelper());
    EXPECT_EQ(one.run_privileged(false, false, "ntpdata", "192.0.2.1"), "report");
    (void)one.run_privileged(true, true, "clients", "");
    (void)one.run_privileged(false, true, "authdata -a", "");
    EXPECT_EQ(channel.commands,
              (std::vector<std::string>{"/bin/sh -c '/usr/local/bin/chronyc -n  ntpdata 192.0.2.1' 2>&1",
                                        "/bin/sh -c '/usr/local/bin/chronyc -N clients' 2>&1",
                                        "/bin/sh -c '/usr/local/bin/chronyc -n  -N authdata -a' 2>&1"}));
    EXPECT_TRUE(execute.calls.empty());
}

TEST_F(RunnerTest, ADaemonOfTheUsersOwnTellsWhatOthersTellRootAlone) {
    execute.answer("true", "report");
    EXPECT_EQ(runner(true, false, {"-h", "/a socket"}).run_privileged(false, true, "ntpdata", "192.0.2.1"), "report");
    EXPECT_EQ(execute.calls, std::vector<std::string>{"true|-h|/a socket|-n|-N|ntpdata 192.0.2.1"});
    EXPECT_TRUE(channel.commands.empty());
}

TEST_F(RunnerTest, RootsDataComeThroughTheHelperWhereItIsReady) {
    execute.answer("true", "501 Not authorised\n", 1);
    execute.answer("true activity", testing::TrackingLine().text()); // the last word of the open reports
    const auto asked = [this](std::vector<std::string> extra = {}) {
        return read_capture(runner(false, false, std::move(extra)), CaptureDepth::with_root).reports;
    };
    EXPECT_EQ(asked()["selectdata"].refusal, "501 Not authorised");
    EXPECT_TRUE(channel.commands.empty());
    ASSERT_TRUE(actions.blessHelper());
    channel.reply = "192.0.2.1,NTS,1,15,256,3600,0,0,8,100\n501 Not authorised\n";
    channel.failing = {"-c"}; // chronyc's exit status says that it refused something
    channel.failure = said_by_others("192.0.2.1,NTS,1,15,256,3600,0,0,8,100");
    auto reports = asked();
    EXPECT_EQ(channel.commands, std::vector<std::string>{"/bin/sh -c '/bin/true -n -c -m \"selectdata -a\" \"authdata "
                                                         "-a\" ntpdata serverstats' 2>&1"});
    EXPECT_TRUE(reports["selectdata"].text.empty() && reports["selectdata"].refusal.empty()) << "no source";
    EXPECT_EQ(reports["authdata"].text, "192.0.2.1,NTS,1,15,256,3600,0,0,8,100\n");
    EXPECT_EQ(reports["ntpdata"].refusal, "501 Not authorised");
    EXPECT_FALSE(reports.contains("serverstats"));
    channel.reply = "This is no report of chronyc that the helper runs.";
    channel.failure = failed(FailureCode::no_report).value();
    reports = asked();
    EXPECT_EQ(reports["selectdata"].refusal, channel.reply) << "the helper's words, not a report's line";
    EXPECT_TRUE(reports["selectdata"].text.empty());
    (void)asked({"-h", "/a socket"});
    EXPECT_EQ(channel.commands.size(), 2U) << "the helper asks the machine's own daemon";
}

} // namespace
} // namespace tickervantage
