// The history of the clock: nothing torn, nothing lost, and spans that say what the readings said.
#include "base/failure_codes.h"
#include "chrony/status/kept_readings.h"
#include "chrony/status/window_history.h"
#include "history/history_keeper.h"
#include "history/history_writer.h"
#include "support/manual_dispatch.h"
#include "support/memory_stores.h"
#include "support/small_disk.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <thread>

namespace tickervantage {
namespace {

constexpr std::int64_t day = 86'400;
constexpr std::int64_t start = 20'000 * day;

class History : public ::testing::Test {
protected:
    History() {
        std::string pattern = std::filesystem::temp_directory_path() / "history-XXXXXX";
        folder = ::mkdtemp(pattern.data());
        path = folder + "/deeper/history.sqlite";
    }
    ~History() override { std::filesystem::remove_all(folder); }

    std::string folder;
    std::string path;
};

Extent single_extent(double value) {
    return {value, value, value};
}

HistoryReading reading(std::int64_t time, double offset, Verdict verdict = Verdict::synchronised) {
    HistoryReading made{.row = {.time = time, .verdict = verdict, .reference = "192.0.2.1"}};
    made.row.stratum = 2;
    made.row.steers = true;
    made.row.values.fill(single_extent(offset));
    for (const char* const source : {"192.0.2.1", "192.0.2.2"}) {
        SourceRow row{.time = time, .source = source, .rule = SelectionRule::best, .letter = '*', .reach = 255};
        row.offset = single_extent(offset);
        row.std_dev = 1e-6;
        made.sources.push_back(row);
    }
    return made;
}

double mean_of(const HistoryRow& row, HistoryQuantity quantity) {
    return row.values.at(static_cast<std::size_t>(quantity)).value().mean;
}

std::size_t rows_in(const std::string& path) {
    auto store = HistoryReader::open(path);
    return store ? store->rows({}).value().size() : 0;
}

TEST_F(History, GivesBackWhatWasAddedToTheLastDigitThatChronycPrints) {
    auto store = HistoryWriter::open(path).value();
    auto added = reading(start, -0.000'123'457, Verdict::holdover);
    added.row.values.at(static_cast<std::size_t>(HistoryQuantity::frequency_ppm)) = single_extent(-12.345);
    added.row.values.at(static_cast<std::size_t>(HistoryQuantity::bound)) = std::nullopt;
    added.row.steers = std::nullopt;
    ASSERT_TRUE(store.add(added, {{start, HistoryEventKind::verdict, "synchronised", "holdover"}}));

    auto reader = HistoryReader::open(path).value();
    const auto rows = reader.rows({start, start + 1}).value();
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].verdict, Verdict::holdover);
    EXPECT_EQ(rows[0].reference, "192.0.2.1");
    EXPECT_EQ(rows[0].stratum, 2);
    EXPECT_EQ(rows[0].steers, std::nullopt);
    EXPECT_DOUBLE_EQ(mean_of(rows[0], HistoryQuantity::system_time), -0.000'123'457);
    EXPECT_DOUBLE_EQ(mean_of(rows[0], HistoryQuantity::frequency_ppm), -12.345);
    EXPECT_FALSE(rows[0].values.at(static_cast<std::size_t>(HistoryQuantity::bound)));
    EXPECT_TRUE(reader.rows({start + 1, start + 9}).value().empty());
    EXPECT_TRUE(reader.rows({0, start}).value().empty());

    const auto sources = reader.sources({}, "192.0.2.2").value();
    ASSERT_EQ(sources.size(), 1U);
    EXPECT_EQ(sources[0].reach, 255U);
    EXPECT_EQ(sources[0].rule, SelectionRule::best);
    EXPECT_EQ(sources[0].letter, '*');
    EXPECT_DOUBLE_EQ(sources[0].offset.value().mean, -0.000'123'457);
    EXPECT_FALSE(sources[0].error);
    EXPECT_DOUBLE_EQ(sources[0].std_dev.value(), 1e-6);
    EXPECT_EQ(reader.sources({}).value().size(), 2U);
    EXPECT_TRUE(reader.sources({}, "192.0.2.9").value().empty());
    ASSERT_EQ(reader.events({}).value().size(), 1U);
    EXPECT_EQ(reader.events({}).value()[0].to, "holdover");
}

