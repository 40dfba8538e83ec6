#include "chrony/data/reports.h"
#include "chrony/truth/configuration_lines.h"
#include "support/chrony_reports.h"
#include "support/kept_text.h"
#include "support/test.h"

#include <fmt/format.h>

#include <algorithm>

namespace tickervantage {
namespace {

using testing::capture_of;

// Printed by chronyc 4.3.
const char* const open_lines =
    "7F000001,127.0.0.1,6,1795329879.384664781,0.000000344,0.000000056,0.000001408,-0.156,0.003,"
    "0.247,0.000002897,0.000001397,0.3,Normal\n"
    "^,*,127.0.0.1,5,-2,377,0,0.000002026,0.000002082,0.000003248\n"
    "#,?,PPS0,0,4,17,4294967295,0.000000000,0.000000000,0.000000000\n"
    "127.0.0.1,26,12,6,0.003,0.235,0.000000000,0.000000541\n"
    "PPS0,0,0,0,0.000,2000.000,0.000000000,4.000000000\n"
    "2,3,4,5,1\n";

Capture divided(std::string_view output) {
    Capture capture;
    capture.reports = divided_reports(output, open_reports);
    return capture;
}

template <class Value>
std::string word(const Value& value) {
    if constexpr (requires { value.has_value(); })
        return value ? word(*value) : "none";
    else
        return fmt::format("{}", value);
}

template <class... Values>
std::string row(const char* report, const Values&... values) {
    std::string text = report;
    (..., (text += ' ' + word(values)));
    return text + '\n';
}

// Every column of every report.
std::string told(const ChronyReports& reports) {
    const auto& t = *reports.tracking;
    std::string text = row("tracking", t.reference_id, t.address, t.stratum, t.reference_time, t.system_time,
                           t.last_offset, t.rms_offset, t.frequency_ppm, t.residual_frequency_ppm, t.skew_ppm,
                           t.root_delay, t.root_dispersion, t.update_interval, t.leap_status);
    for (const SourceData& s : *reports.sources)
        text += row("source", static_cast<int>(s.mode), s.letter, s.source, s.stratum, s.poll, s.reach, s.last_rx,
                    s.offset, s.measured, s.error);
    for (const SourceStatistics& s : *reports.statistics)
        text +=
            row("statistics", s.source, s.samples, s.runs, s.span, s.frequency_ppm, s.skew_ppm, s.offset, s.std_dev);
    const ActivityData& a = *reports.activity;
    text += row("activity", a.online, a.offline, a.burst_online, a.burst_offline, a.unresolved);
    for (const SelectionData& s : *reports.selection)
        text += row("selection", s.letter, s.source, s.authenticated, s.configured_options, s.effective_options, s.last,
                    s.score, s.low, s.high, s.leap);
    for (const AuthenticationData& s : *reports.authentication)
        text += row("authentication", s.source, s.mode, s.last_key_exchange, s.cookies);
    for (const NtpData& n : *reports.ntp)
        text += row("ntp", n.source, n.leap, n.stratum, n.reference_id, n.root_delay, n.root_dispersion, n.sent,
                    n.received, n.valid, n.good);
    const ServerData& s = *reports.server;
    return text + row("server", s.ntp_received, s.ntp_dropped, s.command_received, s.command_dropped,
                      s.client_records_dropped);
}

TEST(ChronyData, EveryColumnIsReadAndWhatNeverWasIsNotZero) {
    Capture capture = divided(open_lines);
    capture.reports["selectdata"].text =
        "*,127.0.0.1,Y,-,P,-,-,-,-,P,T,-,-,0,1.5,-0.000001879,0.000003026,Normal\n"
        "s,127.0.0.2,N,-,-,-,-,-,-,-,-,-,-,4294967295,1.0,0.000000000,0.000000000,Not synchronised\n";
    capture.reports["authdata"].text = "127.0.0.1,NTS,1,15,256,3600,0,0,8,100\n";
    capture.reports["ntpdata"].text =
        "127.0.0.1,7F000001,11123,127.0.0.1,7F000001,Normal,4,Server,5,-2,0,-25,0.000000030,0.000015,0.000016,7F7F0101,"
        ",1795329872.631639300,-0.000002082,0.000006393,0.000000052,0.000063469,0.48,111,111,1111,No,No,Kernel,Kernel,"
        "29,28,27,26\n";
    capture.reports["serverstats"].text = "1598,8,19,1,2,3,0,189,43,44,120\n";
    const ChronyReports reports = reports_in(capture);
    EXPECT_TRUE(reports.problems.empty());
    testing::expect_as_kept(told(reports), "reports");
}

TEST(ChronyData, KeepsLinesThatDoNotFitAndGoesOn) {
    Capture capture = capture_of({}, {{.address = "192.0.2.1"}});
    capture.reports["sources"].text += "^,*,192.0.2.2,5,-2,377\n^,*,192.0.2.3,5,x,377,0,0.0,0.0,0.0\n";
    const ChronyReports reports = reports_in(capture);
    ASSERT_TRUE(reports.sources);
    EXPECT_EQ(reports.sources->size(), 1U);
    ASSERT_EQ(reports.problems.size(), 2U);
    EXPECT_EQ(english(reports.problems[0]),
              "A line of the report \"sources\" has 6 columns instead of 10: ^,*,192.0.2.2,5,-2,377");
}

TEST(ChronyData, ARefusalEndsTheListAndBelongsToWhatWasAskedNext) {
    for (const auto& [output, refused] :
         {std::pair{std::string("506 Cannot talk to daemon\n"), "tracking"},
          std::pair{std::string(open_lines).substr(0, std::string(open_lines).find('\n') + 1) + "501 Not authorised\n",
                    "sources"}}) {
        const auto reports = divided_reports(output, open_reports);
        ASSERT_TRUE(reports.contains(refused)) << output;
        EXPECT_FALSE(reports.at(refused).refusal.empty());
        EXPECT_FALSE(reports.contains("activity")) << "nobody knows";
    }
    const auto empty = divided_reports(
        std::string(open_lines).substr(0, std::string(open_lines).find('\n') + 1) + "0,0,0,0,0\n", open_reports);
    ASSERT_TRUE(empty.contains("sources"));
    EXPECT_TRUE(reports_in(divided("")).sources == std::nullopt);
    Capture capture;
    capture.reports = empty;
    EXPECT_TRUE(reports_in(capture).sources->empty()) << "no source is not the same as not known";
}

TEST(ChronyData, NoUpdateIsOfAYearBeyondTheCalendar) {
    for (const auto& [moment, is_there] : {std::pair{"1795329879.384664781", true},
                                           {"253402300799.9", true},
                                           {"253402300800.0", false},
                                           {"17953298792384664781", false},
                                           {"-1.0", false}}) {
        const ChronyReports reports = reports_in(capture_of({.time = moment}, {}));
        ASSERT_TRUE(reports.tracking) << moment;
        EXPECT_EQ(reports.tracking->reference_time.has_value(), is_there) << moment;
    }
}

TEST(ChronyData, ReportsOfOtherVersionsKeepTheirNames) {
    struct Case {
        std::vector<std::string> asked;
        std::string output;
        std::string report; // in which there is a line of another version
        std::string sentence;
    };
    const std::string all = open_lines;
    const std::string tracking = all.substr(0, all.find('\n') + 1);
    const std::string authdata = "127.0.0.1,NTS,1,15,256,3600,0,0,8,100\n";
    const std::string source = "^,*,127.0.0.1,5,-2,377,0,0.1,0.2,0.3\n";
    for (const auto& [asked, output, report, sentence] : {
             Case{open_reports, "a," + all, "tracking",
                  "A line of the report \"tracking\" has 15 columns instead of 14: a," +
                      tracking.substr(0, tracking.size() - 1)},
             {open_reports, tracking + source + "a,2,3\n2,0,0,0,1\n", "sourcestats",
              "A line of the report \"sourcestats\" has 3 columns instead of 8: a,2,3"},
             {open_reports, tracking + "#,*,A,B,0,4,17,5,0.1,0.2,0.3\n" + source + "2,0,0,0,1\n", "sources",
              "A line of the report \"sources\" has 11 columns instead of 10: #,*,A,B,0,4,17,5,0.1,0.2,0.3"},
             {root_reports, authdata + "1,2\n3,4,5\n", "serverstats",
              "A line of the report \"serverstats\" has 3 columns instead of 11 or 17: 3,4,5"},
         }) {
        Capture capture;
        capture.reports = divided_reports(output, asked);
        const ChronyReports reports = reports_in(capture);
        const auto odd =
            std::ranges::find(reports.problems, report, [](const Failure& one) { return one.arguments[0]; });
        ASSERT_NE(odd, reports.problems.end()) << report;
        EXPECT_EQ(english(*odd), sentence);
        EXPECT_EQ(asked == open_reports, reports.activity.has_value()) << "the rest goes on";
        EXPECT_TRUE(asked != open_reports || !reports.sources->empty()) << report;
    }
    const auto newer = divided_reports(authdata + "518 Packet length mismatch\n", root_reports);
    EXPECT_EQ(newer.at("ntpdata").refusal, "518 Packet length mismatch");
    EXPECT_EQ(newer.at("authdata").text, authdata);
    EXPECT_FALSE(newer.contains("serverstats"));
}

TEST(ChronyData, NamesAreJoinedOnlyWhereTheRowsAreTheSame) {
    Capture capture = capture_of({}, {{.address = "192.0.2.1"}, {.address = "192.0.2.2", .poll = "7"}});
    capture.reports["sources -N"].text = testing::ReportedSource{.address = "one"}.in_sources() +
                                         testing::ReportedSource{.address = "two", .poll = "7"}.in_sources();
    EXPECT_EQ(reports_in(capture).names.at("192.0.2.2"), "two");
    capture.reports["sources -N"].text = testing::ReportedSource{.address = "two", .poll = "7"}.in_sources();
    EXPECT_TRUE(reports_in(capture).names.empty());
}

TEST(Capture, SurvivesBeingWritten) {
    Capture capture = capture_of({}, {{.address = "192.0.2.1", .selected = '*'}});
    capture.facts["steers"] = "no";
    capture.reports["ntpdata"].refusal = "501 Not authorised";
    capture.configuration = {{.path = "/etc/chrony/chrony.conf", .text = "server 192.0.2.1\n\n! no\n> tracking\n"},
                             {.path = "/etc/b", .text = "| x\n"}};
    const std::string text = to_text(capture);
    EXPECT_TRUE(is_capture(text));
    const auto back = parse_capture(text);
    ASSERT_TRUE(back) << english(back.error());
    EXPECT_EQ(to_text(*back), text);
    EXPECT_EQ(back->configuration[0].text, capture.configuration[0].text);
    EXPECT_EQ(back->reports.at("ntpdata").refusal, "501 Not authorised");
    EXPECT_EQ(reports_in(*back).steers, false);
    EXPECT_EQ(reports_in(*back).sources->size(), 1U);
}

TEST(Capture, TakesWhatItDoesNotKnowAndRefusesWhatIsNone) {
    const auto lines = [](const std::string& text) {
        return parse_capture("# tickervantage capture 1\r\n" + text);
    };
    const auto unknown = lines("@ weather fine\n\n# a remark\n> frobnicate -v\na,b\n@ host h\n@ time never\n");
    ASSERT_TRUE(unknown);
    EXPECT_EQ(unknown->facts.at("host"), "h");
    EXPECT_FALSE(reports_in(*unknown).now);
    const auto astray = lines("@ host h\na,b,c\n");
    ASSERT_FALSE(astray);
    EXPECT_EQ(english(astray.error()), "Line 3 of the capture belongs to no report.");
    EXPECT_FALSE(parse_capture("# tickervantage capture 2\n"));
    EXPECT_FALSE(parse_capture(""));
    EXPECT_FALSE(parse_capture("# tickervantage capture 1\n" + std::string(largest_capture, ' ')));
}

TEST(ConfigurationLines, AreFoundByNameAddressOrTheIdOfAClock) {
    const ConfigurationLines lines(std::vector<CapturedFile>{
        {"/a", "# c\nserver a.example iburst\nrefclock PPS /dev/pps0\nrefclock SHM 0 refid GPS\n\nPool b.example\n"
               "refclock PHC /dev/ptp0 refid\nmaxdistance 1\nrefclock PPS\nserver\n"},
        {"/b", "peer c\n  maxdistance  2.5 s \nserver a.example\nuser x"}});
    struct Case {
        const char* source;
        const char* name;
        const char* path; // empty: no line
        int line;
    };
    for (const Case& one :
         {Case{"192.0.2.1", "A.Example", "/a", 2}, Case{"a.example", "", "/a", 2}, Case{"PPS0", "", "/a", 3},
          Case{"GPS", "", "/a", 4}, Case{"SHM1", "", "", 0}, Case{"b.example", "", "/a", 6}, Case{"PHC2", "", "/a", 7},
          Case{"PPS3", "", "", 0}, Case{"C", "", "/b", 1}, Case{"d", "", "", 0}, Case{"", "", "", 0}}) {
        const auto found = lines.line_of(one.source, one.name).value_or(SourceLine());
        EXPECT_EQ(found.path, one.path) << one.source;
        EXPECT_EQ(found.line, one.line) << one.source;
    }
    EXPECT_EQ(lines.values("maxdistance"), (std::vector<std::string>{"1", "2.5 s"}));
    EXPECT_EQ(lines.number("maxdistance"), 2.5);
    EXPECT_EQ(lines.number("user"), std::nullopt);
    EXPECT_EQ(lines.number("nothing"), std::nullopt);
}

TEST(Capture, MomentsAreUtc) {
    for (const auto& [text, seconds] :
         {std::pair{"1970-01-01T00:00:00Z", 0.0}, std::pair{"2026-11-22T05:23:20Z", 1795325000.0}}) {
        EXPECT_EQ(moment_in(text), seconds);
        EXPECT_EQ(text_of_moment(seconds), text);
    }
    EXPECT_EQ(moment_in("1970-01-01T00:00:01.25Z"), 1.25);
    for (const char* text : {"", "1970-01-01", "1970-13-01T00:00:00Z", "1970-02-30T00:00:00Z", "1970-01-01T24:00:00Z",
                             "1970-01-01T00:00:00", "1970-01-01T00:00:00+01:00", "-970-01-01T00:00:00Z"})
        EXPECT_FALSE(moment_in(text)) << text;
}

} // namespace
} // namespace tickervantage
