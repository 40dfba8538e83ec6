// How long the clock was right within a limit: against seconds that are counted one by one.
#include "cli/logs/evidence_command.h"
#include "studies/evidence/evidence_page.h"
#include "support/test.h"

#include "base/local_clock.h"

#include <fmt/format.h>

#include <random>

namespace tickervantage {
namespace {

constexpr std::int64_t midnight = 1795219200;

struct Record {
    std::int64_t time = 0;
    double bound = 0; // s; below 0: the log has none
    bool has_reference = true;
};

Evidence sum_of(const std::vector<Record>& records, const EvidenceQuestion& question) {
    EvidenceSum sum(question);
    for (const Record& record : records) {
        const std::string text =
            fmt::format("{} {} {} -12.3 0.02 1e-5 {} 2 1e-5 1e-6 1e-3 1e-3{}", utc_date_time(record.time),
                        record.has_reference ? "192.0.2.1" : "0.0.0.0", record.has_reference ? 3 : 0,
                        record.has_reference ? 'N' : '?', record.bound < 0 ? "" : fmt::format(" {:.3e}", record.bound));
        TrackingLine line;
        EXPECT_TRUE(read_tracking_line(text, line)) << text;
        sum.add(line);
    }
    return sum.result();
}

// What each second of the period is: within, outside, or without evidence.
std::string seconds_of(const std::vector<Record>& records, const EvidenceQuestion& question) {
    std::string seconds(static_cast<std::size_t>(question.to - question.from), '-');
    std::string back(seconds.size(), ' ');
    const auto fill = [&](std::string& text, std::int64_t from, std::int64_t to, char what) {
        for (auto at = std::max(from, question.from); at < std::min(to, question.to); ++at)
            text[static_cast<std::size_t>(at - question.from)] = what;
    };
    std::int64_t latest = records.front().time;
    for (std::size_t i = 1; i < records.size(); ++i) {
        const Record& one = records[i];
        const std::int64_t before = records[i - 1].time;
        if (one.time < before)
            fill(back, one.time, latest, 'b');
        const bool proves = one.has_reference && one.bound >= 0 && one.time - before <= question.gap;
        if (one.time > latest)
            fill(seconds, std::max(before, latest), one.time, !proves ? '-' : one.bound <= question.limit ? 'i' : 'o');
        latest = std::max(latest, one.time);
    }
    for (std::size_t at = 0; at < seconds.size(); ++at)
        seconds[at] = back[at] == 'b' ? '-' : seconds[at];
    return seconds;
}

TEST(EvidenceTest, CountsEachSecondOnce) {
    std::mt19937 random(16);
    const auto below = [&](int end) {
        return std::uniform_int_distribution<int>(0, end - 1)(random);
    };
    for (int round = 0; round < 300; ++round) {
        const EvidenceQuestion question{
            .from = midnight + below(400), .to = midnight + 600 + below(3000), .limit = 1e-3, .gap = 50 + below(100)};
        std::vector<Record> records;
        std::int64_t time = midnight + below(600);
        for (int i = below(80) + 1; i > 0; --i) {
            records.push_back({time, below(10) == 0 ? -1 : below(5) == 0 ? 2e-3 : 5e-4, below(8) != 0});
            time += below(15) == 0 ? -below(300) : below(10) == 0 ? below(400) : below(65);
        }
        SCOPED_TRACE(round);
        const Evidence evidence = sum_of(records, question);
        const std::string seconds = seconds_of(records, question);
        EXPECT_EQ(evidence.within, std::ranges::count(seconds, 'i'));
        EXPECT_EQ(evidence.outside, std::ranges::count(seconds, 'o'));
        EXPECT_EQ(evidence.without, std::ranges::count(seconds, '-'));
        std::int64_t listed = 0;
        for (const EvidenceGap& gap : evidence.gaps)
            listed += gap.to - gap.from;
        EXPECT_EQ(listed, evidence.without);
        for (const Excursion& one : evidence.excursions)
            listed += one.to - one.from;
        EXPECT_EQ(listed, evidence.without + evidence.outside);
    }
}

TEST(EvidenceTest, NamesExcursionsAndWhyThereIsNone) {
    const Evidence evidence = sum_of({{midnight + 100, 1},
                                      {midnight + 164, 1e-3}, // on the limit is within it
                                      {midnight + 228, 1.001e-3},
                                      {midnight + 292, 3e-3},
                                      {midnight + 356, 1e-4},
                                      {midnight + 420, 0, false},
                                      {midnight + 484, -1},
                                      {midnight + 4581, 1e-4}, // 4097 s later
                                      {midnight + 4645, 1e-4},
                                      {midnight + 4600, 1e-4}, // back
                                      {midnight + 4700, 2e-4}},
                                     {.from = midnight, .to = midnight + 5000, .limit = 1e-3});
    EXPECT_EQ(
        json_text(evidence_json(evidence, {{"tracking.log", "00ff", 11}}), -1),
        R"({"from":"2026-11-21T00:00:00Z","to":"2026-11-21T01:23:20Z","limit":0.001,"gap":4096,)"
        R"("seconds_within":202,"seconds_outside":128,"seconds_without":4670,"largest":0.003,)"
        R"("excursions":[{"from":"2026-11-21T00:02:44Z","to":"2026-11-21T00:04:52Z","largest":0.003}],)"
        R"("gaps":[{"from":"2026-11-21T00:00:00Z","to":"2026-11-21T00:01:40Z","reason":"before the first record"},)"
        R"({"from":"2026-11-21T00:05:56Z","to":"2026-11-21T00:07:00Z","reason":"no reference"},)"
        R"({"from":"2026-11-21T00:07:00Z","to":"2026-11-21T00:08:04Z","reason":"no bound of the error in the log"},)"
        R"({"from":"2026-11-21T00:08:04Z","to":"2026-11-21T01:16:21Z","reason":"no record for too long"},)"
        R"({"from":"2026-11-21T01:16:40Z","to":"2026-11-21T01:17:25Z","reason":"the time of the records went back"},)"
        R"({"from":"2026-11-21T01:18:20Z","to":"2026-11-21T01:23:20Z","reason":"after the last record"}],)"
        R"("files":[{"name":"tracking.log","sha256":"00ff","records":11}]})"
        "\n");
    EXPECT_FALSE(evidence.holds());
    EXPECT_EQ(EvidenceSum({.from = 0, .to = 7, .limit = 1}).result().without, 7);
}

TEST(EvidenceTest, RoundsAgainstTheClock) {
    const std::pair<double, const char*> errors[] = {
        {0, "0 s"},           {1e-3, "1.00 ms"},  {1.0001e-3, "1.01 ms"}, {9.999e-6, "10.0 µs"},
        {99.91e-9, "100 ns"}, {0.9991, "1.00 s"}, {3e-4, "300 µs"},       {1234.5, "1235 s"}};
    for (const auto& [seconds, text] : errors)
        EXPECT_EQ(rounded_up(seconds), text);
    EXPECT_EQ(percent_down(99999, 100000), "99.999 %");
    EXPECT_EQ(percent_down(999999, 1000000), "99.999 %");
    EXPECT_EQ(percent_up(1, 1000000000), "0.001 %");
    EXPECT_EQ(percent_up(0, 5), "0.000 %");
}

TEST(EvidenceTest, ReadsLimits) {
    const std::pair<const char*, std::optional<double>> limits[] = {
        {"1ms", 1e-3},  {"0.3 ms", 3e-4}, {"250us", 250e-6}, {"250 µs", 250e-6}, {"7ns", 7e-9},
        {"2s", 2.0},    {"0.1", 0.1},     {"1e-3", 1e-3},    {"0", {}},          {"-1ms", {}},
        {"1e-3ms", {}}, {"ms", {}},       {"", {}},          {"1 min", {}},      {"inf", {}}};
    for (const auto& [text, seconds] : limits)
        EXPECT_EQ(limit_in(text), seconds) << text;
    EXPECT_EQ(evidence_command({"/var/log/chrony", "it's"}, {.from = 0, .to = 86400, .limit = 1e-3, .gap = 60}),
              "tickerctl evidence /var/log/chrony 'it'\\''s' --from 1970-01-01T00:00:00Z --to 1970-01-02T00:00:00Z "
              "--limit 0.001 --gap 60");
}

TEST(EvidenceTest, IsAPageThatAStrangerMayRead) {
    const Evidence evidence = sum_of({{midnight, 1}, {midnight + 64, 2e-3}, {midnight + 128, 1e-4}},
                                     {.from = midnight, .to = midnight + 128, .limit = 1e-3});
    const std::string page = evidence_html(evidence, {{{"<b>.log", "00ff", 3}}, "tickerctl evidence '<b>.log'", "9.9"});
    for (const char* words : {"No: for 1 min 4 s the error may have been larger than 1 ms.", "50.000 %", "2.00 ms",
                              "Max. error", "&lt;b&gt;.log", "00ff", "Tickervantage 9.9", "2026-11-21T00:02:08Z"})
        EXPECT_NE(page.find(words), std::string::npos) << words;
    EXPECT_EQ(page.find("<b>.log"), std::string::npos);
    EXPECT_EQ(page.find("complian"), std::string::npos);
}

} // namespace
} // namespace tickervantage