TEST_F(History, SpansHaveLowestMeanAndHighestAndTheWorstVerdict) {
    auto store = HistoryWriter::open(path).value();
    for (int at = 0; at < 12; ++at) // two minutes; the second one has a moment without a bound
        ASSERT_TRUE(
            store.add(reading(start + at * 10, 1e-6 * at, at == 3 ? Verdict::holdover : Verdict::synchronised), {}));
    auto now = start + 8 * day;
    ASSERT_TRUE(store.thin(now));
    auto rows = store.rows({}).value();
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].span, 60);
    EXPECT_EQ(rows[0].count, 6);
    EXPECT_EQ(rows[0].verdict, Verdict::holdover);
    EXPECT_EQ(rows[1].verdict, Verdict::synchronised);
    EXPECT_EQ(rows[1].time, start + 60);
    const auto offsets = rows[1].values[0].value();
    EXPECT_DOUBLE_EQ(offsets.low, 6e-6);
    EXPECT_DOUBLE_EQ(offsets.mean, 8.5e-6);
    EXPECT_DOUBLE_EQ(offsets.high, 11e-6);
    EXPECT_EQ(store.sources({}, "192.0.2.1").value().size(), 2U);

    ASSERT_TRUE(store.thin(now)); // again: nothing is left to do
    EXPECT_EQ(store.rows({}).value().size(), 2U);
    ASSERT_TRUE(store.thin(now = start + 92 * day));
    rows = store.rows({}).value();
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].span, 3600);
    EXPECT_EQ(rows[0].count, 12);
    EXPECT_DOUBLE_EQ(rows[0].values[0].value().mean, 5.5e-6);
    EXPECT_DOUBLE_EQ(rows[0].values[0].value().low, 0);
    EXPECT_EQ(store.sources({}).value().size(), 2U);
    EXPECT_EQ(store.last_row().value()->span, 3600);
    ASSERT_TRUE(store.thin(now = start + 1900 * day));
    EXPECT_TRUE(store.rows({}).value().empty());
    EXPECT_TRUE(store.sources({}).value().empty());
}

TEST_F(History, WhatIsYoungerThanAWeekStaysWhole) {
    auto store = HistoryWriter::open(path).value();
    ASSERT_TRUE(store.add(reading(start, 0), {}));
    ASSERT_TRUE(store.add(reading(start + day, 0), {}));
    ASSERT_TRUE(store.thin(start + 8 * day));
    const auto rows = store.rows({}).value();
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].span, 60);
    EXPECT_EQ(rows[1].span, 0);
}

TEST_F(History, HasOneWriterAndManyReaders) {
    std::optional<HistoryWriter> writer = HistoryWriter::open(path).value();
    ASSERT_TRUE(writer->add(reading(start, 0), {}));
    const auto second = HistoryWriter::open(path);
    ASSERT_FALSE(second);
    EXPECT_EQ(second.error().code, FailureCode::history_has_writer);
    EXPECT_EQ(rows_in(path), 1U);
    ASSERT_TRUE(HistoryKeeper(path).keep(job_event(start, "restart", {}))); // what happened is told by whoever did it
    EXPECT_EQ(writer->events({}).value().at(0).from, "restart");
    EXPECT_EQ(writer->events({}).value().at(0).to, "done");
    writer.reset();
    EXPECT_TRUE(HistoryWriter::open(path));
}

TEST_F(History, KeepsADamagedFileAsideAndBeginsAnew) {
    { ASSERT_TRUE(HistoryWriter::open(path).value().add(reading(start, 0), {})); }
    const std::string rubbish(8192, 'x');
    std::ofstream(path, std::ios::binary) << rubbish;
    auto store = HistoryWriter::open(path);
    ASSERT_TRUE(store);
    ASSERT_TRUE(store->kept_aside());
    EXPECT_EQ(std::filesystem::file_size(*store->kept_aside()), rubbish.size());
    EXPECT_TRUE(store->rows({}).value().empty());
    EXPECT_TRUE(store->add(reading(start, 0), {}));
}

TEST_F(History, LeavesTheFileOfALaterVersionAlone) {
    { ASSERT_TRUE(HistoryWriter::open(path).value().add(reading(start, 0), {})); }
    { ASSERT_TRUE(Database::open(path, DatabaseUse::write)->execute("PRAGMA user_version = 99")); }
    const auto store = HistoryWriter::open(path);
    ASSERT_FALSE(store);
    EXPECT_EQ(store.error().code, FailureCode::history_is_newer);
    EXPECT_EQ(rows_in(path), 1U);
    EXPECT_FALSE(std::ranges::any_of(std::filesystem::directory_iterator(folder + "/deeper"), [](const auto& file) {
        return file.path().string().find("damaged") != std::string::npos;
    }));
}

