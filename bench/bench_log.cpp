// One way through a log, from the file to records, of a tracking log with their statistics: bench_log WAY FILE
//
//   load    read and parsed on one thread
//   table   any of chrony's logs into columns, likewise
//   reader  through LogReader: read on its queue, handed over to an event loop in which a 16 ms timer runs
//   stream  the peer: getline, istringstream and get_time, into plain records
//
// Prints one line of JSON: seconds, records, bytes a record, and with "reader" how late the timer was at worst and how
// much processor time the longest stretch between two of its ticks took of the main thread.
#include "bench/timing.h"
#include "chrony/log/log_files.h"
#include "chrony/log/log_pieces.h"
#include "chrony/log/log_table.h"
#include "chrony/log/logreader.h"
#include "linux/posix_followed_file.h"
#include "linux/serial_queue.h"
#include "qt/event_loop.h"
#include "studies/tracking/tracking_records.h"

#include <QCoreApplication>
#include <QTimer>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <iomanip>
#include <sstream>
#include <vector>

namespace {

using namespace tickervantage;
using bench::Clock;
using bench::seconds_since;

struct Result {
    double seconds = 0;
    std::size_t records = 0;
    std::size_t bytes = 0;
    double worst_wait_ms = 0;
    double busiest_ms = 0;
};

void print(const Result& result) {
    std::printf("{\"seconds\": %.6f, \"records\": %zu, \"bytes_per_record\": %.2f, \"worst_wait_ms\": %.2f, "
                "\"busiest_ms\": %.2f}\n",
                result.seconds, result.records, static_cast<double>(result.bytes) / static_cast<double>(result.records),
                result.worst_wait_ms, result.busiest_ms);
}

Result load(const std::string& name) {
    PosixFollowedFiles files;
    TrackingRecords records;
    const auto start = Clock::now();
    if (const auto read = read_log(files, name, [&](std::string_view line) { records.add_line(line); }); !read)
        std::fprintf(stderr, "%s\n", english(read.error()).c_str());
    return {.seconds = seconds_since(start), .records = records.size(), .bytes = records.memory()};
}

Result table(const std::string& name) {
    PosixFollowedFiles files;
    const auto start = Clock::now();
    const auto logs = find_logs(files, {name});
    if (!logs || !logs->front().kind)
        return {};
    LogTable records(*logs->front().kind);
    LogCount count;
    const auto take = [&](std::string_view line, std::size_t) {
        return records.add_line(line);
    };
    if (const auto read = read_records(files, name, count, take); !read)
        std::fprintf(stderr, "%s\n", english(read.error()).c_str());
    return {.seconds = seconds_since(start), .records = records.size(), .bytes = records.memory()};
}

Result reader(const std::string& name, int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    constexpr int period_ms = 16;
    PosixFollowedFiles files;
    QtMainThread main_thread;
    TrackingRecords records;
    SerialQueue queue{std::string(LogReader::QUEUE_LABEL)};
    Result result;
    auto last_tick = Clock::now();
    double last_busy = bench::thread_seconds();
    const auto tick = [&] {
        result.worst_wait_ms = std::max(result.worst_wait_ms, 1000 * seconds_since(last_tick));
        result.busiest_ms = std::max(result.busiest_ms, 1000 * (bench::thread_seconds() - last_busy));
        last_tick = Clock::now();
        last_busy = bench::thread_seconds();
    };
    const auto start = Clock::now();
    const auto on_line = [&](std::string_view line, bool last) {
        records.add_line(line);
        if (!last)
            return;
        result.seconds = seconds_since(start);
        tick();
        QCoreApplication::quit();
    };
    LogReader log(name, files, queue, main_thread, {.line = on_line});
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer, &QTimer::timeout, tick);
    timer.start(period_ms);
    QTimer::singleShot(0, [&] { log.follow(); });
    QCoreApplication::exec();
    result.records = records.size();
    result.bytes = records.memory();
    return result;
}

struct PlainRecord {
    std::time_t time = 0;
    std::string address;
    std::string el;
    int stratum = 0;
    int co = 0;
    double frequency = 0;
    double skew = 0;
    double offset = 0;
    double offset_sd = 0;
    double rem_cor = 0;
    double rootdelay = 0;
    double rootdispersion = 0;
    RollingStatistics::Averages averages;
};

Result stream(const std::string& name) {
    std::vector<PlainRecord> records;
    RollingStatistics rolling;
    const auto start = Clock::now();
    std::ifstream file(name);
    for (std::string line; std::getline(file, line);) {
        std::istringstream words(line);
        std::tm time{};
        PlainRecord record;
        words >> std::get_time(&time, "%Y-%m-%d %H:%M:%S") >> record.address >> record.stratum >> record.frequency >>
            record.skew >> record.offset >> record.el >> record.co >> record.offset_sd >> record.rem_cor >>
            record.rootdelay >> record.rootdispersion;
        if (!words)
            continue;
        record.time = timegm(&time);
        record.averages = rolling.add(record.offset, record.rem_cor, record.stratum == 0 && record.co == 0);
        records.push_back(record);
    }
    return {.seconds = seconds_since(start), .records = records.size(), .bytes = records.size() * sizeof(PlainRecord)};
}

} // namespace

int main(int argc, char** argv) {
    const std::string way = argc == 3 ? argv[1] : "";
    if (way == "load")
        print(load(argv[2]));
    else if (way == "table")
        print(table(argv[2]));
    else if (way == "reader")
        print(reader(argv[2], argc, argv));
    else if (way == "stream")
        print(stream(argv[2]));
    else
        return std::fputs("Usage: bench_log load|table|reader|stream FILE\n", stderr), 2;
    return 0;
}
