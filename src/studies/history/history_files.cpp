#include "studies/history/history_files.h"

#include "base/failure_codes.h"
#include "chrony/log/log_files.h"
#include "chrony/log/tracking_line.h"
#include "history/history_reader.h"
#include "studies/events/events_in.h"

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

// All that the logs of one place tell: values of its tracking logs, and events.
void read_place(FollowedFiles& files, const std::string& place, LoadedHistory& loaded, HistoryData::LogValues& log) {
    const auto found = find_logs(files, {place});
    if (!found) {
        loaded.log_problems.push_back(found.error());
        return;
    }
    std::vector<LogFile> readable;
    for (const LogFile& file : *found) {
        LogCount count;
        const bool is_tracking = file.kind.value_or(LogKind::tracking) == LogKind::tracking;
        const auto read = is_tracking
                              ? read_records(files, file.path, count,
                                             [&log](std::string_view line, std::size_t) { return add_line(line, log); })
                              : Result<>();
        if (!read) {
            loaded.log_problems.push_back(read.error());
            continue;
        }
        readable.push_back(file);
        if (count.records > 0)
            loaded.logs.push_back(file.path);
    }
    if (const auto told = read_events(files, readable, loaded.events); !told)
        loaded.log_problems.push_back(told.error());
}

} // namespace

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
    HistoryData::LogValues log;
    for (const std::string& place : places.logs)
        read_place(files, place, loaded, log);
    loaded.data->set_log(std::move(log));
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

} // namespace tickervantage
