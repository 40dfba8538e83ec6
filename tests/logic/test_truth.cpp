#include "chrony/truth/explain.h"
#include "chrony/truth/headline.h"
#include "chrony/truth/newest_offsets.h"
#include "chrony/truth/verdict.h"
#include "support/child_program.h"
#include "support/chrony_reports.h"
#include "support/kept_text.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tickervantage {
namespace {

using testing::capture_of;
using testing::never;
using testing::ReportedSource;
using testing::TrackingLine;

const std::string ntp_silent = ",7F000002,11124,[UNSPEC],00000000,Normal,0,Invalid,0,0,1,0,1.000000000,0.000000,"
                               "0.000000,00000000,,0.000000000,0.000000000,0.000000000,0.000000000,0.000000000,0.00,"
                               "000,000,0000,No,No,Invalid,Invalid,6,";

ChronyReports reports_of(const TrackingLine& tracking, const std::vector<ReportedSource>& sources) {
    return reports_in(capture_of(tracking, sources));
}

TEST(Verdict, IsTheFirstThatFits) {
    struct Case {
        const char* name;
        TrackingLine tracking;
        std::vector<ReportedSource> sources;
        Verdict verdict;
    };
    const ReportedSource good{.address = "192.0.2.1"};
    const std::vector<Case> cases{
        {"followed", {}, {good}, Verdict::synchronised},
        {"another in use", {}, {{.address = "192.0.2.2", .letter = '+'}}, Verdict::synchronised},
        {"own clock", {.id = "7F7F0101", .address = "127.127.1.1"}, {}, Verdict::local},
        {"own clock beside a source", {.id = "7F7F0101"}, {good}, Verdict::local},
        {"leap unknown", {.leap = "Not synchronised"}, {good}, Verdict::unsynchronised},
        {"a word that nobody knows", {.leap = "Frobnicated"}, {good}, Verdict::unsynchronised},
        {"no reference", {.id = "00000000", .address = ""}, {good}, Verdict::unsynchronised},
        {"none in use", {}, {{.address = "192.0.2.1", .letter = '?'}}, Verdict::holdover},
        {"no source left", {}, {{.address = "192.0.2.1", .letter = '-'}}, Verdict::holdover},
        {"silent for four polls", {}, {{.address = "a", .last = "256"}}, Verdict::synchronised},
        {"silent for longer", {}, {{.address = "a", .last = "257"}}, Verdict::holdover},
        {"silent for a short poll", {}, {{.address = "a", .last = "4", .poll = "-2"}}, Verdict::synchronised},
        {"silent for longer than that", {}, {{.address = "a", .last = "5", .poll = "-2"}}, Verdict::holdover},
        {"one of two is heard", {}, {{.address = "a", .last = "5000"}, good}, Verdict::synchronised},
        {"slewing far", {.system_time = "0.020000001"}, {good}, Verdict::correcting},
        {"slewing the other way", {.system_time = "-0.020000001"}, {good}, Verdict::correcting},
        {"within ten distances", {.system_time = "0.020000000"}, {good}, Verdict::synchronised},
        {"too little to speak of",
         {.system_time = "0.000999", .root_delay = "0.000000000", .root_dispersion = "0.000000001"},
         {good},
         Verdict::synchronised},
        {"leap second", {.leap = "Insert second"}, {good}, Verdict::leap},
        {"leap second to be left out", {.leap = "Delete second"}, {good}, Verdict::leap},
    };
    for (const Case& one : cases) {
        ChronyReports reports = reports_of(one.tracking, one.sources);
        if (!reports.sources)
            reports.sources.emplace();
        EXPECT_EQ(name_of(judge(reports)), name_of(one.verdict)) << one.name;
    }
    EXPECT_EQ(judge({}), Verdict::unavailable);
    EXPECT_EQ(judge(reports_of({}, {})), Verdict::synchronised) << "a saved report knows no sources";
}

TEST(Verdict, BudgetAddsUpToTheBound) {
    const auto budget = error_budget(reports_of({.system_time = "-0.003"}, {{.address = "192.0.2.1"}}), 2);
    ASSERT_TRUE(budget);
    EXPECT_DOUBLE_EQ(budget->bound, 0.003 + 0.001 + 0.001);
    EXPECT_DOUBLE_EQ(budget->correction, 0.003);
    EXPECT_DOUBLE_EQ(budget->delay, 0.001);
    EXPECT_DOUBLE_EQ(budget->growth, (0.247 + 0.003 + 2) * 1e-6);
    EXPECT_DOUBLE_EQ(budget->age.value_or(0), 10);
    EXPECT_DOUBLE_EQ(budget->dispersion_growth, 10 * budget->growth);
    EXPECT_EQ(budget->bound,
              budget->correction + budget->delay + budget->dispersion_measured + budget->dispersion_growth);

    const auto old = error_budget(reports_of({.time = "1.5"}, {{.address = "192.0.2.1"}}));
    ASSERT_TRUE(old);
    EXPECT_EQ(old->dispersion_growth, 0.001) << "never more than the dispersion there is";
    EXPECT_EQ(old->dispersion_measured, 0);
    const auto ahead = error_budget(reports_of({.time = "1895325000.0"}, {{.address = "192.0.2.1"}}));
    ASSERT_TRUE(ahead);
    EXPECT_EQ(ahead->age, 0) << "the clock was stepped back";

    for (const TrackingLine& none : {TrackingLine{.id = "7F7F0101"}, TrackingLine{.id = "00000000"}})
        EXPECT_FALSE(error_budget(reports_of(none, {{.address = "192.0.2.1"}}))) << none.id;
    EXPECT_FALSE(error_budget({}));
    EXPECT_TRUE(error_budget(reports_of({}, {{.address = "a", .letter = '?'}}))) << "in holdover there is one";
}

TEST(Verdict, ExpectedErrorIsThatOfMostOffsets) {
    const ChronyReports reports = reports_of({}, {{.address = "192.0.2.1"}});
    EXPECT_DOUBLE_EQ(expected_error(reports).value(), 2 * 0.000001408);
    EXPECT_DOUBLE_EQ(expected_error(reports, std::vector<double>(15, 1.0)).value(), 2 * 0.000001408);
    std::vector<double> offsets{1000};
    for (int i = 1; i <= 64; ++i)
        offsets.push_back(i % 2 == 0 ? i : -i);
    EXPECT_DOUBLE_EQ(expected_error(reports, offsets).value(), 61) << "the 61st of the newest 64";
    EXPECT_FALSE(expected_error({}, offsets));
}

TEST(Verdict, NewestOffsetsAreThoseAtTheEndOfTheLog) {
    const testing::PrivateHome home;
    std::string log = "=====\n   Date (UTC) Time     IP Address   St   Freq ppm   Skew ppm     Offset L Co\n";
    for (int record = 1; record <= 1000; ++record)
        log += "2026-11-22 05:23:20 192.0.2.1        3     -0.156      0.247 " + std::to_string(record) +
               "e-06 N  1  1.0e-06  1.0e-06  2.0e-03  1.0e-03  1.0e-03\n";
    log += "2026-11-22 05:23:20 0.0.0.0          0     -0.156      0.247  0.000e+00 ?  0  0.0e+00  0.0e+00  1 1 1\n";
    testing::write_file(home.path("tracking.log"), log);
    const auto offsets_with = [&](const std::string& configuration) {
        return newest_offsets({{.path = "c", .text = configuration}});
    };
    const std::string folder = "LogDir " + home.path() + "\n";
    const auto offsets = offsets_with(folder + "log statistics\nlog rtc tracking\n");
    ASSERT_EQ(offsets.size(), 64U);
    EXPECT_DOUBLE_EQ(offsets.front(), 937e-6);
    EXPECT_DOUBLE_EQ(offsets.back(), 1000e-6);
    for (const std::string& none : {folder, folder + "log measurements\n", std::string("log tracking\n"),
                                    std::string("log tracking\nlogdir /nonexistent\n"), std::string()})
        EXPECT_TRUE(offsets_with(none).empty()) << none;
}

TEST(Headline, SaysEachVerdictWithItsReasonAndTheErrorInTwoNumbers) {
    struct Case {
        TrackingLine tracking;
        std::vector<ReportedSource> sources;
        std::string words;
        std::string error;
    };
    const ReportedSource silent{.address = "192.0.2.2", .letter = '?', .reach = "0", .last = "5000"};
    const ReportedSource wrong{.address = "192.0.2.3", .letter = 'x', .selected = 'x'};
    const ReportedSource good{.address = "192.0.2.1", .selected = '*'};
    const std::string unknown = "Nothing tells how far off the clock is.";
    const std::string sure = "Certainly within ±2.00 ms, probably within ±2.82 µs.";
    const std::string growing = "Certainly within ±2.00 ms, growing 4.50 ms an hour.";
    const std::vector<Case> cases{
        {{}, {good}, "Synchronised: chronyd follows 192.0.2.1.", sure},
        {{},
         {good, {.address = "b", .letter = '+', .selected = '+'}, silent},
         "Synchronised: chronyd follows 192.0.2.1, the best of 2 that it uses together.",
         sure},
        {{.root_delay = "0.000000001", .root_dispersion = "0.000000001"},
         {good},
         "Synchronised: chronyd follows 192.0.2.1.",
         "Certainly within ±346 ns."},
        {{}, {silent}, "Holdover since 06:23: its only source, 192.0.2.2, does not answer.", growing},
        {{.time = "1795289400.0"},
         {silent, silent, silent},
         "Holdover since 2026-11-21 20:30: none of 3 sources answers.",
         growing},
        {{}, {wrong, silent}, "Holdover since 06:23: none of 2 sources can be used.", growing},
        {{},
         {{.address = "a", .letter = '?', .selected = 'd'}},
         "Holdover since 06:23: its only source, a, cannot be used.",
         growing},
        {{.system_time = "0.5"},
         {good},
         "Correcting, 500 ms left: the clock is behind, and chronyd makes it run faster until it is right.",
         "Certainly within ±502 ms."},
        {{.leap = "Delete second"},
         {good},
         "Synchronised, leap second pending: a second is left out at the end of this month (UTC).",
         sure},
        {{.id = "7F7F0101"},
         {silent},
         "Own time only: chronyd takes this machine's own clock for right (directive local).",
         unknown},
        {{.id = "00000000"}, {silent, silent}, "Not synchronised: none of 2 sources answers.", unknown},
        {{.id = "00000000"},
         {wrong, wrong},
         "Not synchronised: 2 sources contradict each other, and no majority tells "
         "which are right.",
         unknown},
    };
    for (const Case& one : cases) {
        const ChronyReports reports = reports_of(one.tracking, one.sources);
        const auto answer = headline(reports, error_budget(reports), expected_error(reports),
                                     [](std::int64_t) { return std::int64_t{3600}; });
        ASSERT_TRUE(answer.reason) << one.words;
        EXPECT_EQ(english(answer.name) + ": " + english(*answer.reason), one.words);
        EXPECT_EQ(english(answer.error), one.error) << one.words;
        EXPECT_FALSE(answer.caution);
    }
    ChronyReports unasked = reports_of({}, {});
    EXPECT_FALSE(headline(unasked, {}, {}).reason) << "a saved report knows no sources";
    unasked.steers = false;
    EXPECT_TRUE(headline(unasked, {}, {}).caution);
    EXPECT_EQ(english(headline({}, {}, {}).name), "Not available");
}

TEST(JudgedSource, HasTheRuleOfItsLetterAndItsReports) {
    struct Case {
        ReportedSource source;
        const char* rule;
    };
    const std::vector<Case> cases{
        {{.letter = '*', .selected = '*'}, "best"},
        {{.letter = '*', .reach = "0"}, "best"},
        {{.letter = '+', .selected = '+'}, "combined"},
        {{.letter = '?', .selected = 'N', .reach = "0"}, "noselect"},
        {{.address = "ID#0000000001", .letter = '?', .selected = 's', .last = never}, "unresolved"},
        {{.address = "ID#0000000001", .letter = '?', .selected = 'M', .last = never}, "unresolved"},
        {{.letter = '?', .selected = 's', .reach = "0", .last = never}, "unanswered"},
        {{.letter = '?', .selected = 'M', .reach = "0", .last = never}, "unanswered"},
        {{.letter = '?', .reach = "0", .last = never}, "unanswered"},
        {{.letter = '?', .selected = 's', .leap = "Not synchronised"}, "unsynchronised"},
        {{.letter = '?', .selected = 'M', .leap = "Not synchronised"}, "unsynchronised"},
        {{.letter = '?', .selected = 'M'}, "few_measurements"},
        {{.letter = '?', .selected = 'x', .reach = "0"}, "unreachable"},
        {{.letter = '-', .selected = 'd'}, "distant"},
        {{.letter = '~', .selected = '~'}, "jittery"},
        {{.letter = '~'}, "jittery"},
        {{.letter = '?', .selected = 'w'}, "waiting"},
        {{.letter = 'x', .selected = 'x'}, "falseticker"},
        {{.letter = '-', .selected = 'W'}, "required"},
        {{.letter = '-', .selected = 'P'}, "not_preferred"},
        {{.letter = '-', .selected = 'U'}, "new_measurement"},
        {{.letter = '-', .selected = 'D'}, "not_combined"},
        {{.letter = '-'}, "not_combined"},
        {{.letter = '-', .selected = 'L'}, "outlier"},
        {{.letter = '-', .selected = 'r'}, "stratum"},
        {{.letter = '-', .selected = 'S'}, "stale"},
        {{.letter = '-', .selected = 'O'}, "orphan"},
        {{.letter = '-', .selected = 'T'}, "untrusted"},
        {{.letter = '?', .selected = '!'}, "unknown"},
    };
    for (Case one : cases) {
        if (one.source.address.empty())
            one.source.address = "192.0.2.7";
        // Beside one that agrees with nobody else being there: a falseticker needs a majority against it.
        const auto sources = judged_sources(reports_of({}, {one.source, {.address = "192.0.2.8", .selected = '*'}}));
        ASSERT_EQ(sources.size(), 2U);
        EXPECT_EQ(name_of(sources[0].rule), one.rule) << one.source.letter << one.source.selected;
        EXPECT_EQ(sources[0].letter, one.source.selected == '\0' ? one.source.letter : one.source.selected);
    }
}

TEST(JudgedSource, TellsSilenceFromAnAnswerWithoutTimeByPackets) {
    for (const auto& [received, rule] : {std::pair{"0", "unanswered"}, std::pair{"6", "unsynchronised"}}) {
        Capture capture = capture_of({}, {{.address = "127.0.0.2", .letter = '?', .selected = 's', .last = never}});
        capture.reports["ntpdata"].text = "127.0.0.2" + ntp_silent + received + ",0,0\n";
        const auto sources = judged_sources(reports_in(capture));
        ASSERT_EQ(sources.size(), 1U);
        EXPECT_EQ(name_of(sources[0].rule), rule);
    }
}

TEST(JudgedSource, WithoutAMajorityNobodyIsTheFalseOne) {
    const ReportedSource silent{.address = "c", .letter = '?', .selected = 's', .last = never};
    for (const bool has_majority : {false, true}) {
        std::vector<ReportedSource> reported{
            {.address = "a", .letter = 'x', .selected = 'x'}, {.address = "b", .letter = 'x', .selected = 'x'}, silent};
        if (has_majority)
            reported.push_back({.address = "d", .selected = '*'});
        const auto sources = judged_sources(reports_of({}, reported));
        EXPECT_EQ(name_of(sources[0].rule), has_majority ? "falseticker" : "no_majority");
        EXPECT_EQ(name_of(sources[2].rule), "unanswered");
    }
}

TEST(Explanation, GivesTheNumbersThatDecided) {
    Capture capture = capture_of(
        {}, {{.address = "192.0.2.1", .letter = 'x', .selected = 'x', .interval = "-0.500300000,-0.499800000"},
             {.address = "192.0.2.2", .selected = '*', .interval = "-0.000002800,0.000009000"},
             {.address = "192.0.2.3", .letter = '+', .selected = '+', .interval = "-0.000010000,0.000002100"},
             {.address = "192.0.2.4", .letter = '?', .selected = 'N', .interval = "-0.000010000,0.000002100"}});
    capture.reports["sources -N"].text = capture.reports["sources"].text;
    const std::string first = "192.0.2.1";
    auto& named = capture.reports["sources -N"].text;
    named.replace(named.find(first), first.size(), "bad.example.net");
    capture.configuration = {{.path = "/etc/chrony/chrony.conf", .text = "# servers\nserver 192.0.2.2\n"},
                             {.path = "/etc/chrony/sources.d/a.sources", .text = "\nSERVER Bad.example.net iburst\n"}};
    auto explanations = explanations_of(explain(reports_in(capture), capture.configuration), "bad.example.net");
    ASSERT_EQ(explanations.size(), 1U);
    EXPECT_EQ(explanations[0].source, first);
    ASSERT_TRUE(explanations[0].line);
    EXPECT_EQ(explanations[0].line->line, 2);
    EXPECT_EQ(explanations[0].line->path, "/etc/chrony/sources.d/a.sources");
    ASSERT_EQ(explanations[0].sentences.size(), 2U);
    EXPECT_EQ(
        english(explanations[0].sentences[0]),
        "Its interval, −500.3 ms to −499.8 ms, does not touch the one that 2 of 3 others share, −2.80 µs to +2.10 µs.");
    EXPECT_FALSE(explanations[0].remedies.empty());
    EXPECT_TRUE(explanations_of(explain(reports_in(capture), {}), "nobody").empty());
}

TEST(Explanation, NamesTheLimitOfTheLastLineThatSetsIt) {
    const Capture capture = capture_of({}, {{.address = "192.0.2.1", .letter = '?', .selected = 'd'}});
    const auto explanations =
        explain(reports_in(capture), {{.path = "a", .text = "maxdistance 1\nMaxDistance 0.016 # near ones\n"}});
    EXPECT_EQ(english(explanations.at(0).sentences.at(0)),
              "Its time may be off by more than maxdistance (16.0 ms) allows.");
}

TEST(Explanation, OfEachStateIsAsKeptWithItsNumbersAndWithout) {
    std::string told;
    for (const char selected : std::string("*+NsMd~wxWPUDLrSOT!"))
        for (const bool has_numbers : {true, false}) {
            Capture capture = capture_of({}, {{.address = "127.0.0.2",
                                               .letter = '?',
                                               .selected = selected,
                                               .last = selected == 's' ? never : "5",
                                               .interval = has_numbers ? "-0.5,-0.4" : "0,0"},
                                              {.address = "192.0.2.8", .selected = '*'}});
            if (has_numbers) {
                capture.reports["ntpdata"].text = "127.0.0.2" + ntp_silent + "6,0,0\n";
                capture.reports["sourcestats"].text = "127.0.0.2,3,3,96,0.500,9.000,-0.450,1.5\n";
            }
            const std::string words = english(explain(reports_in(capture), {}).at(0).sentences.at(0));
            if (!told.ends_with(words + '\n')) // where it needs no numbers
                told += std::string(1, selected) + "  " + words + '\n';
        }
    testing::expect_as_kept(told, "explanations");
}

TEST(Explanation, IsNeverLongWhateverAServerCallsItself) {
    const std::string name = std::string(300, 'n') + "\x1b[31m";
    for (const char selected : std::string("*+NsMd~wxWPUDLrSOT!")) {
        Capture capture =
            capture_of({}, {{.address = "ID#0000000001", .letter = '?', .selected = selected, .last = never}});
        capture.reports["sources -N"].text = ReportedSource{.address = name, .letter = '?', .last = never}.in_sources();
        for (const auto& explanation : explain(reports_in(capture), {}))
            for (const auto* list : {&explanation.sentences, &explanation.remedies})
                for (const Sentence& sentence : *list) {
                    const std::string text = english(sentence);
                    EXPECT_LE(text.size(), 400U) << text;
                    EXPECT_EQ(text.find('\x1b'), std::string::npos) << selected;
                    EXPECT_EQ(text.find('%'), std::string::npos) << text;
                }
    }
}

} // namespace
} // namespace tickervantage