TEST_F(History, TellsWhyItCannotBeOpened) {
    EXPECT_EQ(HistoryReader::open(path).error().code, FailureCode::no_such_file);
    std::ofstream(folder + "/deeper") << "in the way";
    EXPECT_FALSE(HistoryWriter::open(path));
}

// A fiftieth of five years with six sources, in the detail that they have at its end. What becomes a span is two
// readings that differ as those of a quiet minute do.
TEST_F(History, FiveYearsStayBelowSixtyMegabytes) {
    constexpr int part = 50;
    { ASSERT_TRUE(HistoryWriter::open(path)); }
    const auto empty = std::filesystem::file_size(path); // the tables begin with a page each
    auto store = HistoryWriter::open(path).value();
    std::mt19937 lot(7);
    std::normal_distribution<double> offset(0, 20e-6);
    std::normal_distribution<double> little(0, 1e-6);
    const auto now = start + 1800 * day;
    const auto fill = [&](std::int64_t from, std::int64_t count, std::int64_t step) {
        for (std::int64_t at = 0; at < count; ++at) {
            auto added = reading(from + at * step, 0);
            added.sources.resize(6, added.sources.front());
            for (auto& value : added.row.values)
                value = single_extent(offset(lot));
            for (std::size_t source = 0; source < added.sources.size(); ++source) {
                auto& row = added.sources[source];
                row.source = "2001:db8::" + std::to_string(source);
                row.offset = single_extent(offset(lot));
                row.error = 1e-3 + offset(lot);
                row.std_dev = offset(lot);
            }
            ASSERT_TRUE(store.add(added, {}));
            if (step < 60)
                continue;
            if (at % 500 == 499 && !store.thin(now))
                FAIL();
            added.row.time += 30;
            for (auto& value : added.row.values)
                value = single_extent(value->mean + little(lot));
            for (auto& row : added.sources) {
                row.time = added.row.time;
                row.offset = single_extent(row.offset->mean + little(lot));
            }
            ASSERT_TRUE(store.add(added, {}));
        }
    };
    constexpr std::int64_t hours = (5 * 365 - 90) * 24 / part;
    constexpr std::int64_t minutes = (90 - 7) * 1440 / part;
    constexpr std::int64_t whole = 7 * 8640 / part;
    fill(start, hours, 3600);
    ASSERT_TRUE(store.thin(now));
    fill(now - 80 * day, minutes, 60);
    ASSERT_TRUE(store.thin(now));
    fill(now - 5 * day, whole, 10);
    EXPECT_EQ(store.rows({}).value().size(), static_cast<std::size_t>(hours + minutes + whole));
    store = HistoryWriter(); // closes it, so that all of it lies in one file
    EXPECT_LT(std::filesystem::file_size(path) - empty, 60'000'000U / part);
    RecordProperty("bytes", std::to_string(std::filesystem::file_size(path)));
}

// Some pages of readings, and rubbish in the place of the last ones.
void damage_end_of(const std::string& path) {
    std::fstream file(path, std::ios::binary | std::ios::in | std::ios::out);
    file.seekp(static_cast<std::streamoff>(std::filesystem::file_size(path)) / 2);
    file << std::string(std::filesystem::file_size(path) / 2, 'x');
}

TEST_F(History, SetsADamagedFileAsideWhenWritingMeetsTheDamage) {
    {
        auto store = HistoryWriter::open(path).value();
        for (int at = 0; at < 500; ++at)
            ASSERT_TRUE(store.add(reading(start + at, 0), {}));
    }
    damage_end_of(path);
    testing::MemoryLogger log;
    KeptReadings kept(path, log);
    EXPECT_TRUE(kept.keep(ClockTruth(), start + 1000).value());
    EXPECT_TRUE(kept.keep(ClockTruth(), start + 2000).value());
    EXPECT_EQ(rows_in(path), 2U);
    ASSERT_EQ(log.sentences.size(), 1U);
    EXPECT_NE(log.sentences[0].find(path + ".damaged-"), std::string::npos) << log.sentences[0];
}

