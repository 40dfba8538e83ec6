// Tracking logs: lines to records, exactly; rolling statistics; the quick ways to ranges and times.
#include "chrony/log/tracking_line.h"
#include "studies/tracking/tracking_records.h"
#include "support/test.h"

#include <fmt/chrono.h>

namespace tickervantage {
namespace {

using Added = TrackingRecords::Added;

const std::string plain_line =
    "2026-11-21 05:20:26 127.0.0.1        6     -5.123    604.834  2.358e-07 N  1  1.840e-06 -1.405e-06  9.157e-06  "
    "8.218e-05  2.331e-01";

std::string line(const std::string& stratum, const std::string& co, const std::string& offset,
                 const std::string& rem_cor) {
    return "2026-11-21 05:20:26 192.0.2.1 " + stratum + " -1.5 0.02 " + offset + " N " + co + " 1e-6 " + rem_cor +
           " 1e-3 2e-3";
}

TEST(TrackingRecords, ALineBecomesARecord) {
    TrackingRecords records;
    ASSERT_EQ(records.add_line(plain_line), Added::record);
    const tracking record = records.record(0);
    EXPECT_EQ(record.timestamp, 1795238426);
    EXPECT_EQ(record.address, "127.0.0.1");
    EXPECT_EQ(record.stratum, 6);
    EXPECT_EQ(record.frequency, -5.123 / 1e6);
    EXPECT_EQ(record.skew, 604.834);
    EXPECT_EQ(record.offset, 2.358e-07);
    EXPECT_EQ(record.el, "N");
    EXPECT_EQ(record.co, 1);
    EXPECT_EQ(record.offset_sd, 1.840e-06);
    EXPECT_EQ(record.rem_cor, -1.405e-06);
    EXPECT_EQ(record.root_delay, 9.157e-06);
    EXPECT_EQ(record.rootdispersion, 8.218e-05);
    EXPECT_EQ(record.max_error, 2.331e-01);
    EXPECT_EQ(record.mean_offset, 2.358e-07);
    EXPECT_EQ(records.value(Series::frequency, 0), -5.123 / 1e6);
}

TEST(TrackingRecords, OnlyDataLinesAreRecords) {
    const auto with = [](std::size_t at, const std::string& text) {
        std::string changed = plain_line;
        return changed.replace(at, text.size(), text);
    };
    const std::vector<std::pair<std::string, bool>> cases{
        {plain_line, true},
        {plain_line + " 1 2 3 more", true},
        {plain_line.substr(0, 120), true},  // 13 columns
        {plain_line.substr(0, 108), false}, // 12
        {"\t" + plain_line + "\r", true},   // other white space
        {"", false},
        {std::string(131, '='), false},
        {"   Date (UTC) Time     IP Address   St   Freq ppm   Skew ppm     Offset L Co  Offset sd Rem. corr. Root "
         "delay "
         "Root disp. Max. error",
         false},
        {with(5, "02-29"), false}, // no leap year
        {with(0, "2028-02-29"), true},
        {with(5, "13-01"), false},
        {with(8, "32"), false},
        {with(8, "00"), false},
        {with(11, "24:00:00"), false},
        {with(11, "23:59:60"), false},
        {with(0, "20x6"), false},
        {with(4, "/"), false},
        {with(20, std::string(1, '\0')), true},  // within the address
        {with(14, std::string(1, '\0')), false}, // within the time
        {plain_line.substr(0, 20) + std::string(256, 'x') + plain_line.substr(29), false},
        {plain_line.substr(0, 20) + "2001:db8:4:17::123" + plain_line.substr(35), true},
        {std::string(20'000'000, 'x'), false}};
    for (const auto& [text, expected] : cases) {
        TrackingRecords records;
        EXPECT_EQ(records.add_line(text), expected ? Added::record : Added::no_data_line) << text.substr(0, 200);
        EXPECT_EQ(records.size(), expected ? 1U : 0U);
    }
}

TEST(TrackingRecords, TheLargestErrorIsAbsentWhereTheLogHasNone) {
    const std::string shorter = plain_line.substr(0, 120);
    TrackingRecords records;
    for (const std::string& text : {shorter, shorter + "  ", shorter + "  -", plain_line + "\t7",
                                    line("1", "1", "1", "1"), line("1", "1", "1", "1") + " +2.5e-3\r"})
        ASSERT_EQ(records.add_line(text), Added::record) << text;
    const std::optional<double> expected[] = {{}, {}, {}, 2.331e-01, {}, 2.5e-3};
    for (std::size_t i = 0; i < records.size(); ++i)
        EXPECT_EQ(records.record(i).max_error, expected[i]) << i;
    EXPECT_EQ(records.record(4).root_delay, 1e-3);
}

TEST(TrackingRecords, ColumnsThatAreNoNumbersAreAbsent) {
    TrackingRecords records;
    ASSERT_EQ(records.add_line("2026-11-21 05:20:26 a x 1.2.3 nan inf N 1.5 - 1e999 0x10 1e"), Added::record);
    const tracking record = records.record(0);
    EXPECT_EQ(record.stratum, std::nullopt);
    EXPECT_EQ(record.co, std::nullopt);
    for (const auto& value :
         {record.frequency, record.skew, record.offset, record.offset_sd, record.rem_cor, record.root_delay,
          record.max_error, record.rms_offset, record.mean_offset, record.rms_rem_cor, record.mean_rem_cor})
        EXPECT_EQ(value, std::nullopt);
    for (std::size_t series = 0; series < series_count; ++series)
        EXPECT_EQ(records.range(static_cast<Series>(series), 0, 1), std::nullopt);
}

TEST(TrackingRecords, NumbersReadBackExactly) {
    std::mt19937_64 random(7);
    std::vector<std::string> texts;
    for (const char* text : {"0", "-0.000e+00", "+1.5", "1E-3", "1000000.000", "8388607", "8388608", "-8388608e-9",
                             "1e22", "1e-22", "1e23", "4.9e-324", "1.7976931348623157e308", "123456789012345678901",
                             "0.1234567890123456789", "1.e3", ".5", "00000000000000000001", "1e0000005"})
        texts.emplace_back(text);
    for (int i = 0; i < 3000; ++i) {
        const double number = std::uniform_real_distribution(-1.0, 1.0)(random) *
                              std::pow(10, std::uniform_int_distribution(-30, 30)(random));
        texts.push_back(i % 3 == 0   ? fmt::format("{:.3e}", number)
                        : i % 3 == 1 ? fmt::format("{:.17g}", number)
                                     : fmt::format("{:.6e}", number));
    }
    TrackingRecords records;
    for (const auto& text : texts)
        ASSERT_EQ(records.add_line(line("3", "2", text, "1e-6")), Added::record);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const double expected = std::strtod(texts[i].c_str(), nullptr);
        EXPECT_EQ(records.value(Series::offset, i), expected) << texts[i];
        EXPECT_EQ(std::signbit(records.value(Series::offset, i)), std::signbit(expected)) << texts[i];
    }
}

TEST(TrackingRecords, OldRecordsAreLeftOutOfALiveLog) {
    TrackingRecords records;
    EXPECT_EQ(records.add_line(plain_line, 1795238427), Added::too_old);
    EXPECT_EQ(records.add_line(plain_line, 1795238426), Added::record);
    EXPECT_EQ(records.size(), 1U);
}

struct Step {
    const char* offset;
    const char* rem_cor;
    double mean_offset;
    double rms_offset;
    double mean_rem_cor;
    double rms_rem_cor;
    const char* sources = "1"; // stratum and number of sources
};

TEST(TrackingRecords, RollingStatisticsStartAndStartAfresh) {
    const double rms_offset = std::sqrt(1 + 0.1 * 3);
    const double rms_rem_cor = std::sqrt(1 + 0.1 * 8);
    const std::vector<Step> steps{{"-1", "1", -1, 1, 1, 1},
                                  {"2", "0.5", 2, 2, 0.5, 0.5}, // the correction is not larger than before
                                  {"1", "1", 1, 1, 1, 1},       // the offset is not
                                  {"2", "-3", 1.1, rms_offset, 0.6, rms_rem_cor}, // both: averaged from here on
                                  {"1.1", "0.6", 1.1, std::sqrt(rms_offset * rms_offset * 0.9 + 0.121), 0.6,
                                   std::sqrt(rms_rem_cor * rms_rem_cor * 0.9 + 0.036)},
                                  {"-4", "5", -4, 4, 5, 5, "0"}, // the daemon lost its sources
                                  {"1", "1", 1, 1, 1, 1}};
    TrackingRecords records;
    for (const auto& step : steps)
        ASSERT_EQ(records.add_line(line(step.sources, step.sources, step.offset, step.rem_cor)), Added::record);
    for (std::size_t i = steps.size(); i-- > 0;) { // backwards, as a graph is drawn
        EXPECT_DOUBLE_EQ(records.value(Series::mean_offset, i), steps[i].mean_offset) << i;
        EXPECT_DOUBLE_EQ(records.value(Series::rms_offset, i), steps[i].rms_offset) << i;
        EXPECT_DOUBLE_EQ(records.value(Series::mean_rem_cor, i), steps[i].mean_rem_cor) << i;
        EXPECT_DOUBLE_EQ(records.value(Series::rms_rem_cor, i), steps[i].rms_rem_cor) << i;
    }
}

TEST(TrackingRecords, AnAbsentValueIsAGapInItsAveragesOnly) {
    TrackingRecords records;
    for (const auto& text :
         {line("1", "1", "1", "1"), line("1", "1", "2", "2"), line("1", "1", "-", "2"), line("1", "1", "2", "2")})
        ASSERT_EQ(records.add_line(text), Added::record);
    EXPECT_EQ(records.record(2).mean_offset, std::nullopt);
    EXPECT_EQ(records.record(2).rms_offset, std::nullopt);
    EXPECT_DOUBLE_EQ(records.record(1).mean_offset.value(), 1.1);
    EXPECT_DOUBLE_EQ(records.record(2).mean_rem_cor.value(), 1.19);
    EXPECT_DOUBLE_EQ(records.record(3).mean_offset.value(), 1.19); // goes on from record 1
}

TEST(TrackingRecords, LossOfTheReferenceMeasuredNothing) {
    const auto without = [](const char* stratum) {
        return "2026-11-21 05:20:26 0.0.0.0 " + std::string(stratum) + " -1.5 0.02 0 ? 0 0 0 1 1 1";
    };
    TrackingRecords records;
    for (const auto& text : {line("2", "1", "1", "1"), without("0"), line("2", "1", "3", "3"), without("3")})
        ASSERT_EQ(records.add_line(text), Added::record);
    TrackingRecords::AllValues all;
    records.read(0, 4, all);
    for (std::size_t i = 0; i < series_count; ++i) {
        const auto series = static_cast<Series>(i);
        EXPECT_TRUE(std::isnan(records.value(series, 1))) << i;
        EXPECT_TRUE(std::isnan(all[i][1])) << i;
        EXPECT_EQ(records.range(series, 1, 2), std::nullopt) << i;
    }
    EXPECT_FALSE(records.has_reference(1));
    EXPECT_EQ(records.record(1).stratum, 0);
    EXPECT_EQ(records.record(1).offset, std::nullopt);
    EXPECT_EQ(records.value(Series::rms_offset, 2), 3) << "no zero pulls it down";
    EXPECT_EQ(records.range(Series::offset, 0, 3)->low, 1);
    EXPECT_TRUE(records.has_reference(3)) << "a stratum of its own";
    EXPECT_EQ(records.value(Series::offset, 3), 0);
}

TEST(TrackingRecords, StatisticsOfDamagedNumbersStayFinite) {
    TrackingRecords records;
    for (const auto* text : {"1e300", "-1.7e308", "1.7e308", "-1.7e308", "1", "1e-320", "0"})
        ASSERT_EQ(records.add_line(line("1", "1", text, text)), Added::record);
    for (std::size_t i = 0; i < records.size(); ++i)
        for (const auto series : {Series::mean_offset, Series::rms_offset, Series::mean_rem_cor, Series::rms_rem_cor})
            EXPECT_TRUE(std::isfinite(records.value(series, i))) << i;
}

// A log of several pieces with gaps, steps of the clock and losses, beside its plain numbers.
class ManyRecords : public ::testing::Test {
protected:
    ManyRecords() {
        LogTime now = 1795238426;
        for (int i = 0; i < 10'000; ++i) {
            now += m_random() % 500 == 0 ? -7200 : static_cast<LogTime>(m_random() % 40);
            const auto offset = std::to_string(static_cast<int>(m_random() % 2001) - 1000);
            const bool lost = m_random() % 300 == 0;
            std::string rest = line(lost ? "0" : "2", lost ? "0" : "3", m_random() % 50 == 0 ? "-" : offset, offset);
            m_records.add_line(fmt::format("{:%F %T}", fmt::gmtime(now)) + rest.substr(19));
            m_times.push_back(now);
        }
    }
    std::mt19937_64 m_random{11};
    TrackingRecords m_records;
    std::vector<LogTime> m_times;
};

TEST_F(ManyRecords, RangesAreThoseOfEveryRecord) {
    ASSERT_EQ(m_records.size(), m_times.size());
    for (int i = 0; i < 300; ++i) {
        const auto series = static_cast<Series>(m_random() % series_count);
        const auto first = m_random() % m_times.size();
        const auto end = first + (i % 2 == 0 ? m_random() % 200 : m_random() % m_times.size());
        double low = INFINITY;
        double high = -INFINITY;
        for (auto index = first; index < std::min<std::size_t>(end, m_times.size()); ++index) {
            const double value = m_records.value(series, index);
            low = std::fmin(low, value);
            high = std::fmax(high, value);
        }
        const auto range = m_records.range(series, first, end);
        ASSERT_EQ(range.has_value(), low <= high);
        if (range) {
            EXPECT_EQ(range->low, low);
            EXPECT_EQ(range->high, high);
        }
    }
}

TEST_F(ManyRecords, NewestBeforeIsRightAcrossStepsOfTheClock) {
    const auto check = [&](LogTime time) {
        std::optional<std::size_t> expected;
        for (std::size_t index = m_times.size(); index-- > 0 && !expected;)
            if (m_times[index] < time)
                expected = index;
        EXPECT_EQ(m_records.newest_before(time), expected) << time;
    };
    const auto [earliest, latest] = std::ranges::minmax(m_times);
    for (int i = 0; i < 500; ++i)
        check(earliest - 10 + static_cast<LogTime>(m_random() % static_cast<std::uint64_t>(latest - earliest + 20)));
    check(earliest);
    check(earliest + 1);
    check(latest + 1);
}

TEST_F(ManyRecords, AreSmallAndGoWhenCleared) {
    EXPECT_LT(m_records.memory(), 3 * TrackingRecords::RECORDS_PER_PIECE * 48);
    m_records.clear();
    EXPECT_TRUE(m_records.empty());
    EXPECT_LT(m_records.memory(), 20'000U);
    m_records.add_line(line("1", "1", "3", "4"));
    EXPECT_EQ(m_records.record(0).mean_offset, 3);
    EXPECT_EQ(m_records.record(0).address, "192.0.2.1");
}

} // namespace
} // namespace tickervantage
