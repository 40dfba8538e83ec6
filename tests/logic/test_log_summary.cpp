// The figures of `tickerctl log --summary`, against figures worked out by hand.
#include "cli/log_command.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cmath>
#include <sstream>

namespace tickervantage {
namespace {

// A log whose offsets are these, in this order; "-" is none.
nlohmann::json summary_of(const std::vector<std::string>& offsets) {
    TrackingRecords records;
    for (const auto& offset : offsets)
        EXPECT_EQ(records.add_line("2026-11-21 05:20:26 192.0.2.1 2 -1.5 0.02 " + offset + " N 1 1e-6 1e-6 1e-3 2e-3"),
                  TrackingRecords::Added::record);
    std::ostringstream out;
    EXPECT_EQ(print_log_summary(records, LogForm::json, out), offsets.empty() ? 1 : 0);
    return nlohmann::json::parse(out.str());
}

TEST(LogSummary, PercentilesStandOnTheLineBetweenTwoValues) {
    struct Case {
        std::vector<std::string> offsets;
        double min, max, mean, rms, median, p95, p99;
    };
    for (const auto& one : {Case{{"3"}, 3, 3, 3, 3, 3, 3, 3}, Case{{"-1", "1"}, -1, 1, 0, 1, 0, 0.9, 0.98},
                            Case{{"20", "-", "10", "50", "30", "40"}, 10, 50, 30, std::sqrt(1100), 30, 48, 49.6},
                            Case{{"1", "2", "3", "4"}, 1, 4, 2.5, std::sqrt(7.5), 2.5, 3.85, 3.97}}) {
        const auto series = summary_of(one.offsets).at("offset");
        EXPECT_DOUBLE_EQ(series.at("min"), one.min);
        EXPECT_DOUBLE_EQ(series.at("max"), one.max);
        EXPECT_DOUBLE_EQ(series.at("mean"), one.mean);
        EXPECT_DOUBLE_EQ(series.at("rms"), one.rms);
        EXPECT_DOUBLE_EQ(series.at("median"), one.median) << one.offsets.size();
        EXPECT_DOUBLE_EQ(series.at("p95"), one.p95) << one.offsets.size();
        EXPECT_DOUBLE_EQ(series.at("p99"), one.p99) << one.offsets.size();
    }
}

TEST(LogSummary, WithoutAValueThereIsNoFigure) {
    const auto document = summary_of({"-"});
    EXPECT_EQ(document.at("count"), 1);
    EXPECT_TRUE(document.at("offset").at("p95").is_null());
    EXPECT_EQ(document.at("frequency").at("median"), -1.5e-6);
    EXPECT_TRUE(summary_of({}).at("first").is_null());
}

} // namespace
} // namespace tickervantage