TEST_F(History, LooksAtAllPagesAfterAWriterThatDidNotComeToItsEnd) {
    const std::string copy = folder + "/copy.sqlite";
    {
        auto store = HistoryWriter::open(path).value();
        for (int at = 0; at < 500; ++at)
            ASSERT_TRUE(store.add(reading(start + at, 0), {}));
        ASSERT_TRUE(Database::open(path, DatabaseUse::write)->execute("PRAGMA wal_checkpoint(TRUNCATE)"));
        for (const char* const ending : {"", "-wal"}) // as a machine leaves them that goes off
            std::filesystem::copy_file(path + ending, copy + ending);
    }
    { EXPECT_FALSE(HistoryWriter::open(copy).value().kept_aside()); }
    std::ofstream(copy + "-wal").flush();
    damage_end_of(copy);
    EXPECT_TRUE(HistoryWriter::open(copy).value().kept_aside());
}

TEST_F(History, OnAFullDiskOneSentenceIsToldAndReadingsGoOnOnceThereIsRoom) {
    const testing::SmallDisk disk("300k");
    if (disk.path().empty()) {
        if (!disk.runs_the_test())
            GTEST_SKIP() << "nobody may mount a disk here";
        return;
    }
    const std::string full = disk.path() + "/history.sqlite";
    const std::string ballast = disk.path() + "/ballast";
    testing::MemoryLogger log;
    KeptReadings kept(full, log);
    ASSERT_TRUE(kept.keep(ClockTruth(), start).value());
    std::ofstream(ballast) << std::string(300'000, 'x');
    int refused = 0;
    for (int at = 1; at < 200; ++at)
        if (const auto done = kept.keep(ClockTruth(), start + 10 * at); !done)
            ++refused;
    EXPECT_GT(refused, 100);
    ASSERT_EQ(log.sentences.size(), 1U);
    EXPECT_EQ(log.sentences[0], "Cannot write " + full + ": No space left on device.");
    std::filesystem::remove(ballast);
    EXPECT_TRUE(kept.keep(ClockTruth(), start + 9000).value());
    EXPECT_EQ(HistoryReader::open(full).value().last_row().value()->time, start + 9000);
    EXPECT_EQ(rows_in(full), static_cast<std::size_t>(201 - refused));
}

struct WindowHistoryTest : History {
    testing::ManualQueue queue;
    testing::ManualMainThread main_thread;
    Broadcast broadcast{main_thread};
    testing::MemoryLogger log;
    std::vector<std::string> told;
    int growths = 0;
    std::optional<WindowHistory> history;

    WindowHistoryTest() {
        broadcast.AddListener(history_grew_key, "test", [this](auto, const auto&) { ++growths; });
        const auto tell = [this](const std::optional<Failure>& failure) {
            told.push_back(failure ? english(*failure) : "passed");
        };
        history.emplace(path, WindowHistoryParts{queue, main_thread, broadcast, log, tell});
    }
    void read(int minute) { history->keep(std::make_shared<ClockTruth>(), start + 60 * minute); }
    void settle() {
        while (queue.turn() || main_thread.turn()) {
        }
    }
};

TEST_F(WindowHistoryTest, ReadingsWaitForASlowDiskOnlyUpToALimit) {
    for (int minute = 0; minute < 1000; ++minute)
        read(minute);
    EXPECT_LT(queue.waiting(), 50U);
    EXPECT_FALSE(std::filesystem::exists(path)); // nothing waited for the disk
    settle();
    const auto rows = rows_in(path);
    EXPECT_GT(rows, 5U);
    EXPECT_EQ(growths, static_cast<int>(rows));
    read(1001);
    settle();
    EXPECT_EQ(rows_in(path), rows + 1);
}

TEST_F(WindowHistoryTest, TellsATroubleOnceAndItsEndAndWritesNothingAfterTheProgramsEnd) {
    std::ofstream(folder + "/deeper") << "in the way";
    for (int minute = 0; minute < 5; ++minute) {
        read(minute);
        settle();
    }
    ASSERT_EQ(told.size(), 1U);
    std::filesystem::remove(folder + "/deeper");
    read(6);
    settle();
    ASSERT_EQ(told.size(), 2U);
    EXPECT_EQ(told[1], "passed");
    read(7);
    history->keep(job_event(start + 421, "stop", {}));
    history.reset();
    settle();
    EXPECT_EQ(rows_in(path), 1U);
}

// Writes readings with their numbers as offsets, until it is killed, and tells each that is safe.
[[noreturn]] void write_until_killed(const std::string& path, int told) {
    auto store = HistoryWriter::open(path);
    const auto before = store ? store->rows({}).value().size() : 0;
    for (std::int64_t at = static_cast<std::int64_t>(before);; ++at) {
        if (!store || !store->add(reading(start + at, 1e-9 * static_cast<double>(at)), {}))
            ::_exit(1);
        if (::write(told, &at, sizeof at) != sizeof at)
            ::_exit(1);
    }
}

void kill_writers(const std::string& path, int kills) {
    std::int64_t safe = -1;
    for (int kill = 0; kill < kills; ++kill) {
        int ends[2];
        ASSERT_EQ(::pipe(ends), 0);
        const pid_t writer = ::fork();
        if (writer == 0)
            write_until_killed(path, ends[1]);
        ::close(ends[1]);
        for (int wait = kill % 7; wait >= 0 && ::read(ends[0], &safe, sizeof safe) == sizeof safe; --wait)
            std::this_thread::sleep_for(std::chrono::microseconds(37 * (kill % 11)));
        ::kill(writer, SIGKILL);
        int status = 0;
        ::waitpid(writer, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status));
        while (::read(ends[0], &safe, sizeof safe) == sizeof safe) {
        }
        ::close(ends[0]);
    }
    auto store = HistoryWriter::open(path).value();
    EXPECT_FALSE(store.kept_aside());
    const auto rows = store.rows({}).value();
    EXPECT_GT(safe, kills);
    ASSERT_GE(rows.size(), static_cast<std::size_t>(safe + 1));
    ASSERT_EQ(store.sources({}).value().size(), 2 * rows.size()); // no reading without its sources
    for (std::size_t at = 0; at < rows.size(); ++at)
        ASSERT_DOUBLE_EQ(mean_of(rows[at], HistoryQuantity::system_time), 1e-9 * static_cast<double>(at));
}

