// chrony's logs as records: what each column is, which log it is, and which files belong to it.
#include "chrony/log/log_files.h"
#include "chrony/log/log_line.h"
#include "chrony/log/log_table.h"
#include "support/fake_followed_files.h"
#include "support/test.h"

#include <fmt/format.h>

namespace tickervantage {
namespace {

struct Line {
    LogKind kind;
    const char* heading; // as chronyd 4.3 writes it
    const char* record;
    const char* read; // its columns
};

const Line lines[] = {
    {LogKind::tracking,
     "   Date (UTC) Time     IP Address   St   Freq ppm   Skew ppm     Offset L Co  Offset sd Rem. corr. Root delay "
     "Root disp. Max. error",
     "2026-11-22 12:44:48 127.0.0.4        3     -5.340    427.979 -4.668e-07 N  1  2.450e-06  5.000e-01  2.121e-05  "
     "3.257e-04  1.428e+00",
     "address=127.0.0.4 stratum=3 frequency=-5.34 skew=427.979 offset=-4.668e-07 el=N co=1 offset_sd=2.45e-06 "
     "rem_cor=0.5 root_delay=2.121e-05 rootdispersion=0.0003257 max_error=1.428"},
    {LogKind::tracking, "",
     "2017-08-22 13:22:36 2001:db8:4:17::123 2 -3.541 0.075 -8.621e-06 N 2 2.940e-03 -2.084e-04 1.534e-02 3.472e-04",
     "address=2001:db8:4:17::123 stratum=2 frequency=-3.541 skew=0.075 offset=-8.621e-06 el=N co=2 offset_sd=0.00294 "
     "rem_cor=-0.0002084 root_delay=0.01534 rootdispersion=0.0003472 max_error=-"},
    {LogKind::measurements,
     "   Date (UTC) Time     IP Address   L St 123 567 ABCD  LP RP Score    Offset  Peer del. Peer disp.  Root del. "
     "Root disp. Refid     MTxRx",
     "2026-11-22 12:44:53 127.0.0.2       N  2 111 111 1101  -1 -2 0.30 -5.130e-07  6.314e-06  5.181e-08  0.000e+00  "
     "0.000e+00 7F7F0101 4B K D",
     "source=127.0.0.2 leap=N stratum=2 tests_1_3=111 tests_5_7=111 tests_a_d=1101 local_poll=-1 remote_poll=-2 "
     "score=0.3 offset=-5.13e-07 peer_delay=6.314e-06 peer_dispersion=5.181e-08 root_delay=0 root_dispersion=0 "
     "reference=7F7F0101 mode=4B transmit=K receive=D"},
    {LogKind::statistics,
     "   Date (UTC) Time     IP Address    Std dev'n Est offset  Offset sd  Diff freq   Est skew  Stress  Ns  Bs  Nr  "
     "Asym",
     "2026-11-22 12:44:53 127.0.0.4        1.814e-07 -5.000e-01  9.263e-08 -3.705e-08  1.024e-07 1.3e-01  22   4  12 "
     "-0.48",
     "source=127.0.0.4 std_dev=1.814e-07 offset=-0.5 offset_sd=9.263e-08 frequency=-3.705e-08 skew=1.024e-07 "
     "stress=0.13 samples=22 start=4 runs=12 asymmetry=-0.48"},
    {LogKind::selection, "   Date (UTC) Time     IP Address   S EOpts Reach Score Last sample  Low end   High end",
     "2026-11-22 12:44:53 TEST            N -N---   17  1.00  2.095e-01 -2.705e-06  3.417e-06",
     "source=TEST state=N options=-N--- reach=15 score=1 last_sample=0.2095 low=-2.705e-06 high=3.417e-06"},
    {LogKind::refclocks, "   Date (UTC) Time         Refid  DP L P  Raw offset   Cooked offset      Disp.",
     "2026-11-22 12:44:52.181179 TEST    1 N 0  0.000000e+00  1.087373e-06  2.200e-08",
     "source=TEST poll=1 leap=N pps=0 raw_offset=0 offset=1.087373e-06 dispersion=2.2e-08"},
    {LogKind::refclocks, "", "2026-11-22 12:44:53.000000 TEST    - N -       -       -1.741777e-04  1.000e-06",
     "source=TEST poll=- leap=N pps=- raw_offset=- offset=-0.0001741777 dispersion=1e-06"},
    {LogKind::tempcomp, "   Date (UTC) Time        Temp.       Comp.", "2026-11-22 12:44:51  2.8000e+04 -3.6600e-01",
     "temperature=28000 compensation=-0.366"},
    {LogKind::rtc, "   Date (UTC) Time   RTC fast (s) Val   Est fast (s)   Slope (ppm)  Ns  Nr Meas",
     "2015-07-22 05:40:50     -0.037360 1       -0.037434          -37.948  12   5  120",
     "offset=-0.03736 valid=1 estimate=-0.037434 slope=-37.948 samples=12 runs=5 interval=120"},
};

std::string columns_of(const LogTable& table, std::size_t index) {
    std::string text;
    for (std::size_t column = 0; column < table.shape().columns.size(); ++column) {
        const LogColumn& one = table.shape().columns[column];
        const double number = one.is_number() ? table.number(column, index) : 0;
        text += fmt::format("{}{}={}", column == 0 ? "" : " ", one.name,
                            !one.is_number()     ? std::string(table.text(column, index))
                            : std::isnan(number) ? "-"
                                                 : fmt::format("{:.10g}", number));
    }
    return text;
}

TEST(ChronyLogs, AreToldApartAndReadColumnByColumn) {
    for (const Line& line : lines) {
        SCOPED_TRACE(line.record);
        EXPECT_EQ(kind_of_heading(line.heading).value_or(line.kind), line.kind);
        EXPECT_EQ(kind_of_heading(line.heading).has_value(), *line.heading != '\0');
        EXPECT_EQ(kind_of_record(line.record), line.kind);
        LogTable table(line.kind);
        EXPECT_FALSE(table.add_line(line.heading));
        ASSERT_TRUE(table.add_line(line.record));
        EXPECT_EQ(columns_of(table, 0), line.read);
    }
    LogTable clocks(LogKind::refclocks);
    ASSERT_TRUE(clocks.add_line(lines[5].record));
    EXPECT_EQ(clocks.microseconds(0), 1795351492181179);
}

TEST(ChronyLogs, LeaveOutWhatIsNoRecord) {
    LogTable table(LogKind::statistics);
    const std::string good = lines[3].record;
    const auto changed = [&](const std::string& from, const std::string& to) {
        std::string line = good;
        return line.replace(line.find(from), from.size(), to);
    };
    EXPECT_TRUE(table.add_line(changed("1.3e-01", "nan"))); // chronyd's division by zero
    EXPECT_TRUE(std::isnan(table.number(statistics_column::stress, 0)));
    EXPECT_TRUE(table.add_line(good + " 7")); // a column of a later version
    EXPECT_TRUE(table.add_line(changed("1.814e-07", "1.814e-107")));
    EXPECT_EQ(table.number(statistics_column::std_dev, 2), 1.814e-107);
    for (const std::string& odd : {changed("-0.48", ""), changed("1.3e-01", "1.3.1"), changed("1.3e-01", "e-"),
                                   changed("1.3e-01", "e+1"), changed("1.3e-01", "e-01"), changed("11-22", "13-22"),
                                   changed("127.0.0.4", std::string(256, 'a')), std::string("word"), std::string()})
        EXPECT_FALSE(table.add_line(odd)) << odd;
    EXPECT_EQ(table.size(), 3U);
}

TEST(ChronyLogs, KeepAnyNumberOfRecords) {
    LogTable table(LogKind::selection);
    for (int i = 0; i < 10000; ++i)
        ASSERT_TRUE(table.add_line(fmt::format("2026-11-22 {:02}:{:02}:{:02} 192.0.2.{} * ----- 377 1.00 {} - 1e-3",
                                               i / 3600, i / 60 % 60, i % 60, i % 200, i)));
    EXPECT_EQ(table.text(selection_column::source, 9999), "192.0.2.199");
    EXPECT_EQ(table.number(selection_column::last_sample, 9999), 9999);
    EXPECT_EQ(table.time(9999) - table.time(0), 9999);
    EXPECT_LT(table.memory(), 10000U * 56);
}

TEST(ChronyLogs, AreFoundInFoldersAndReadInTheOrderOfTheirRotation) {
    testing::FakeFollowedFiles files;
    const auto record = [](int day) {
        return fmt::format("2026-11-{} 12:44:51  2.8000e+04 -3.6600e-01\n", day);
    };
    files.create("log/tempcomp.log", record(22));
    files.create("log/tempcomp.log.1", record(21));
    files.create("log/tempcomp.log.2.gz", record(20));
    files.create("log/tempcomp.log.10.gz", record(12));
    files.create("log/old.log-20261120", std::string(lines[8].heading) + "\n"); // told by its banner alone
    files.create("log/old.log-20261105.gz", record(11));
    files.create("log/notes.txt", "nothing of chrony\n");
    files.create("log/secret", "");
    files.at("log/secret").readable = false;
    const auto found = find_logs(files, {"log"});
    ASSERT_TRUE(found);
    std::string names;
    for (const LogFile& log : *found)
        names += log.path.substr(4) + ' ';
    EXPECT_EQ(names, "old.log-20261105.gz old.log-20261120 tempcomp.log.10.gz tempcomp.log.2.gz tempcomp.log.1 "
                     "tempcomp.log ");
    EXPECT_EQ((*found)[1].kind, LogKind::rtc);
    EXPECT_EQ(find_logs(files, {"log", "log/tempcomp.log"}, LogKind::tempcomp)->size(), 5U);
    EXPECT_EQ(english(find_logs(files, {"log"}, LogKind::tracking).error()),
              "There is no tracking log of chrony in log.");
    EXPECT_FALSE(find_logs(files, {"log/secret"}));
    EXPECT_FALSE(find_logs(files, {"elsewhere"}));
}

TEST(ChronyLogs, CountLinesThatAreNoRecords) {
    testing::FakeFollowedFiles files;
    files.create("a.log", "====\n\n2026-11-22 12:44:51 1 2\n\xFF\n2026-11-22 12:44:52 1 2\nodder");
    LogTable table(LogKind::tempcomp);
    LogCount count;
    std::vector<std::size_t> numbers;
    ASSERT_TRUE(read_records(files, "a.log", count, [&](std::string_view line, std::size_t number) {
        numbers.push_back(number);
        return table.add_line(line);
    }));
    EXPECT_EQ(numbers, (std::vector<std::size_t>{1, 3, 4, 5, 6}));
    EXPECT_EQ(count.records, 2U);
    EXPECT_EQ(count.odd, 2U);
    EXPECT_EQ(english(odd_lines("a.log", count).value_or(Failure())),
              "Lines of a.log that are no records of this log were left out: 2.");
}

} // namespace
} // namespace tickervantage
