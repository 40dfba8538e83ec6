// What tickerctl makes of captures: of chrony 4.3, of later versions put together by hand, and of hostile ones.
#include "cli/status/status_command.h"
#include "cli/status/truth_command.h"
#include "support/child_program.h"
#include "support/kept_text.h"
#include "support/tracking_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace tickervantage {
namespace {

std::string captured(const std::string& name) {
    return testing::contents(std::string(CAPTURES) + "/" + name + ".txt");
}

ClockTruth reading_in(const std::string& text) {
    const auto capture = parse_capture(text);
    EXPECT_TRUE(capture) << text.substr(0, 100);
    return capture ? reading_of(*capture) : ClockTruth();
}

struct Told {
    std::ostringstream out;
    int status = -1;
};

Told told(const std::string& command, const ClockTruth& reading, DocumentForm form) {
    Told told;
    if (command == "status")
        told.status = print_status(reading, meterView::systemtime, form, told.out);
    else if (command == "sources")
        told.status = print_sources(reading.sources, form, told.out);
    else if (command == "explain")
        told.status = print_explanations(reading.explanations, form, told.out);
    else
        told.status = print_budget(reading, form, told.out);
    return told;
}

const std::vector<std::string> commands{"status", "sources", "explain", "budget"};

std::string all_told(const ClockTruth& reading) {
    std::string all;
    for (const std::string& complaint : complaints_of(reading.reports))
        all += "! " + complaint + '\n';
    for (const std::string& command : commands) {
        const Told text = told(command, reading, DocumentForm::text);
        const Told line = told(command, reading, DocumentForm::json_line);
        EXPECT_EQ(text.status, line.status) << command;
        all += "== " + command + " -> " + std::to_string(text.status) + '\n' + text.out.str() + line.out.str();
    }
    return all;
}

TEST(TruthCommand, TellsCapturesOfEveryVersionAsKept) {
    for (const char* name : {"chrony-4.3", "chrony-4.8", "chrony-next", "tracking-of-15-columns", "silent"})
        testing::expect_as_kept(all_told(reading_in(captured(name))), "told_" + std::string(name));
}

TEST(TruthCommand, PlaceholdersOfASourceThatWasNeverHeardAreNull) {
    const auto list = Json::parse(told("sources", reading_in(captured("chrony-4.8")), DocumentForm::json).out.str());
    const auto& silent = list.at(4);
    EXPECT_EQ(silent.at("source"), "192.0.2.5");
    for (const char* key : {"last_rx", "offset", "measured", "error", "frequency", "skew", "std_dev", "low", "high"}) {
        EXPECT_TRUE(silent.at(key).is_null()) << key;
        EXPECT_TRUE(list.at(0).at(key).is_number()) << key;
    }
    EXPECT_EQ(silent.at("samples"), 0);
    EXPECT_EQ(told("sources", {}, DocumentForm::json).out.str(), "[]\n");
}

TEST(TruthCommand, WhatASavedReportLacksIsNull) {
    const auto lacking = [](const std::string& field) {
        std::string text = testing::tracking_text();
        text.erase(text.find(field), text.find('\n', text.find(field)) - text.find(field));
        return Json::parse(told("status", reading_of_text(text), DocumentForm::json).out.str());
    };
    const Json without_time = lacking("System time");
    EXPECT_TRUE(without_time.at("systemtime").is_null() && without_time.at("bound").is_null());
    EXPECT_TRUE(without_time.at("meter").at("value").is_null());
    EXPECT_EQ(without_time.at("verdict"), "synchronised");
    EXPECT_TRUE(lacking("RMS offset").at("expected").is_null());
    EXPECT_TRUE(lacking("Ref time").at("reference").at("time").is_null());
    const Json nothing = lacking("Leap status");
    EXPECT_EQ(nothing.at("verdict"), "unavailable");
    for (const char* key : {"since", "bound", "growth", "expected", "steers", "frequency", "rmsoffset", "leapstatus"})
        EXPECT_TRUE(nothing.at(key).is_null()) << key;
}

// Servers that call themselves anything, in every place where their names come by.
TEST(TruthCommand, HostileNamesStayWithinALine) {
    std::string text = captured("chrony-4.8");
    const auto replace_all = [&text](const std::string& from, const std::string& to) {
        for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
            text.replace(at, from.size(), to);
    };
    replace_all("ntp1.example.net", std::string(10'000, 'n'));
    replace_all("ntp2.example.net", "\x1b]0;title\x07\x7f");
    replace_all("192.0.2.9", "\x1b[31m" + std::string(10'000, 'a'));
    replace_all("L,", "\x1b,");
    const ClockTruth reading = reading_in(text);
    for (const std::string& command : commands) {
        const std::string shown = told(command, reading, DocumentForm::text).out.str();
        EXPECT_TRUE(std::ranges::none_of(shown, [](unsigned char sign) {
            return (sign < 0x20 && sign != '\n') || sign == 0x7f;
        })) << command;
        std::istringstream lines(shown);
        for (std::string line; std::getline(lines, line);)
            EXPECT_LE(line.size(), 410U) << command << line.substr(0, 80);
        EXPECT_TRUE(Json::accept(told(command, reading, DocumentForm::json).out.str())) << command;
    }
    EXPECT_LT(unknown_source(std::string(10'000, 'x'), reading.explanations).size(), 2000U);
}

TEST(TruthCommand, AProbeIsToldInOneSentence) {
    const ProbeRequest request{.host = "192.0.2.1", .chronyd = {}, .user = {}};
    std::ostringstream out;
    EXPECT_EQ(print_probe(request, {.offset = -0.0025, .seconds = 0.25}, DocumentForm::text, out), 0);
    EXPECT_EQ(out.str(), "192.0.2.1 answers: this clock is 2.50 ms behind it, as measured within 250 ms.\n");
    out.str({});
    EXPECT_EQ(print_probe(request, {}, DocumentForm::json_line, out), 1);
    EXPECT_EQ(out.str(), "{\"host\":\"192.0.2.1\",\"port\":123,\"nts\":false,\"answered\":false,\"offset\":null,"
                         "\"seconds\":0.0,\"sentence\":\"192.0.2.1 gave no answer.\"}\n");
}

} // namespace
} // namespace tickervantage