TEST_F(History, LosesNothingWhenItsWriterIsKilled) {
    const char* const wanted = std::getenv("HISTORY_KILLS");
    const int kills = wanted != nullptr ? std::atoi(wanted) : 60;
    constexpr int batch = 50; // into one file: all of it is looked at after each kill
    for (int done = 0; done < kills && !HasFatalFailure(); done += batch)
        kill_writers(folder + "/deeper/" + std::to_string(done), std::min(batch, kills - done));
}

ChronyReports synchronised_to(const std::string& address) {
    ChronyReports reports;
    reports.tracking.emplace();
    reports.tracking->reference_id = 1;
    reports.tracking->address = address;
    reports.tracking->leap_status = "Normal";
    return reports;
}

TEST_F(History, KeeperTakesOverAndThinsAndOutlivesItsFile) {
    HistoryKeeper keeper(path);
    HistoryKeeper other(path);
    const auto reports = synchronised_to("192.0.2.1");
    ASSERT_TRUE(keeper.keep(reports, std::nullopt, start));
    EXPECT_EQ(other.keep(reports, std::nullopt, start).error().code, FailureCode::history_has_writer);
    ASSERT_TRUE(keeper.keep(synchronised_to("192.0.2.2"), std::nullopt, start + 10));
    ASSERT_TRUE(keeper.keep(reports, std::nullopt, start + 8 * day)); // what is old becomes a span
    {
        auto reader = HistoryReader::open(path).value();
        EXPECT_EQ(reader.rows({}).value().size(), 2U);
        EXPECT_EQ(reader.events({}).value().size(), 2U);
    }
    std::filesystem::remove_all(folder + "/deeper"); // by somebody who tidied up
    ASSERT_TRUE(keeper.keep(reports, std::nullopt, start + 9 * day));
    EXPECT_EQ(rows_in(path), 1U);
    keeper = HistoryKeeper(path);
    ASSERT_TRUE(other.keep(ChronyReports(), std::nullopt, start + 9 * day + 10)); // a change that nobody saw happen
    EXPECT_EQ(HistoryReader::open(path).value().events({start + 9 * day, start + 10 * day}).value().size(), 2U);
}

