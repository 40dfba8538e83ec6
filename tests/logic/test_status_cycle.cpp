#include "base/failure_codes.h"
#include "chrony/reports/current_frequency.h"
#include "chrony/status/status_cycle.h"
#include "support/child_program.h"
#include "support/fake_main_window_parts.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tickervantage {
namespace {

using testing::tracking_text;

class FakeDisplay : public StatusDisplay {
public:
    int clock_redraws = 0;
    std::string meter_value;
    std::vector<chronydStatus> states;
    std::shared_ptr<const ClockTruth> truth;
    std::shared_ptr<const ClockTruth> watched;
    bool not_adjusted = false;
    std::string version_labels;
    bool original_offered = true;
    bool server_field = true;
    std::vector<std::string> servers;
    std::string server;
    std::string output;
    StatusNotice notice;
    bool gpsd = false;
    int asked_for_rights = 0; // times
    std::string stopped;

    void redraw_clock() override { ++clock_redraws; }
    void redraw_meter() override {}
    void show_meter_value(const std::string& text) override { meter_value = text; }
    void show_status(chronydStatus status) override { states.push_back(status); }
    void show_truth(std::shared_ptr<const ClockTruth> shown) override { truth = std::move(shown); }
    void watch_truth(std::shared_ptr<const ClockTruth> own) override { watched = std::move(own); }
    void show_clock_not_adjusted(bool shown) override { not_adjusted = shown; }
    void show_versions(const ProgramVersion& chronyc, const ProgramVersion& chronyd) override {
        const auto words = [](const ProgramVersion& version) {
            return version.label + (version.failure ? english(*version.failure) : std::string());
        };
        version_labels = words(chronyc) + "; " + words(chronyd);
    }
    void show_original_name_choice(bool offered) override { original_offered = offered; }
    void show_server_field(bool shown) override { server_field = shown; }
    void show_servers(const std::vector<std::string>& names, const std::string& current) override {
        servers = names;
        server = current;
    }
    void show_output(const std::string& text) override { output = text; }
    void show_notice(const StatusNotice& shown) override { notice = shown; }
    void enable_gpsd_item(bool enabled) override { gpsd = enabled; }
    void ask_for_rights() override { ++asked_for_rights; }
    void stop_program(const std::string& error) override { stopped = error; }
    void stop_for_version(const std::string& program, const std::string& answer) override {
        stopped = program + ": " + answer;
    }
};

struct StatusCycleTest : ::testing::Test, testing::FakeMainWindowParts {
    FakeDisplay display;
    std::unique_ptr<StatusCycle> cycle;

    void load() {
        cycle = std::make_unique<StatusCycle>(display, parts(), options());
        cycle->load();
        settle();
    }

