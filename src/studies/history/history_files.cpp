#include "studies/history/history_files.h"

#include "base/failure_codes.h"
#include "chrony/log/log_files.h"
#include "chrony/log/log_line.h"
#include "chrony/log/tracking_line.h"
#include "history/history_reader.h"
#include "studies/events/events_in.h"
#include "studies/history/selection_lanes.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tickervantage {
namespace {

bool add_line(std::string_view text, HistoryData::LogValues& log) {
    TrackingLine line;
    if (!read_tracking_line(text, line))
        return false;
    const auto time = static_cast<double>(line.timestamp);
    log.times.push_back(time);
    const auto put = [&](HistoryLine which, const TimedExtent& value) {
        if (!std::isnan(value.mean))
            log.lines[static_cast<std::size_t>(which)].push_back(value);
    };
    const auto put_one = [&](HistoryLine which, const LogNumber& number) {
        put(which, {time, number.value, number.value, number.value});
    };
    put_one(HistoryLine::offset, line.offset);
    put_one(HistoryLine::bound, line.max_error);
    put_one(HistoryLine::frequency, line.frequency);
    put_one(HistoryLine::root_delay, line.root_delay);
    put_one(HistoryLine::root_dispersion, line.rootdispersion);
    if (!std::isnan(line.skew.value))
        put(HistoryLine::skew_band, {time, line.frequency.value - line.skew.value, line.frequency.value,
                                     line.frequency.value + line.skew.value});
    return true;
}

// chronyd writes what the sensor's file says: degrees, or thousandths of them as the kernel has it.
double celsius_of(double written) {
    constexpr double hottest = 200;
    return std::abs(written) > hottest ? written / 1000 : written;
}

Result<> read_compensation(FollowedFiles& files, const LogFile& file, HistoryData& data, HistoryData::LogValues& log,
                           LogCount& count) {
    LogLine line;
    return read_records(files, file.path, count, [&](std::string_view text, std::size_t) {
        if (!read_log_line(shape_of(LogKind::tempcomp), text, line))
            return false;
        const double time = line.time();
        const double made = line.number(tempcomp_column::compensation);
        data.add_temperature({}, time, celsius_of(line.number(tempcomp_column::temperature)));
        log.lines[static_cast<std::size_t>(HistoryLine::compensation)].push_back({time, made, made, made});
        log.times.push_back(time);
        return true;
    });
}

// All that the logs of one place tell: values of its tracking logs, and events. Those of the selection stay for later.
void read_place(FollowedFiles& files, const std::string& place, LoadedHistory& loaded, HistoryData::LogValues& log,
                std::vector<LogFile>& selections) {
    const auto found = find_logs(files, {place});
    if (!found) {
        loaded.log_problems.push_back(found.error());
        return;
    }
    std::vector<LogFile> readable;
    for (const LogFile& file : *found) {
        LogCount count;
        Result<> read;
        if (file.kind.value_or(LogKind::tracking) == LogKind::tracking)
            read = read_records(files, file.path, count,
                                [&log](std::string_view line, std::size_t) { return add_line(line, log); });
        else if (file.kind == LogKind::tempcomp)
            read = read_compensation(files, file, *loaded.data, log, count);
        if (!read) {
            loaded.log_problems.push_back(read.error());
            continue;
        }
        readable.push_back(file);
        if (file.kind == LogKind::selection)
            selections.push_back(file);
        if (count.records > 0 && file.kind != LogKind::tempcomp)
            loaded.logs.push_back(file.path);
    }
    if (const auto told = read_events(files, readable, loaded.events); !told)
        loaded.log_problems.push_back(told.error());
}

} // namespace

LogStates states_of(FollowedFiles& files, const std::vector<std::string>& logs) {
    LogStates states;
    std::optional<Failure> unreadable; // said when it is read
    const auto look_at = [&](const std::string& path) {
        FileStatus status;
        if (files.status(path, status, unreadable) == FollowedFiles::Found::file)
            states.emplace_back(path, status);
    };
    for (const std::string& place : logs)
        if (auto names = files.names_in(place)) {
            std::ranges::sort(*names);
            for (const std::string& name : *names)
                look_at(place + (place.ends_with('/') ? "" : "/") + name);
        } else {
            look_at(place);
        }
    return states;
}

Result<StoredHistory> stored_after(const std::string& store, std::int64_t time) {
    auto reader = HistoryReader::open(store);
    if (!reader)
        return tl::unexpected(reader.error());
    StoredHistory stored;
    const HistoryPeriod period{.from = time + 1};
    auto rows = reader->rows(period);
    auto sources = rows ? reader->sources(period) : tl::unexpected(rows.error());
    auto events = sources ? reader->events(period) : tl::unexpected(sources.error());
    if (!events)
        return tl::unexpected(events.error());
    return StoredHistory{std::move(*rows), std::move(*sources), std::move(*events)};
}

LoadedHistory load_history(FollowedFiles& files, const HistoryPlaces& places) {
    LoadedHistory loaded;
    loaded.states = states_of(files, places.logs);
    HistoryData::LogValues log;
    std::vector<LogFile> selections;
    for (const std::string& place : places.logs)
        read_place(files, place, loaded, log, selections);
    loaded.data->set_log(std::move(log));
    if (places.store.empty()) // which knows the sources too, and more of them
        if (const auto read = add_selection(files, selections, *loaded.data); !read)
            loaded.log_problems.push_back(read.error());
    if (places.read_temperatures)
        places.read_temperatures(*loaded.data);
    if (places.read_messages)
        if (const auto told = places.read_messages(loaded.events); !told)
            loaded.log_problems.push_back(told.error());
    sort_by_time(loaded.events.events);
    for (const ClockEvent& event : loaded.events.events)
        loaded.data->add(event);
    if (places.store.empty())
        return loaded;
    if (const auto stored = stored_after(places.store, -1))
        (void)loaded.data->add(*stored);
    else
        loaded.store_problem = stored.error();
    return loaded;
}

HistoryNews history_news(FollowedFiles& files, const HistoryPlaces& places, std::int64_t newest_stored,
                         const LogStates& known) {
    HistoryNews news;
    if (states_of(files, places.logs) != known) {
        const auto begun = std::chrono::steady_clock::now();
        news.anew = load_history(files, places);
        news.reading = std::chrono::steady_clock::now() - begun;
    } else if (!places.store.empty()) {
        news.stored = stored_after(places.store, newest_stored);
    }
    return news;
}

} // namespace tickervantage
