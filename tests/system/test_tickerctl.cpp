// The tickerctl program as a user, a script or a cron job meets it.
#include "base/local_clock.h"
#include "support/child_program.h"
#include "support/chrony_reports.h"
#include "support/tracking_text.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <sstream>

namespace tickervantage {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using nlohmann::json;
using testing::contents;
using testing::eventually;
using testing::tracking_text;
using testing::write_file;
using Words = std::vector<std::string>;

constexpr auto patience = 30s;

struct Answer {
    int status = -1; // -1: it did not end
    std::string out;
    std::string err;
};

bool is_one_line(const std::string& text) {
    return text.starts_with("tickerctl: ") && std::ranges::count(text, '\n') == 1 && text.ends_with('\n');
}

class TickerctlTest : public ::testing::Test {
protected:
    TickerctlTest() {
        // A user's locale with a decimal comma must not reach our output, whether it is installed or not.
        m_home.environment["LC_ALL"] = "de_DE.UTF-8";
        m_home.environment["LANGUAGE"] = "de";
    }

    testing::ChildProgram start(Words words, const std::string& input = "/dev/null") {
        words.insert(words.begin(), m_program);
        return {words, m_home.environment, m_home.path(), input};
    }

    Answer run(const Words& words, const std::string& input = "/dev/null") {
        auto child = start(words, input);
        const int status = child.ends_within(patience).value_or(-1);
        Answer answer{status, child.out(), child.err()};
        // Whatever was asked: a failure is told in one line, and nothing but failures is told.
        if (status == 2)
            EXPECT_TRUE(is_one_line(answer.err)) << answer.err;
        else
            EXPECT_TRUE(answer.err.empty() || is_one_line(answer.err)) << answer.err;
        return answer;
    }

    std::string file(const std::string& name, const std::string& text, mode_t mode = 0600) {
        write_file(m_home.path(name), text, mode);
        return m_home.path(name);
    }

    // A chronyc of our own, which becomes the configured one.
    void configure_chronyc(const std::string& script, mode_t mode = 0700) {
        const auto path = file("chronyc", "#!/bin/sh\n" + script, mode);
        ASSERT_EQ(run({"settings", "set", "file_chronyc", path}).status, 0);
    }