TEST_F(History, AWindowKeepsAReadingEachTenSecondsAndEachChange) {
    testing::MemoryLogger log;
    const auto truth = [](const std::string& address) {
        return clock_truth(synchronised_to(address), {});
    };
    {
        KeptReadings kept(path, log);
        for (int second = 0; second < 20; ++second)
            EXPECT_EQ(kept.keep(truth("192.0.2.1"), start + second), second % 10 == 0);
        EXPECT_EQ(kept.keep(truth("192.0.2.2"), start + 20), true);
        EXPECT_EQ(kept.keep(truth("192.0.2.1"), start + 21), true);
    }
    EXPECT_EQ(rows_in(path), 4U);
    EXPECT_TRUE(log.sentences.empty());
    std::filesystem::remove_all(folder + "/deeper");
    std::ofstream(folder + "/deeper") << "in the way";
    KeptReadings kept(path, log);
    for (int second = 0; second < 60; ++second)
        EXPECT_EQ(kept.keep(truth("192.0.2.1"), start + second).has_value(), second % 10 != 0);
    EXPECT_EQ(log.sentences.size(), 1U);
}

TEST(HistoryRecorder, TellsWhatChanged) {
    const auto row = [](Verdict verdict, const std::string& reference) {
        return HistoryRow{.time = start, .verdict = verdict, .reference = reference};
    };
    const auto told = [](const std::optional<HistoryRow>& before, const HistoryRow& now) {
        std::string all;
        for (const auto& event : events_between(before, now))
            all += std::string(name_of(event.kind)) + ":" + event.from + ">" + event.to + " ";
        return all;
    };
    const auto good = row(Verdict::synchronised, "192.0.2.1");
    const auto gone = row(Verdict::unavailable, "");
    EXPECT_EQ(told(std::nullopt, good), "");
    EXPECT_EQ(told(good, good), "");
    EXPECT_EQ(told(good, row(Verdict::holdover, "192.0.2.1")), "verdict:synchronised>holdover ");
    EXPECT_EQ(told(good, row(Verdict::synchronised, "192.0.2.2")), "reference:192.0.2.1>192.0.2.2 ");
    EXPECT_EQ(told(good, gone), "chronyd:>gone verdict:synchronised>unavailable ");
    EXPECT_EQ(told(gone, good), "chronyd:>appeared verdict:unavailable>synchronised ");
}

TEST(HistoryRecorder, TakesItsNumbersFromTheReports) {
    ChronyReports reports;
    const auto none = history_reading(start, reports, std::nullopt);
    EXPECT_EQ(none.row.verdict, Verdict::unavailable);
    EXPECT_FALSE(none.row.stratum);
    EXPECT_FALSE(none.row.values[0]);

    TrackingData tracking;
    tracking.reference_id = 1;
    tracking.address = "192.0.2.1";
    tracking.stratum = 3;
    tracking.leap_status = "Normal";
    tracking.system_time = 1e-6;
    tracking.last_offset = 2e-6;
    tracking.rms_offset = 3e-6;
    tracking.frequency_ppm = 4;
    tracking.residual_frequency_ppm = 5;
    tracking.skew_ppm = 6;
    tracking.root_delay = 7e-6;
    tracking.root_dispersion = 8e-6;
    reports.tracking = tracking;
    reports.steers = false;
    SourceData source;
    source.letter = '*';
    source.source = "192.0.2.1";
    source.reach = 7;
    source.last_rx = 0;
    source.offset = 1e-3;
    reports.sources = {source};
    SourceStatistics statistics;
    statistics.source = source.source;
    statistics.std_dev = 5e-6;
    reports.statistics = {statistics};
    ErrorBudget budget;
    budget.bound = 9e-6;
    const auto read = history_reading(start, reports, budget);
    EXPECT_EQ(read.row.verdict, Verdict::synchronised);
    EXPECT_EQ(read.row.stratum, 3);
    EXPECT_EQ(read.row.steers, false);
    const std::array expected{1e-6, 2e-6, 3e-6, 4.0, 5.0, 6.0, 7e-6, 8e-6, 9e-6};
    for (std::size_t at = 0; at < expected.size(); ++at)
        EXPECT_DOUBLE_EQ(read.row.values.at(at).value().mean, expected.at(at)) << at;
    ASSERT_EQ(read.sources.size(), 1U);
    EXPECT_EQ(read.sources[0].reach, 7U);
    EXPECT_DOUBLE_EQ(read.sources[0].std_dev.value(), 5e-6);
}

} // namespace
} // namespace tickervantage
