// What `tickerctl log` prints.
#include "base/value_summary.h"
#include "chrony/log/log_pieces.h"
#include "cli/logs/log_command.h"
#include "support/fake_followed_files.h"
#include "support/kept_text.h"
#include "support/test.h"

#include <cmath>
#include <limits>
#include <random>

namespace tickervantage {
namespace {

// From the file to the terminal, in every form.
TEST(LogCommand, PrintsRecordsAndTheirSummaries) {
    testing::FakeFollowedFiles files;
    files.create("a.log", "====\n"
                          "2026-11-21 05:20:26 192.0.2.1 2 -1.5 0.02 1.25e-5 N 1 1e-6 1e-6 1e-3 2e-3 4e-3\n"
                          "2026-11-21 23:59:59 a,\"b\" 3 -2.5 - - ? 2 2e-6 3e-6 - 3e-3\n"
                          "2026-12-01 00:00:00 192.0.2.1 2 3.5 0.03 -2e-5 N 1 4e-6 5e-6 3e-3 4e-3 4e-3\n");
    TrackingRecords records;
    const auto read = [&](const char* name) {
        return read_log(files, name, [&](std::string_view line) { (void)records.add_line(line); });
    };
    ASSERT_TRUE(read("a.log"));
    std::ostringstream out;
    for (const auto form : {LogForm::text, LogForm::json, LogForm::csv}) {
        EXPECT_EQ(print_log(records, form, out), 0);
        EXPECT_EQ(print_log_summary(records, form, out), 0);
        EXPECT_EQ(print_log({}, form, out), 1);
        EXPECT_EQ(print_log_summary({}, form, out), 1);
    }
    testing::expect_as_kept(out.str(), "log", 1e-12);
    files.at("a.log").damage = Failure{.code = FailureCode::its_end_is_missing};
    EXPECT_EQ(english(read("a.log").error()), "a.log cannot be read: its end is missing.");
    files.at("a.log").fails_when_read = true;
    EXPECT_EQ(english(read("a.log").error()), "a.log cannot be read: Input/output error.");
    EXPECT_FALSE(read("b.log"));
}

TEST(ValueSummary, IsThatOfTheTextbook) {
    const auto found = summary_of(std::array{3.0, -4.0, 0.0, 1.0, 5.0}, std::array{0.05, 0.5, 0.95});
    ASSERT_TRUE(found);
    EXPECT_DOUBLE_EQ(found->mean, 1);
    EXPECT_DOUBLE_EQ(found->deviation, std::sqrt(46.0 / 4));
    EXPECT_DOUBLE_EQ(found->rms, std::sqrt(51.0 / 5));
    EXPECT_DOUBLE_EQ(found->percentiles[0], -4 + 0.2 * 4);
    EXPECT_DOUBLE_EQ(found->percentiles[1], 1);
    EXPECT_DOUBLE_EQ(found->percentiles[2], 3 + 0.8 * 2);
    EXPECT_TRUE(std::isnan(summary_of(std::array{1.0}, std::array{0.5})->deviation));
}

// Against a list that is sorted.
TEST(ValueSummary, FindsPercentilesWithoutSorting) {
    std::mt19937 random(9);
    std::normal_distribution<double> normal;
    constexpr std::array shares{0.0, 0.05, 0.5, 0.51, 0.95, 1.0};
    for (const std::size_t count : {1U, 2U, 3U, 7U, 100U, 5000U}) {
        std::vector<double> values(count);
        for (double& value : values)
            value = count == 100 ? -12.3 + 1e-3 * normal(random) : normal(random) * std::pow(10, 5 * normal(random));
        std::vector<double> sorted = values;
        std::ranges::sort(sorted);
        values.insert(values.begin() + 1, std::numeric_limits<double>::quiet_NaN());
        const auto summary = summary_of(values, shares);
        ASSERT_TRUE(summary);
        EXPECT_EQ(summary->count, count);
        EXPECT_EQ(summary->least, sorted.front());
        EXPECT_EQ(summary->largest, sorted.back());
        for (std::size_t i = 0; i < shares.size(); ++i) {
            const double place = shares[i] * static_cast<double>(count - 1);
            const auto below = static_cast<std::size_t>(place);
            const double next = sorted[std::min(below + 1, count - 1)];
            EXPECT_DOUBLE_EQ(summary->percentiles[i],
                             sorted[below] + (next - sorted[below]) * (place - static_cast<double>(below)));
        }
    }
    EXPECT_FALSE(summary_of(std::array{std::numeric_limits<double>::quiet_NaN()}, shares));
}

} // namespace
} // namespace tickervantage