    testing::PrivateHome m_home;
    std::string m_program = TICKERVANTAGE_TICKERCTL;
};

TEST_F(TickerctlTest, StatusOfASavedReportIsItsExitStatus) {
    struct Case {
        std::string text;
        int status;
        std::string state;
        std::string verdict;
    };
    const testing::ReportedSource silent{.address = "192.0.2.1", .letter = '?', .reach = "0", .last = "5000"};
    const Case cases[] = {
        {tracking_text(), 0, "synchronised", "synchronised"},
        {tracking_text("Not synchronised"), 1, "notlocked", "unsynchronised"},
        {tracking_text("Insert second"), 0, "notlocked", "leap"},
        {tracking_text("Delete second"), 0, "unavailable", "leap"},
        {to_text(testing::capture_of({}, {silent})), 1, "synchronised", "holdover"},
        {"506 Cannot talk to daemon\n", 1, "unavailable", "unavailable"},
        {"", 1, "unavailable", "unavailable"},
        {"Leap status : \xff\xfe\x1b[2J\nSystem time : 1e999 slow\n", 1, "unavailable", "unsynchronised"},
        {std::string("\0\0:\0\n", 5) + std::string(100'000, ':'), 1, "unavailable", "unavailable"},
    };
    for (const auto& [text, status, state, verdict] : cases) {
        const auto path = file("report", text);
        for (const auto& answer : {run({"status", "--from", path}), run({"status", "--from", "-"}, path)}) {
            EXPECT_EQ(answer.status, status) << state;
            EXPECT_EQ(answer.err.empty(), verdict != "unavailable") << "why there is no answer: " << answer.err;
            EXPECT_TRUE(answer.out.starts_with("Verdict         : ")) << answer.out;
            EXPECT_NE(answer.out.find("\nError           : "), std::string::npos);
            EXPECT_NE(answer.out.find("\nState           : " + state + "\n"), std::string::npos) << answer.out;
            EXPECT_EQ(answer.out.find('\x1b'), std::string::npos) << "a report steers the terminal";
        }
        const auto document = json::parse(run({"status", "--json", "--from", path}).out, nullptr, false);
        ASSERT_TRUE(document.is_object()) << state;
        EXPECT_EQ(document.at("state"), state);
        EXPECT_EQ(document.at("verdict"), verdict);
    }
}

TEST_F(TickerctlTest, StatusSaysWhyThereIsNoAnswer) {
    configure_chronyc("echo '506 Cannot talk to daemon'; exit 1\n");
    for (const Words& words : {Words{"status"}, Words{"status", "--json"}}) {
        const auto answer = run(words);
        EXPECT_EQ(answer.status, 1);
        EXPECT_EQ(answer.err, "tickerctl: chronyd gave no answer: 506 Cannot talk to daemon\n");
    }
    for (const char* command : {"sources", "explain"})
        EXPECT_EQ(run({command}).status, 2) << "it cannot say";
    EXPECT_EQ(run({"budget"}).status, 1);
    EXPECT_EQ(run({"capture", "-o", m_home.path("c")}).status, 1);
    EXPECT_NE(contents(m_home.path("c")).find("> tracking\n! 506 Cannot talk to daemon\n"), std::string::npos);
}

TEST_F(TickerctlTest, JsonHoldsTheFieldsOfTheReport) {
    const auto path = file("report", tracking_text());
    const auto answer = run({"status", "--from", path, "--meter", "frequency", "--json"});
    auto document = json::parse(answer.out, nullptr, false);
    EXPECT_NEAR(document["bound"].get<double>(), 0.000000806 + 0.000005637 / 2 + 0.000001995, 1e-12);
    EXPECT_NEAR(document["growth"].get<double>(), (0.128 + 0.001 + 1) * 1e-6, 1e-12);
    for (const char* checked : {"bound", "growth"})
        document.erase(checked);
    const auto expected = json::parse(R"({"verdict": "synchronised", "since": null, "expected": 0.00000225,
        "steers": null, "reference": {"id": "7F000001", "address": "127.0.0.1", "stratum": 6,
        "time": "2026-11-21T05:20:32Z"}, "state": "synchronised", "frequency": -12.345, "systemtime": -0.000000806,
        "lastoffset": -0.000000032, "rmsoffset": 0.000001125, "rootdelay": 0.000005637,
        "rootdispersion": 0.000001995, "leapstatus": "Normal",
        "meter": {"view": "frequency", "value": -12345.0, "per_second": true, "scale": 1000, "scale_value": 100,
                  "scale_units": "µs/s", "scale_exp": 6, "deflection": -12.345, "text": "-12.345 µs/s"}})");
    EXPECT_EQ(document, expected) << answer.out;
}

TEST_F(TickerctlTest, EachMeterViewShowsItsQuantity) {
    const std::pair<std::string, double> cases[] = {{"systemtime", -806},       {"lastoffset", -32},
                                                    {"rmsoffset", 1125},        {"rootdelay", 5637},
                                                    {"rootdispersion", 1995.0}, {"frequency", -12345}};
    const auto path = file("report", tracking_text());
    for (const auto& [view, nanoseconds] : cases) {
        const auto answer = run({"status", "--from", path, "--meter", view, "--json"});
        const auto meter = json::parse(answer.out, nullptr, false)["meter"];
        EXPECT_EQ(meter["view"], view);
        EXPECT_NEAR(meter["value"].get<double>(), nanoseconds, 1e-9) << view;
        EXPECT_EQ(meter["per_second"], view == "frequency");
    }
    ASSERT_EQ(run({"settings", "set", "meter_view", "5"}).status, 0);
    EXPECT_EQ(json::parse(run({"status", "--from", path, "--json"}).out)["meter"]["view"], "frequency");
}

TEST_F(TickerctlTest, WrongUsageIsOneLineAndStatusTwo) {
    const auto good = file("report", tracking_text());
    const auto large = file("large", std::string((1U << 20U) + 1, 'x'));
    const Words cases[] = {
        {},
        {"bogus"},
        {"status", "bogus"},
        {"status", "--meter", "bogus"},
        {"status", "--meter", ""},
        {"status", "--meter", "fre\nquency\x1b[2J"},
        {"status", "--from", ""},
        {"status", "--from", "/nonexistent"},
        {"status", "--from", "/no\nsuch\nfile"},
        {"status", "--from", "/tmp"},
        {"status", "--from", large},
        {"status", "--from", "/dev/zero"},
        {"status", "--from", good, "--watch", "1"},
        {"status", "--watch", "0"},
        {"status", "--watch", "-1"},
        {"status", "--watch", "nan"},
        {"status", "--watch", "1,5"},
        {"sources", "--from", good},
        {"explain", "--from", good},
        {"budget", "--from", good},
        {"budget", "--watch", "1"},
        {"sources", "--from", good, "--watch", "1"},
        {"explain", "a", "b"},
        {"explain", "nobody\x1b[2J", "--from", file("capture", to_text(testing::capture_of({}, {})))},
        {"capture", "-o", m_home.path("no/such/folder/../../..")},
        {"probe"},
        {"probe", "192.0.2.1\nallow"},
        {"probe", "192.0.2.1", "--port", "0"},
        {"probe", "192.0.2.1", "--timeout", "nan"},
        {"report"},
        {"settings"},
        {"settings", "get"},
        {"settings", "get", "no_such_key"},
        {"settings", "set", "meter_view"},
        {"settings", "set", "no\nsuch", "1"},
        {"settings", "set", "chronyc_interval", "61"},
        {"settings", "set", "chronyc_interval", "1\n2"},
        {"plot", "meter", "-o", m_home.path("a.png")},
        {"plot", "meter", "nan", "-o", m_home.path("a.png")},
        {"plot", "meter", "inf", "-o", m_home.path("a.png")},
        {"plot", "meter", "1"},
        {"plot", "meter", "1", "-o", m_home.path("a.jpg")},
        {"plot", "meter", "1", "-o", m_home.path("no/folder/a.png")},
        {"plot", "meter", "1", "-o", good + "/a.png"},
        {"plot", "meter", "1", "-o", "/proc/a.svg"},
        {"plot", "meter", "1", "-o", m_home.path("a.png"), "--size", "0x5"},
        {"plot", "meter", "1", "-o", m_home.path("a.png"), "--size", "640"},
        {"plot", "meter", "1", "-o", m_home.path("a.png"), "--size", "16385x1"},
        {"plot", "meter", "1", "-o", m_home.path("a.png"), "--size", "6x4x2"},
        {"plot", "clock", "", "-o", m_home.path("a.png")},
        {"plot", "clock", "24:00", "-o", m_home.path("a.png")},
        {"plot", "clock", "12:3", "-o", m_home.path("a.png")},
    };
    for (const auto& words : cases) {
        const auto answer = run(words);
        EXPECT_EQ(answer.status, 2) << ::testing::PrintToString(words) << answer.out;
        EXPECT_EQ(answer.out, "") << ::testing::PrintToString(words);
    }
    for (const Words& words : {Words{"frob"}, Words{"settings", "frob"}})
        EXPECT_NE(run(words).err.find("no command \"frob\""), std::string::npos) << run(words).err;
    EXPECT_EQ(run({"status", "--from", "-"}, "/dev/zero").status, 2) << "standard input has a limit too";
    EXPECT_FALSE(fs::exists(m_home.path("a.png")));
}

TEST_F(TickerctlTest, AnAnswerThatCannotBeWrittenIsAFailure) {
    const auto path = file("report", tracking_text());
    auto child =
        testing::ChildProgram({"/bin/sh", "-c", "exec \"$0\" status --from \"$1\" >/dev/full", m_program, path},
                              m_home.environment, m_home.path());
    EXPECT_EQ(child.ends_within(patience), 2);
    EXPECT_TRUE(is_one_line(child.err())) << child.err();
}

TEST_F(TickerctlTest, ReportHandsItsWordsToChronycAsOneCommand) {
    configure_chronyc("printf '[%s]' \"$@\" \"$LC_ALL\" \"$LANGUAGE\"; exit 3\n");
    const auto answer = run({"report", "sources", "-v"});
    EXPECT_EQ(answer.out, "[sources -v][C][]");
    EXPECT_EQ(answer.status, 1) << "chronyc's own failure is the answer no";
    EXPECT_EQ(run({"--host", "192.0.2.1", "report", "tracking"}).out, "[-h][192.0.2.1][tracking][C][]");
    ASSERT_EQ(run({"settings", "set", "ip_address", "true"}).status, 0);
    ASSERT_EQ(run({"settings", "set", "original_name", "true"}).status, 0);
    EXPECT_EQ(run({"report", "sourcestats"}).out, "[-n][-N][sourcestats][C][]");
}

TEST_F(TickerctlTest, TheBundlesChronycStandsInForAMissingOneOnly) {
    const std::string bundled = TICKERVANTAGE_BUNDLE_PROGRAMS "/chronyc";
    if (access(bundled.c_str(), X_OK) != 0)
        GTEST_SKIP() << "chrony was not installed when this was built: the bundle has no chronyc";
    ASSERT_EQ(run({"settings", "set", "file_chronyc", "/nonexistent/chronyc"}).status, 0);
    const auto version = run({"report", "version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_NE(version.out.find("chronyc (chrony) version"), std::string::npos) << version.out;

    configure_chronyc("echo never\n", 0600);
    const auto answer = run({"report", "tracking"});
    EXPECT_EQ(answer.status, 2);
    EXPECT_EQ(answer.out, "");
}

TEST_F(TickerctlTest, WithoutAnyChronycTheStatusIsUnavailableAndAReportFails) {
    const auto programs = m_home.path("Tickervantage.app/Contents/MacOS");
    fs::create_directories(programs);
    fs::copy_file(m_program, programs + "/tickerctl");
    fs::copy_file(fs::path(m_program).replace_filename("tickercommands"), programs + "/tickercommands");
    m_program = programs + "/tickerctl";
    ASSERT_EQ(run({"settings", "set", "file_chronyc", "/nonexistent/chronyc"}).status, 0);
    const auto report = run({"report", "tracking"});
    EXPECT_EQ(report.status, 2);
    EXPECT_NE(report.err.find(programs + "/chronyc cannot be started"), std::string::npos) << report.err;
    const auto status = run({"status", "--json"});
    EXPECT_EQ(status.status, 1);
    EXPECT_EQ(json::parse(status.out, nullptr, false)["state"], "unavailable");
    EXPECT_TRUE(is_one_line(status.err)) << status.err;
    EXPECT_EQ(run({"--demo", "status"}).status, 2) << "a demonstration needs a chronyd";
}

TEST_F(TickerctlTest, AWatchGivesJsonLinesUntilItIsInterrupted) {
    configure_chronyc("case \"$*\" in *tracking*) cat " + m_home.path("tracking") + ";; esac\n");
    struct Case {
        int signal;
        std::string leap;
        int status;
    };
    for (const auto& [signal, leap, status] :
         {Case{SIGINT, "Normal", 0}, Case{SIGTERM, "Not synchronised", 1}, Case{SIGHUP, "Normal", 0}}) {
        file("tracking",
             testing::TrackingLine{.leap = leap}.text() + testing::ReportedSource{.address = "a"}.in_sources());
        auto watch = start({"status", "--watch", "0.1", "--json"});
        EXPECT_TRUE(eventually(patience, [&] { return std::ranges::count(watch.out(), '\n') >= 3; }));
        watch.signal(signal);
        EXPECT_EQ(watch.ends_within(patience), status) << signal;
        EXPECT_EQ(watch.err(), "");
        std::istringstream lines(watch.out());
        for (std::string line; std::getline(lines, line);)
            EXPECT_EQ(json::parse(line, nullptr, false)["leapstatus"], leap) << line;
    }
    EXPECT_TRUE(m_home.found_in("run").empty());
}

TEST_F(TickerctlTest, InterruptedItTakesAHangingChronycAndItsFolderAlong) {
    configure_chronyc("echo $$ >" + m_home.path("pid") + "\nexec sleep 1000\n");
    for (const Words& words : {Words{"report", "waitsync"}, Words{"status"}, Words{"status", "--watch", "1"}}) {
        fs::remove(m_home.path("pid"));
        auto child = start(words);
        ASSERT_TRUE(eventually(patience, [&] { return contents(m_home.path("pid")).ends_with('\n'); }));
        const pid_t chronyc = std::stoi(contents(m_home.path("pid")));
        child.signal(SIGINT);
        EXPECT_EQ(child.ends_within(patience), 128 + SIGINT) << "the shell has to see the interruption";
        EXPECT_EQ(child.out() + child.err(), "");
        EXPECT_EQ(kill(chronyc, 0), -1) << "chronyc still runs";
        EXPECT_TRUE(m_home.found_in("run").empty());
    }
}

TEST_F(TickerctlTest, ADemonstrationIsSynchronisedAndLeavesNothing) {
    if (access(TICKERVANTAGE_BUNDLE_PROGRAMS "/chronyd", X_OK) != 0)
        GTEST_SKIP() << "chrony was not installed when this was built: the bundle has no chronyd";
    const auto answer = run({"--demo", "status", "--json"});
    EXPECT_EQ(answer.status, 0) << answer.err;
    EXPECT_EQ(json::parse(answer.out, nullptr, false)["state"], "synchronised") << answer.out;
    EXPECT_TRUE(m_home.found_in("run").empty());

    const auto saved = m_home.path("capture");
    EXPECT_EQ(run({"--demo", "capture", "-o", saved}).status, 0);
    const auto explained = json::parse(run({"explain", "--json", "--from", saved}).out, nullptr, false);
    ASSERT_EQ(explained.size(), 3U);
    EXPECT_EQ(std::ranges::count_if(explained, [](const json& one) { return one["rule"] == "best"; }), 1);
    EXPECT_TRUE(explained[0]["line"].is_number()) << "the configuration is in it";
    const auto status = json::parse(run({"status", "--json", "--from", saved}).out, nullptr, false);
    EXPECT_EQ(status["steers"], false);
    EXPECT_GT(status["bound"], 0);
    EXPECT_EQ(run({"budget", "--from", "-"}, saved).status, 0);
    const auto sources = json::parse(run({"sources", "--json", "--from", saved}).out, nullptr, false);
    EXPECT_TRUE(std::ranges::any_of(sources, [](const json& one) { return one["used"] == true; }));
    const auto history = run({"--demo", "history"});
    EXPECT_EQ(history.status, 0) << history.err;
    EXPECT_NE(history.out.find("recording"), std::string::npos) << history.out;

    auto interrupted = start({"--demo", "status", "--watch", "1"});
    EXPECT_TRUE(eventually(patience, [&] { return !interrupted.out().empty(); }));
    interrupted.signal(SIGINT);
    EXPECT_EQ(interrupted.ends_within(patience), 0);
    EXPECT_TRUE(m_home.found_in("run").empty());
}

TEST_F(TickerctlTest, SettingsSurviveARoundTrip) {
    const auto before = json::parse(run({"settings", "list", "--json"}).out, nullptr, false);
    ASSERT_TRUE(before.is_object());
    const std::pair<std::string, std::string> changes[] = {{"chronyc_interval", "7"},
                                                           {"make_limit", "-1"},
                                                           {"make_thresh", "0.125"},
                                                           {"original_name", "true"},
                                                           {"chronyc_command", "sources -v; ä, \"b\" = \\c"}};
    for (const auto& [key, value] : changes) {
        EXPECT_EQ(run({"settings", "set", key, value}).status, 0) << key;
        EXPECT_EQ(run({"settings", "get", key}).out, value + "\n");
    }
    EXPECT_EQ(json::parse(run({"settings", "get", "make_thresh", "--json"}).out), json({{"make_thresh", 0.125}}));
    const auto list = run({"settings", "list"});
    EXPECT_NE(list.out.find("chronyc_interval = 7  (default: 10)"), std::string::npos) << list.out;
    EXPECT_TRUE(fs::exists(m_home.settings_file()));

    EXPECT_EQ(run({"settings", "reset"}).status, 0);
    EXPECT_EQ(json::parse(run({"settings", "list", "--json"}).out, nullptr, false), before);
    EXPECT_EQ(run({"settings", "get", "CHRONYC_Font"}).status, 1) << "a font has no default";
}

TEST_F(TickerctlTest, SettingsThatCannotBeSavedAreAFailure) {
    m_home.environment["XDG_CONFIG_HOME"] = "/proc";
    EXPECT_EQ(run({"settings", "set", "chronyc_interval", "7"}).status, 2);
}

TEST_F(TickerctlTest, SpectrumOfATrackingLog) {
    const std::string heading = "   Date (UTC) Time     IP Address   St\n";
    const std::string first = "2026-11-21 02:15:03 192.0.2.1 2 -10.5 0.1 1e-6 N 1 1e-6 2e-6 1e-3 1e-3\n";
    const std::string last = "2026-11-21 04:15:03 192.0.2.1 2 -10.5 0.1 1e-6 N 1 1e-6 - 1e-3 1e-3\n";
    const auto log = file("tracking.log", heading + first + last);
    const auto answer = run({"spectrum", log, "--json", "--duration", "400"});
    ASSERT_EQ(answer.status, 0) << answer.err;
    const auto document = json::parse(answer.out);
    EXPECT_EQ(document["samplefreq"], 0.125);
    EXPECT_EQ(document["count"], 100);
    EXPECT_EQ(document["length"], 128);
    EXPECT_EQ(document["magnitudes"].size(), 128U);
    EXPECT_EQ(document["magnitudes"][0], 1);
    EXPECT_EQ(document["phases"].size(), 128U);
    EXPECT_EQ(document["extrapolated"], 1) << "the newest";
    EXPECT_EQ(document["before_records"], 0);
    EXPECT_EQ(json::parse(
                  run({"spectrum", log, "--json", "--interval", "3600", "--duration", "36000"}).out)["before_records"],
              6);
    const std::string text = run({"spectrum", log}).out;
    for (const char* words : {"Bins            : 256", "Extrapolated    : 1\n",
                              "\n       1    0.000976562           1024 ", "\n     255    0.000976562           1024 "})
        EXPECT_NE(text.find(words), std::string::npos) << words << text.substr(0, 600);
    const auto picture = m_home.path("a.png");
    EXPECT_EQ(run({"plot", "spectrum", log, "-o", picture, "--size", "640x360"}).status, 0);
    EXPECT_EQ(testing::png_size(contents(picture)), std::pair(640U, 360U));
    const auto drawing = m_home.path("a.svg");
    EXPECT_EQ(run({"plot", "spectrum", log, "-o", drawing, "--caption"}).status, 0);
    EXPECT_NE(contents(drawing).find("Spectrum: offset"), std::string::npos);

    const std::pair<Words, int> cases[] = {
        {{"spectrum", log, "--series", "rem_cor"}, 1}, // the last record has none
        {{"spectrum", file("empty.log", heading)}, 1}, {{"spectrum", m_home.path("none.log")}, 2},
        {{"spectrum", log, "--series", "skew"}, 2},    {{"spectrum", log, "--interval", "0"}, 2},
        {{"spectrum", log, "--duration", "1"}, 2},     {{"spectrum", log, "--interval", "1e-8"}, 2},
    };
    for (const auto& [words, status] : cases) {
        const auto refused = run(words);
        EXPECT_EQ(refused.status, status) << refused.err;
        EXPECT_TRUE(is_one_line(refused.err)) << refused.err;
        EXPECT_EQ(refused.out, "");
    }
}

TEST_F(TickerctlTest, RecordsOfATrackingLogAreToldSummedUpAndDrawn) {
    const auto log =
        file("tracking.log", "====\n2026-11-21 02:15:03 192.0.2.1 2 -5.123 0.1 1e-6 N 1 1e-6 2e-6 1e-3 1e-3\n"
                             "2026-11-21 02:16:03 192.0.2.1 2 -5.123 0.1 3e-6 N 1 1e-6 - 1e-3 1e-3\n");
    const auto records = run({"log", log, "--json"});
    ASSERT_EQ(records.status, 0) << records.err;
    const auto first = json::parse(records.out.substr(0, records.out.find('\n')));
    EXPECT_EQ(first["timestamp"], "2026-11-21T02:15:03Z");
    EXPECT_EQ(first["frequency"], -0.000005123);
    EXPECT_EQ(first["rms_offset"], 1e-6);
    EXPECT_NE(records.out.find("\"rem_cor\":null"), std::string::npos);
    const auto summary = json::parse(run({"log", log, "--summary", "--json"}).out);
    EXPECT_EQ(summary["count"], 2);
    EXPECT_EQ(summary["offset"]["max"], 3e-6);
    EXPECT_EQ(summary["offset"]["mean"], 2e-6);

    const auto followed = run({"follow", log, "--json", "--for", "0.2"});
    EXPECT_EQ(followed.status, 0) << followed.err;
    EXPECT_EQ(std::ranges::count(followed.out, '\n'), 3);
    EXPECT_NE(followed.out.find("\"last\":true"), std::string::npos);

    const auto picture = m_home.path("graph.png");
    EXPECT_EQ(run({"plot", "tracking", log, "-o", picture, "--hours", "1", "--end", "2026-11-21 02:20:00"}).status, 0);
    EXPECT_EQ(testing::png_size(contents(picture)), std::pair(800U, 450U));
    const std::pair<Words, int> cases[] = {
        {{"log", file("empty.log", "====\n")}, 1},
        {{"log", m_home.path("none.log")}, 2},
        {{"plot", "tracking", log, "-o", picture, "--series", "offset,skew"}, 2},
        {{"plot", "tracking", log, "-o", picture, "--end", "now"}, 2},
        {{"plot", "tracking", m_home.path("empty.log"), "-o", picture}, 1},
        {{"plot", "tracking", log, "-o", picture, "--linear", "--log"}, 2},
    };
    for (const auto& [words, status] : cases) {
        const auto refused = run(words);
        EXPECT_EQ(refused.status, status) << refused.err;
        EXPECT_TRUE((status == 1 && refused.err.empty()) || is_one_line(refused.err)) << refused.err;
    }
}

// A day with all that makes evidence difficult, summed up by a program that knows nothing of ours.
TEST_F(TickerctlTest, EvidenceIsWhatAShortAwkSumsUp) {
    std::string log;
    std::int64_t time = 1795219200; // 2026-11-21 00:00:00 UTC
    for (int i = 0; i < 1200; ++i) {
        time += i % 311 == 310 ? -1000 : i % 400 == 399 ? 5000 : 64;
        const bool is_lost = i % 97 > 92;
        log += utc_date_time(time) + (is_lost ? " 0.0.0.0 0" : " 192.0.2.1 3") + " -12.3 0.02 1e-5 " +
               (is_lost ? "?" : "N") + " 2 1e-5 1e-6 1e-3 1e-3" +
               (i % 150 == 149  ? ""
                : i % 13 == 0   ? " 1.001e-03"
                : i % 200 > 195 ? " 5.000e-02"
                                : " 1.000e-03") +
               "\n";
    }
    const auto path = file("tracking.log", log);
    const auto awk = file("sum.awk", R"(
        { split($1, d, "-"); split($2, c, ":"); t = mktime(d[1] " " d[2] " " d[3] " " c[1] " " c[2] " " c[3]) }
        NR == 1 { latest = t }
        NR > 1 && t < before { for (s = t; s < latest; ++s) back[s] = 1 }
        NR > 1 { what = t - before > 4096 || $4 == 0 || $8 == "?" || NF < 14 ? "-" : $14 <= 0.001 ? "i" : "o"
                 for (s = before > latest ? before : latest; s < t; ++s) is[s] = what }
        { before = t; if (t > latest) latest = t }
        END { for (s = 1795222800; s < 1795305600; ++s) ++n[s in back || !(s in is) ? "-" : is[s]]
              print n["i"], n["o"], n["-"] })");
    testing::ChildProgram summing({"/usr/bin/awk", "-f", awk, path}, {{"TZ", "UTC"}}, m_home.path(), "/dev/null");
    ASSERT_EQ(summing.ends_within(patience), 0);
    const Words asked{"evidence", path,  "--from", "2026-11-21T01:00:00Z", "--to", "2026-11-22T00:00:00Z",
                      "--limit",  "1 ms"};
    const auto answer = run(asked);
    EXPECT_EQ(answer.status, 1) << answer.err;
    const auto told = json::parse(answer.out);
    std::ostringstream sums;
    sums << told["seconds_within"] << ' ' << told["seconds_outside"] << ' ' << told["seconds_without"] << '\n';
    EXPECT_EQ(sums.str(), summing.out());
    EXPECT_EQ(told["seconds_within"].get<int>() + told["seconds_outside"].get<int>() +
                  told["seconds_without"].get<int>(),
              82800);

    m_home.environment.erase("XDG_RUNTIME_DIR"); // as in a cron job
    for (const std::string kind : {".html", ".pdf", ".json"}) {
        std::string before;
        for (const auto* name : {"one", "other"}) {
            Words words = asked;
            words.insert(words.end(), {"-o", m_home.path(name + kind)});
            EXPECT_EQ(run(words).status, 1);
            const auto bytes = contents(m_home.path(name + kind));
            EXPECT_TRUE(before.empty() || before == bytes) << kind;
            before = bytes;
        }
        EXPECT_GT(before.size(), 500U);
        EXPECT_EQ(before.starts_with("%PDF-"), kind == ".pdf");
    }
    const Words within{"evidence", file("good.log", log.substr(0, 4 * log.find('\n'))),
                       "--from",   "2026-11-21T00:01:04Z",
                       "--to",     "2026-11-21T00:02:08Z",
                       "--limit",  "0.0011"};
    EXPECT_EQ(run(within).status, 0);
}

TEST_F(TickerctlTest, EventsAndLogsOfAFolder) {
    fs::create_directory(m_home.path("log"));
    file("log/tracking.log.1", "====\n2026-11-21 02:15:03 192.0.2.1 2 -5.1 0.1 1e-6 N 1 1e-6 2e-6 1e-3 1e-3 2e-3\n");
    file("log/tracking.log", "2026-11-21 02:16:03 192.0.2.2 2 -5.1 0.1 1e-6 N 1 1e-6 2e-6 1e-3 1e-3 2e-3\n");
    file("log/tempcomp.log", "2026-11-21 02:16:03  2.8000e+04  3.6600e-01\n2026-11-21 02:17:03  -  3.6600e-01\n");
    const auto messages = file("messages", "2026-11-21T02:16:30Z System clock was stepped by -0.5 seconds\nodd\n");
    const auto events = run({"events", m_home.path("log"), "--messages", messages, "--json"});
    EXPECT_EQ(events.status, 0);
    EXPECT_NE(events.err.find("left out: 1."), std::string::npos) << events.err;
    const auto second = events.out.find('\n') + 1;
    const auto source = json::parse(events.out.substr(0, second));
    EXPECT_EQ(source["time"], "2026-11-21T02:16:03Z");
    EXPECT_EQ(source["kind"], "source");
    EXPECT_EQ(source["source"], "192.0.2.2");
    EXPECT_EQ(source["value"], nullptr);
    EXPECT_EQ(source["file"], m_home.path("log/tracking.log"));
    EXPECT_EQ(source["line"], 1);
    const auto step = json::parse(events.out.substr(second));
    EXPECT_EQ(step["kind"], "step");
    EXPECT_EQ(step["value"], -0.5);
    EXPECT_EQ(run({"events", m_home.path("log"), "--to", "2026-11-21"}).status, 1);

    const auto points = run({"log", m_home.path("log"), "--kind", "tempcomp", "--json"});
    EXPECT_EQ(points.out, "{\"timestamp\":\"2026-11-21T02:16:03Z\",\"temperature\":28000.0,\"compensation\":0.366}\n"
                          "{\"timestamp\":\"2026-11-21T02:17:03Z\",\"temperature\":null,\"compensation\":0.366}\n");
    const auto summary =
        json::parse(run({"log", m_home.path("log"), "--from", "2026-11-21T02:16:00Z", "--summary", "--json"}).out);
    EXPECT_EQ(summary["count"], 1);
    EXPECT_EQ(run({"log", m_home.path("log"), "--source", "192.0.2.9"}).status, 1);
    file("log/selection.log", "2026-11-21 02:16:03 192.0.2.2 * -----  377  1.00  1e+01 -1e-03  1e-03\n"
                              "2026-11-21 02:17:03 192.0.2.2 x -----  377  1.00  1e+01  2e-03  4e-03\n");
    for (const std::string panel : {"error", "sources"}) {
        const auto picture = m_home.path(panel + ".png");
        EXPECT_EQ(run({"plot", panel, m_home.path("log"), "--events", "--caption", "-o", picture}).status, 0);
        EXPECT_EQ(testing::png_size(contents(picture)), std::pair(800U, 450U));
        const Words compared{"plot", panel, m_home.path("log"), "--compare", m_home.path("none"), "-o", picture};
        EXPECT_EQ(run(compared).status, 2);
    }
    const Words refused[] = {
        {"log", m_home.path("log"), "--kind", "bogus"},
        {"log", m_home.path("log"), "--kind", "rtc"},
        {"log", m_home.path("log"), "--from", "yesterday"},
        {"events"},
        {"events", m_home.path("none")},
        {"evidence", m_home.path("log"), "--from", "2026-11-22", "--to", "2026-11-21", "--limit", "1"},
        {"evidence", m_home.path("log"), "--from", "2026-11-21", "--to", "2026-11-22", "--limit", "0"},
        {"evidence", m_home.path("log"), "--from", "2026-11-21", "--to", "2026-11-22", "--limit", "1", "-o",
         m_home.path("a.txt")}};
    for (const auto& words : refused)
        EXPECT_EQ(run(words).status, 2) << ::testing::PrintToString(words);
}

TEST_F(TickerctlTest, PlotsAreRealPicturesOfTheSizeAskedFor) {
    m_home.environment.erase("XDG_RUNTIME_DIR"); // as in a cron job
    const std::pair<Words, bool> cases[] = {{{"plot", "meter", "-2.5e4", "--per-second"}, true},
                                            {{"plot", "clock", "15:30"}, true},
                                            {{"plot", "clock"}, true},
                                            {{"plot", "meter", "1e300", "--dark"}, true},
                                            {{"plot", "meter", "33"}, false},
                                            {{"plot", "clock", "3:04:05", "--dark"}, false}};
    for (const auto& [words, png] : cases) {
        const auto path = m_home.path(png ? "a.png" : "a.svg");
        auto all = words;
        all.insert(all.end(), {"-o", path, "--size", "320x240"});
        const auto answer = run(all);
        EXPECT_EQ(answer.status, 0) << answer.err;
        EXPECT_EQ(answer.err, "");
        const auto picture = contents(path);
        if (png)
            EXPECT_EQ(testing::png_size(picture), std::pair(320U, 240U));
        else
            EXPECT_NE(picture.find("viewBox=\"0 0 320 240\""), std::string::npos) << picture.substr(0, 500);
        EXPECT_GT(picture.size(), 2000U);
    }
}

} // namespace
} // namespace tickervantage