    [[nodiscard]] long calls(const std::string& call) const { return std::ranges::count(execute.calls, call); }
};

TEST_F(StatusCycleTest, FirstReadingFillsTheWindow) {
    gpsd_found = true;
    execute.answer("chronyd -v", "chronyd (chrony) version 4.4 (+CMDMON)\n");
    load();
    EXPECT_EQ(display.states, (std::vector{chronydStatus::unavailable, chronydStatus::synchronised}));
    EXPECT_EQ(display.meter_value, "-32.000 ns");
    EXPECT_EQ(display.output, tracking_text());
    EXPECT_EQ(display.version_labels, "chronyc (chrony) version 4.3; chronyd (chrony) version 4.4");
    EXPECT_FALSE(display.not_adjusted);
    EXPECT_FALSE(display.server_field);
    EXPECT_TRUE(display.gpsd);
    EXPECT_EQ(display.notice, StatusNotice{});
    EXPECT_EQ(timer.find("updatetimer")->interval(), 10);
}

TEST_F(StatusCycleTest, LeapStatusDecidesTheState) {
    struct Case {
        const char* leap;
        chronydStatus expected;
        const char* meter;
    };
    load();
    for (const auto& [leap, expected, meter] : {
             Case{"Normal", chronydStatus::synchronised, "-32.000 ns"},
             Case{"Not synchronised", chronydStatus::notlocked, "-32.000 ns"},
             Case{"Insert second", chronydStatus::notlocked, "-32.000 ns"},
             Case{"Delete second", chronydStatus::unavailable, "0.000 ns"},
             Case{"normal", chronydStatus::unavailable, "0.000 ns"},
         }) {
        report(leap);
        timer.advance(10);
        settle();
        EXPECT_EQ(display.states.back(), expected) << leap;
        EXPECT_EQ(display.meter_value, meter) << leap;
    }
}

TEST_F(StatusCycleTest, MeterShowsTheChosenQuantity) {
    struct Case {
        meterView view;
        const char* text;
        double handed_over;
    };
    load();
    for (const auto& [view, text, handed_over] : {
             Case{meterView::systemtime, "-0.806 µs", -806},
             Case{meterView::lastoffset, "-32.000 ns", -32},
             Case{meterView::rmsoffset, "1.125 µs", 1125},
             Case{meterView::rootdelay, "5.637 µs", 5637},
             Case{meterView::rootdispersion, "1.995 µs", 1995},
             Case{meterView::frequency, "-12.345 µs/s", -12345},
         }) {
        cycle->selectMeter(static_cast<int>(view));
        settle();
        EXPECT_EQ(display.meter_value, text);
        EXPECT_NEAR(cycle->meter().value(), handed_over, 1e-6);
    }
    cycle->selectMeter(6);
    EXPECT_FALSE(display.stopped.empty());
}

TEST_F(StatusCycleTest, FrequencyIsBroadcastAfterEveryReading) {
    std::vector<double> heard;
    broadcast.AddListener(current_frequency_key, "test", [&](std::string_view, const std::any& object) {
        heard.push_back(std::any_cast<current_frequency>(object).freq);
    });
    load();
    timer.advance(10);
    settle();
    EXPECT_EQ(heard, (std::vector{-12.345, -12.345}));
}

const std::string data_run = "chronyc|-n|-c|-m|tracking|sources -a|sourcestats -a|activity";

TEST_F(StatusCycleTest, OneRunBringsTheDataAndOneMoreTheReportShown) {
    load();
    EXPECT_EQ(calls(data_run), 1);
    EXPECT_EQ(calls("chronyc|tracking"), 1);
    execute.answer("chronyc sources -v", "a table\n");
    execute.calls.clear();
    cycle->chronycCommand("sources -v");
    settle();
    EXPECT_EQ(display.output, "a table\n");
    EXPECT_EQ(execute.calls, (std::vector<std::string>{data_run, "chronyc|sources -v"}));
    EXPECT_EQ(display.states.back(), chronydStatus::synchronised);
}

// Another chronyc may print other columns: its text is the same for years.
TEST_F(StatusCycleTest, TextTellsTheStateWhereTheDataCannotBeRead) {
    execute.answer("chronyc -m", "7F000001,127.0.0.1,6,a column too few\n");
    execute.answer("chronyc sources", "a table\n");
    for (const char* command : {"tracking", "sources"}) {
        store.values = {{"chronyc_command", {command}}};
        load();
        EXPECT_EQ(display.states.back(), chronydStatus::synchronised) << command;
        EXPECT_EQ(display.truth->verdict, Verdict::synchronised) << command;
        EXPECT_EQ(display.meter_value, "-32.000 ns") << command;
        EXPECT_EQ(display.notice.kind, StatusNotice::Kind::report_incomplete) << command;
    }
}

const std::string silent_source = "^,?,192.0.2.1,2,6,0,900,0.000050000,0.000060000,0.000150000\n";

TEST_F(StatusCycleTest, VerdictStandsAboveTheStateThatChronydNames) {
    report("Normal", silent_source);
    load();
    EXPECT_EQ(display.states.back(), chronydStatus::synchronised);
    EXPECT_EQ(display.truth->verdict, Verdict::holdover);
    ASSERT_EQ(display.truth->explanations.size(), 1U);
    EXPECT_EQ(display.truth->explanations[0].rule, SelectionRule::unreachable);
}

TEST_F(StatusCycleTest, NamesOfSourcesAreAskedForWhenTheSourcesHaveChanged) {
    const std::string names_run = "chronyc|-N|-c|-m|sources -a";
    report("Normal", silent_source);
    load();
    const auto asked = [&] {
        return std::ranges::count(execute.calls, names_run);
    };
    for (int i = 0; i < 3; ++i) {
        timer.advance(10);
        settle();
    }
    EXPECT_EQ(asked(), 1);
    report("Normal", "^,*,192.0.2.7,2,6,377,9,0.000050000,0.000060000,0.000150000\n");
    timer.advance(10);
    settle();
    EXPECT_EQ(asked(), 2);
}

TEST_F(StatusCycleTest, ReportsThatNeedRootRefineTheVerdictOnEachSource) {
    report("Normal", "^,-,192.0.2.1,2,6,377,9,0.000050000,0.000060000,0.000150000\n");
    load();
    const auto rule = [this] {
        return display.truth->explanations.at(0).rule;
    };
    EXPECT_EQ(rule(), SelectionRule::not_combined);
    cycle->want_root_reports();
    settle();
    EXPECT_EQ(display.asked_for_rights, 1);
    ASSERT_TRUE(actions->blessHelper());
    channel.reply = "x,192.0.2.1,N,-,-,-,-,-,-,-,-,-,-,9,1.0,-0.000100000,0.000200000,Normal\n";
    cycle->refresh(); // as who asked for the rights does
    settle();
    EXPECT_EQ(rule(), SelectionRule::no_majority);
    EXPECT_TRUE(display.truth->sources[0].selection);
    timer.advance(10);
    settle();
    EXPECT_EQ(channel.commands.size(), 2U) << "with each reading";
    EXPECT_EQ(display.asked_for_rights, 1);
}

TEST_F(StatusCycleTest, MeterShowsTheErrorBoundOrNothing) {
    load();
    cycle->show_error_bound();
    settle();
    EXPECT_NEAR(cycle->meter().value(), 806 + 5637.0 / 2 + 1995, 1e-6);
    EXPECT_TRUE(MainWindowSettings::load(settings).meter_error_bound);
    execute.answer("chronyc -m", testing::tracking_line("Normal", "0.000", "7F7F0101"));
    cycle->refresh();
    settle();
    EXPECT_EQ(display.meter_value, "–") << "nothing vouches for a clock that follows itself";
    cycle->selectMeter(2);
    settle();
    EXPECT_EQ(display.meter_value, "1.125 µs");
    EXPECT_FALSE(MainWindowSettings::load(settings).meter_error_bound);
}

TEST_F(StatusCycleTest, VersionTextNeedsNoRun) {
    load();
    cycle->chronycCommand("version");
    settle();
    EXPECT_TRUE(display.output.starts_with("chronyd (chrony) version 4.3 (+CMDMON)\n\nchronyc (chrony) version 4.3"));
    EXPECT_TRUE(display.output.ends_with("\nnettle-3.9\nlibtasn1-4.19.0"));
    EXPECT_EQ(calls("chronyc|version"), 0);
}

TEST_F(StatusCycleTest, PrivilegedReportsComeThroughTheHelperOrStayEmpty) {
    load();
    for (const char* command : {"authdata", "ntpdata", "selectdata", "clients", "serverstats"}) {
        cycle->chronycCommand(command);
        settle();
        EXPECT_EQ(display.output, "") << command;
        EXPECT_EQ(display.notice, (StatusNotice{StatusNotice::Kind::needs_helper, command}));
        EXPECT_EQ(calls(std::string("chronyc|") + command), 0);
    }
    cycle->refresh();
    settle();
    EXPECT_EQ(display.asked_for_rights, 5) << "once for each that was chosen, not with every reading";
    ASSERT_TRUE(actions->blessHelper());
    channel.reply = "as root";
    cycle->chronycCommand("authdata");
    settle();
    EXPECT_EQ(display.output, "as root");
    EXPECT_EQ(channel.commands, std::vector<std::string>{"/bin/sh -c ' authdata -a' 2>&1"});
    EXPECT_EQ(display.notice, StatusNotice{});
}

// The helper answers late: its line is long, or somebody is to type a password.
TEST_F(StatusCycleTest, ReadingsDoNotWaitForTheRootHelper) {
    load();
    ASSERT_TRUE(actions->blessHelper());
    channel.reply = "as root";
    cycle->chronycCommand("clients");
    for (const auto& [leap, state] :
         {std::pair{"Not synchronised", chronydStatus::notlocked}, {"Normal", chronydStatus::synchronised}}) {
        report(leap);
        timer.advance(10);
        while (queue.turn() || main_thread.turn()) {
        }
        EXPECT_EQ(display.states.back(), state);
        EXPECT_EQ(reports.waiting(), 1U) << "one report at a time";
    }
    cycle->chronycCommand("selectdata");
    settle();
    EXPECT_EQ(channel.commands,
              (std::vector<std::string>{"/bin/sh -c ' clients' 2>&1", "/bin/sh -c ' selectdata' 2>&1"}));
    EXPECT_EQ(display.output, "as root");

    cycle->chronycCommand("tracking");
    settle();
    channel.reply = words_of(FailureCode::authorisation_lapsed);
    cycle->chronycCommand("clients");
    settle();
    EXPECT_EQ(display.output, "");
    EXPECT_EQ(display.notice, (StatusNotice{StatusNotice::Kind::needs_helper, "clients"}));

    cycle->close(); // saying farewell waits for the helper, too
    EXPECT_EQ(queue.waiting(), 0U);
}

TEST_F(StatusCycleTest, NtpdataListsTheServersOfEitherHeading) {
    execute.answer("chronyc sourcestats", "Name/IP Address  NP\n=====\nb.example  5 3\na.example  1 2\n");
    store.values = {{"chronyc_command", {"ntpdata"}}, {"ntpdata_server", {"b.example"}}};
    load();
    EXPECT_TRUE(display.server_field);
    EXPECT_EQ(display.servers, (std::vector<std::string>{"a.example", "b.example"}));
    EXPECT_EQ(display.server, "b.example");

    execute.answer("chronyc sourcestats", "210 Number of sources = 1\nName/IP Address  NP\n=====\nc.example  5\n");
    cycle->chronycCommand("ntpdata");
    settle();
    EXPECT_EQ(display.servers, std::vector<std::string>{"c.example"});
    EXPECT_EQ(display.server, "");

    execute.answer("chronyc sourcestats", "Name/IP Address  NP\n=====\n");
    cycle->chronycCommand("ntpdata");
    settle();
    EXPECT_EQ(display.servers, std::vector<std::string>{"c.example"});
}

// Reports with cut names are read as values too, whose lines are the same.
TEST(ServerNames, CutNamesAreTakenFromTheValues) {
    const std::string table = "Name/IP Address\n=====\nz.example  5\na-server-with-a-very-lon>  5\n203.0.113.1  4\n";
    const std::string values = "z,5\n192.0.2.7,5\n203.0.113.1,4\n";
    using Names = std::vector<std::string>;
    EXPECT_TRUE(has_cut_names(table));
    EXPECT_EQ(server_names(table, values), (Names{"192.0.2.7", "203.0.113.1", "z.example"}));
    EXPECT_EQ(server_names(table, "506 Cannot talk to daemon\n"),
              (Names{"203.0.113.1", "a-server-with-a-very-lon>", "z.example"}));
    EXPECT_EQ(server_names("506 Cannot talk to daemon\n"), std::nullopt);
}

TEST_F(StatusCycleTest, UnusualLeapStatusIsNoSilence) {
    report("Delete second");
    load();
    EXPECT_EQ(display.notice, (StatusNotice{StatusNotice::Kind::unusual_leap, "Delete second"}));
}

TEST(PrivilegedReports, WordsOfACommandLine) {
    using Words = std::vector<std::string>;
    for (const auto& [words, server] :
         {std::pair(Words{"clients"}, ""), std::pair(Words{"serverstats"}, ""), std::pair(Words{"authdata", "-a"}, ""),
          std::pair(Words{"ntpdata", "192.0.2.1"}, "192.0.2.1")}) {
        RefreshRequest request;
        EXPECT_EQ(report_request(words, request), 0) << words.front();
        EXPECT_EQ(request.command, words.front());
        EXPECT_EQ(request.server, server);
    }
    RefreshRequest request;
    for (const auto& words : {Words{}, Words{"sources"}, Words{"clients", "-r"}, Words{"ntpdata", "a", "b"}})
        EXPECT_EQ(report_request(words, request), -1);
    EXPECT_TRUE(is_report("Hostname  NTP\n") && is_report("5012 packets\n"));
    EXPECT_FALSE(is_report("501 Not authorised\n") || is_report(" \n"));
}

TEST_F(StatusCycleTest, CheckboxesRebuildTheRunner) {
    load();
    cycle->showIPaddresses(true);
    settle();
    cycle->showOriginalName(true);
    settle();
    EXPECT_EQ(calls("chronyc|-n|tracking"), 1);
    EXPECT_EQ(calls("chronyc|-n|-N|tracking"), 1);
    EXPECT_EQ(calls("chronyc|-n|-v"), 3);
}

TEST_F(StatusCycleTest, Version35HasNoOriginalNames) {
    execute.answer("chronyc -v", "chronyc (chrony) version 3.5 (+X)\n");
    store.values = {{"original_name", {"true"}}};
    load();
    EXPECT_FALSE(display.original_offered);
    EXPECT_FALSE(cycle->settings().showOriginalName);
    EXPECT_EQ(execute.calls.back(), "chronyc|tracking");
}

TEST_F(StatusCycleTest, VersionOfFewerThanFourWordsStopsTheProgramButAMissingProgramDoesNot) {
    execute.answer("chronyc -v", "not chrony\n");
    load();
    EXPECT_EQ(display.stopped, "chronyc: not chrony");

    display.stopped.clear();
    execute.answers.clear();
    load();
    EXPECT_EQ(display.stopped, "");
    EXPECT_EQ(display.states.back(), chronydStatus::unavailable);
    EXPECT_EQ(display.notice.kind, StatusNotice::Kind::chronyc_failed);
    EXPECT_NE(display.version_labels.find("No such file"), std::string::npos);
}

TEST_F(StatusCycleTest, SilentDaemonIsUnavailableAndTriedAgain) {
    fall_silent();
    load();
    EXPECT_EQ(display.states.back(), chronydStatus::unavailable);
    EXPECT_EQ(display.truth->verdict, Verdict::unavailable);
    EXPECT_EQ(display.meter_value, "–");
    EXPECT_EQ(display.notice, (StatusNotice{StatusNotice::Kind::daemon_silent, "506 Cannot talk to daemon"}));
    report();
    timer.advance(10);
    settle();
    EXPECT_EQ(display.states.back(), chronydStatus::synchronised);
}

TEST(LimitLines, FoldsLongLinesAndEndsLongTexts) {
    std::string text = "short\n" + std::string(450, 'a') + "\n";
    EXPECT_FALSE(limit_lines(text));
    EXPECT_EQ(text,
              "short\n" + std::string(200, 'a') + "\n" + std::string(200, 'a') + "\n" + std::string(50, 'a') + "\n");
    std::string umlauts;
    for (int i = 0; i < 201; ++i)
        umlauts += "ü";
    EXPECT_FALSE(limit_lines(umlauts));
    EXPECT_EQ(umlauts.find('\n'), 400U);
    std::string ends(1U << 20U, '\n');
    EXPECT_TRUE(limit_lines(ends));
    EXPECT_LE(ends.size(), most_lines);
    std::string nothing;
    EXPECT_FALSE(limit_lines(nothing));
}

TEST_F(StatusCycleTest, HangingChronycIsNotRunForTheReportAsWell) {
    load();
    execute.answers["chronyc -m"] = {ExecuteOutcome::timed_out, -1, "", said_by_others("too slow")};
    cycle->chronycCommand("sources");
    settle();
    EXPECT_EQ(calls("chronyc|sources"), 0);
    EXPECT_EQ(display.notice,
              (StatusNotice{.kind = StatusNotice::Kind::chronyc_failed, .failure = said_by_others("too slow")}));
    cycle->chronycCommand("ntpdata"); // which lists the servers, too
    settle();
    EXPECT_EQ(calls("chronyc|sourcestats"), 0);
}

TEST_F(StatusCycleTest, ClockNoticeFollowsTheDaemonAndThenThePreference) {
    const testing::PrivateHome machine;
    root = machine.path();
    std::filesystem::create_directories(root + "/proc/net");
    std::filesystem::create_directories(root + "/proc/7");
    testing::write_file(root + "/proc/net/udp", "1: 0100007F:0143 0:0 07 0:0 0:0 0 0 0 77 2\n");
    testing::write_file(root + "/proc/7/comm", "chronyd\n");
    testing::write_file(root + "/proc/7/cmdline", "chronyd -x");
    load();
    EXPECT_TRUE(display.not_adjusted);
    EXPECT_EQ(display.truth->reports.steers, false);
    testing::write_file(root + "/proc/net/udp", "");
    cycle->refresh();
    settle();
    EXPECT_FALSE(display.not_adjusted);
    preferences.adj_system = false;
    cycle->refresh();
    settle();
    EXPECT_TRUE(display.not_adjusted);
}

TEST_F(StatusCycleTest, NoSecondReadingStartsBeforeTheFirstHasEnded) {
    load();
    timer.advance(10);
    EXPECT_EQ(queue.waiting(), 1U);
    timer.advance(50);
    EXPECT_EQ(queue.waiting(), 1U);
    settle();
    EXPECT_EQ(calls("chronyc|tracking"), 2);
    EXPECT_GE(display.clock_redraws, 60);
}

TEST_F(StatusCycleTest, StaleReadingIsDroppedAndAnotherFollows) {
    load();
    execute.answer("chronyc sources", "sources\n");
    execute.answer("chronyc activity", "activity\n");
    cycle->chronycCommand("sources");
    queue.turn();
    cycle->chronycCommand("activity");
    display.output = "unchanged";
    main_thread.turn();
    EXPECT_EQ(display.output, "unchanged");
    settle();
    EXPECT_EQ(display.output, "activity\n");
}

TEST_F(StatusCycleTest, IntervalChangeReadsAtOnceAndPacesTheRest) {
    load();
    cycle->intervalChanged(2);
    settle();
    EXPECT_EQ(calls("chronyc|tracking"), 2);
    for (int i = 0; i < 3; ++i) {
        timer.advance(2);
        settle();
    }
    EXPECT_EQ(calls("chronyc|tracking"), 5);
}

TEST_F(StatusCycleTest, WhatIsChangedElsewhereIsTakenOverAtOnce) {
    load();
    EXPECT_FALSE(cycle->settings_changed());
    cycle->programs_changed(); // they did not
    settle();
    EXPECT_EQ(calls("chronyc|tracking"), 1);
    store.values = {{"chronyc_command", {"ntpdata"}}, {"chronyc_interval", {"3"}}, {"ip_address", {"true"}}};
    EXPECT_TRUE(cycle->settings_changed());
    settle();
    EXPECT_TRUE(display.server_field);
    EXPECT_EQ(timer.find("updatetimer")->interval(), 3);
    EXPECT_EQ(calls(data_run), 2);
    preferences.chronyc = "/opt/chronyc";
    cycle->programs_changed();
    settle();
    EXPECT_EQ(calls(data_run), 3);
    cycle->close();
    cycle->go_on_for_listeners();
    EXPECT_TRUE(timer.find("updatetimer")->is_running());
}

TEST_F(StatusCycleTest, HiddenWindowRestsUnlessItsFrequencyIsWanted) {
    load();
    const int redraws = display.clock_redraws;
    cycle->set_visible(false);
    timer.advance(30);
    settle();
    EXPECT_EQ(display.clock_redraws, redraws);
    EXPECT_EQ(calls("chronyc|tracking"), 1);

    broadcast.AddListener(current_frequency_key, "listener", [](std::string_view, const std::any&) {});
    timer.advance(10);
    settle();
    EXPECT_EQ(calls("chronyc|tracking"), 2);
    cycle->set_visible(true);
    settle();
    EXPECT_EQ(calls("chronyc|tracking"), 3);
    EXPECT_GT(display.clock_redraws, redraws);
}

TEST_F(StatusCycleTest, InstallationStopsTheCycleAndClosingDoesNotInterfere) {
    load();
    cycle->begin_installation();
    timer.advance(30);
    cycle->intervalChanged(3);
    settle();
    EXPECT_EQ(calls("chronyc|tracking"), 1);
    cycle->end_installation();
    settle();
    EXPECT_EQ(calls("chronyc|tracking"), 2);
    EXPECT_EQ(timer.find("updatetimer")->interval(), 3);
}

TEST_F(StatusCycleTest, EachChoiceIsSavedAtOnce) {
    load();
    const std::pair<const char*, std::function<void()>> choices[]{{"command",
                                                                   [this] {
                                                                       cycle->chronycCommand("activity");
                                                                   }},
                                                                  {"meter",
                                                                   [this] {
                                                                       cycle->selectMeter(5);
                                                                   }},
                                                                  {"error bound",
                                                                   [this] {
                                                                       cycle->show_error_bound();
                                                                   }},
                                                                  {"addresses",
                                                                   [this] {
                                                                       cycle->showIPaddresses(true);
                                                                   }},
                                                                  {"original names",
                                                                   [this] {
                                                                       cycle->showOriginalName(true);
                                                                   }},
                                                                  {"server",
                                                                   [this] {
                                                                       cycle->selectNTPdataServer("192.0.2.1");
                                                                   }},
                                                                  {"interval",
                                                                   [this] {
                                                                       cycle->intervalChanged(7);
                                                                   }},
                                                                  {"font", [this] {
                                                                       cycle->set_output_font({"Sans", 9});
                                                                   }}};
    for (const auto& [what, choose] : choices) {
        const auto before = MainWindowSettings::load(settings);
        choose();
        EXPECT_FALSE(before == cycle->settings()) << what;
        EXPECT_TRUE(MainWindowSettings::load(settings) == cycle->settings()) << what;
    }
}

TEST_F(StatusCycleTest, ClosingLeavesTheHelperAndTheClockGoesOn) {
    load();
    cycle->close();
    settle();
    EXPECT_TRUE(channel.disconnected);
    EXPECT_FALSE(timer.find("updatetimer")->is_running());
    EXPECT_TRUE(timer.find("clockTicker")->is_running());
}

TEST_F(StatusCycleTest, UnknownMeterViewEndsTheReadingOfSettings) {
    store.values = {
        {"chronyc_command", {"sources"}}, {"meter_view", {"7"}}, {"chronyc_interval", {"3"}}, {"ip_address", {"true"}}};
    load();
    EXPECT_EQ(cycle->settings().chronyCommand, "sources");
    EXPECT_EQ(cycle->settings().m_meterview, meterView::lastoffset);
    EXPECT_EQ(cycle->settings().m_interval, 10);
    EXPECT_FALSE(cycle->settings().showIPaddress);
}

TEST_F(StatusCycleTest, ReadingThatReturnsAfterTheWindowHasGoneIsDropped) {
    load();
    cycle->refresh();
    queue.turn();
    cycle.reset();
    main_thread.turn();
    EXPECT_EQ(display.states.size(), 2U);
}

TEST_F(StatusCycleTest, AnotherMachineIsShownWhileThisOneGoesOn) {
    std::vector<double> heard;
    broadcast.AddListener(current_frequency_key, "test", [&](std::string_view, const std::any& object) {
        heard.push_back(std::any_cast<current_frequency>(object).freq);
    });
    ASSERT_TRUE(actions->blessHelper()); // rights that are there, and must not be used
    load();
    const auto own = display.truth;
    heard.clear();
    execute.calls.clear();
    execute.answer("chronyc -h far.example", testing::tracking_line("Not synchronised") + "0,0,0,0,0\n");
    cycle->show_host("far.example");
    EXPECT_EQ(display.truth->verdict, Verdict::unavailable) << "the former values are gone before the answer is there";
    EXPECT_EQ(display.meter_value, no_value);
    EXPECT_EQ(display.notice, (StatusNotice{StatusNotice::Kind::asking, "far.example"}));
    settle();
    EXPECT_EQ(display.truth->verdict, Verdict::unsynchronised);
    EXPECT_EQ(display.states.back(), chronydStatus::notlocked);
    ASSERT_TRUE(display.watched);
    EXPECT_EQ(display.watched->verdict, own->verdict);
    EXPECT_EQ(heard, std::vector{-12.345}) << "once, by this machine";
    cycle->chronycCommand("clients");
    cycle->want_root_reports();
    settle();
    EXPECT_EQ(display.notice, (StatusNotice{StatusNotice::Kind::not_from_afar, "clients"}));
    EXPECT_EQ(display.asked_for_rights, 0);
    EXPECT_TRUE(channel.commands.empty()) << "the helper knows this machine's daemon only";
    EXPECT_EQ(std::ranges::count_if(execute.calls, [](const auto& call) { return call.ends_with("|clients"); }), 0);
    cycle->show_host({});
    display.watched.reset();
    timer.advance(20);
    settle();
    EXPECT_EQ(display.truth->verdict, own->verdict);
    EXPECT_FALSE(display.watched) << "it is shown again, and not read twice";
}

TEST_F(StatusCycleTest, AnAnswerOfTheMachineThatWasLeftIsDropped) {
    testing::ManualQueue hosts;
    auto with_queue = parts();
    with_queue.host_queue = &hosts;
    cycle = std::make_unique<StatusCycle>(display, with_queue, options());
    cycle->load();
    settle();
    ASSERT_EQ(display.truth->verdict, Verdict::holdover); // it has no sources
    execute.answer("chronyc -h slow.example", "506 Cannot talk to daemon\n", 1);
    cycle->show_host("slow.example"); // which is not turned to yet
    cycle->show_host({});
    settle();
    EXPECT_EQ(display.truth->verdict, Verdict::holdover);
    hosts.turn();
    settle();
    EXPECT_EQ(display.truth->verdict, Verdict::holdover);
    cycle->show_host("slow.example");
    settle();
    ASSERT_TRUE(display.watched) << "this machine does not wait for that one";
    hosts.turn();
    settle();
    EXPECT_EQ(display.notice.kind, StatusNotice::Kind::daemon_silent);
    EXPECT_EQ(display.notice.detail, "506 Cannot talk to daemon");
    cycle->close();
    EXPECT_EQ(cycle->host(), "");
}

} // namespace
} // namespace tickervantage
