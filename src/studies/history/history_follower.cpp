#include "studies/history/history_follower.h"

#include "base/failure_codes.h"
#include "chrony/log/log_line.h"
#include "chrony/log/tracking_line.h"
#include "studies/events/events_in.h"
#include "studies/history/selection_lanes.h"

#include <algorithm>
#include <cmath>

namespace tickervantage {
namespace {

void add_values(const TrackingLine& line, LogValues& log) {
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
}

// chronyd writes what the sensor's file says: degrees, or thousandths of them as the kernel has it.
double celsius_of(double written) {
    constexpr double hottest = 200;
    return std::abs(written) > hottest ? written / 1000 : written;
}

bool is_tracking(const LogFile& log) {
    return log.kind.value_or(LogKind::tracking) == LogKind::tracking;
}

bool is_same(const ClockEvent& one, const ClockEvent& other) {
    return one.time == other.time && one.kind == other.kind && one.value == other.value && one.source == other.source;
}

// What differs from what was told; most often that is nothing, or something at the end.
void tell(std::vector<ClockEvent>& told, const std::vector<ClockEvent>& now, LoggedNews& news) {
    const auto [before, after] = std::ranges::mismatch(told, now, is_same);
    news.withdrawn.insert(news.withdrawn.end(), before, told.end());
    news.events.insert(news.events.end(), after, now.end());
    told.erase(before, told.end());
    told.insert(told.end(), after, now.end());
}

} // namespace

HistoryFollower::States HistoryFollower::states() const {
    States states;
    std::optional<Failure> unreadable; // said when it is read
    const auto look_at = [&](const std::string& path) {
        FileStatus status;
        if (m_files->status(path, status, unreadable) == FollowedFiles::Found::file)
            states.emplace_back(path, status);
    };
    for (const std::string& place : m_places.logs)
        if (auto names = m_files->names_in(place)) {
            std::ranges::sort(*names);
            for (const std::string& name : *names)
                look_at(place + (place.ends_with('/') ? "" : "/") + name);
        } else {
            look_at(place);
        }
    return states;
}

FileStatus HistoryFollower::temperatures_state() const {
    FileStatus status;
    std::optional<Failure> unreadable;
    if (!m_places.temperatures.empty())
        (void)m_files->status(m_places.temperatures, status, unreadable);
    return status;
}

void HistoryFollower::find_files(LoadedHistory& loaded) {
    m_read.clear();
    for (const std::string& place : m_places.logs) {
        const auto found = find_logs(*m_files, {place});
        if (!found) {
            loaded.log_problems.push_back(found.error());
            continue;
        }
        Place& one = m_read.emplace_back();
        for (const LogFile& log : *found)
            one.files.push_back({log});
    }
}

// Of a tracking log and of that of chronyd's compensation; others have none.
Result<bool> HistoryFollower::read_values(Place& place, File& file, LoggedNews& news, LogCount& count) {
    EventPlace where{.file = file.log.path};
    TrackingLine tracked;
    const auto take_tracking = [&](std::string_view text, std::size_t number) {
        if (!read_tracking_line(text, tracked))
            return false;
        where.line = number;
        add_values(tracked, news.values);
        place.tracking.add(tracked, where);
        return true;
    };
    LogLine line;
    const auto take_compensation = [&](std::string_view text, std::size_t) {
        if (!read_log_line(shape_of(LogKind::tempcomp), text, line))
            return false;
        const double time = line.time();
        const double made = line.number(tempcomp_column::compensation);
        news.temperatures.push_back({time, celsius_of(line.number(tempcomp_column::temperature))});
        news.values.lines[static_cast<std::size_t>(HistoryLine::compensation)].push_back({time, made, made, made});
        news.values.times.push_back(time);
        return true;
    };
    if (is_tracking(file.log))
        return read_records_on(*m_files, file.log.path, file.tail, count, take_tracking);
    if (file.log.kind == LogKind::tempcomp)
        return read_records_on(*m_files, file.log.path, file.tail, count, take_compensation);
    return true;
}

Result<bool> HistoryFollower::read_selections(Place& place, File& file,
                                              const std::function<void(const SourceRow&)>& take) {
    EventPlace where{.file = file.log.path};
    LogLine line;
    LogCount count;
    return read_records_on(*m_files, file.log.path, file.tail, count, [&](std::string_view text, std::size_t number) {
        if (!read_log_line(shape_of(LogKind::selection), text, line))
            return false;
        where.line = number;
        place.selection.add(line, where);
        if (m_places.store.empty()) // which knows the sources too, and more of them
            take(selection_row(line));
        return true;
    });
}

void HistoryFollower::load_logs(LoadedHistory& loaded) {
    LoggedNews read;
    for (Place& place : m_read)
        for (File& file : place.files) {
            LogCount count;
            if (const auto done = read_values(place, file, read, count); !done)
                loaded.log_problems.push_back(done.error());
            else if (count.records > 0 && is_tracking(file.log))
                loaded.logs.push_back(file.log.path);
        }
    loaded.data->set_log(std::move(read.values));
    for (const LoggedTemperature& one : read.temperatures)
        loaded.data->add_temperature({}, one.time, one.celsius);
}

void HistoryFollower::load_selections(LoadedHistory& loaded) {
    for (Place& place : m_read)
        for (File& file : place.files)
            if (file.log.kind == LogKind::selection)
                if (const auto done =
                        read_selections(place, file, [&](const SourceRow& row) { loaded.data->add_logged(row); });
                    !done)
                    loaded.log_problems.push_back(done.error());
}

void HistoryFollower::tell_events(Place& place, LoggedNews& news) {
    tell(place.told_of_tracking, place.tracking.events(), news);
    SelectionEvents judged = place.selection; // of a selection that may go on
    judged.finish();
    tell(place.told_of_selection, judged.events(), news);
}

Result<> HistoryFollower::tell_messages(LoggedNews& news) {
    m_messages_read = std::chrono::steady_clock::now();
    EventsRead read;
    if (!m_places.read_messages)
        return {};
    auto done = m_places.read_messages(read);
    if (done)
        tell(m_messages, read.events, news);
    return done;
}

LoadedHistory HistoryFollower::load() {
    LoadedHistory loaded;
    m_states = states();
    m_temperatures = temperatures_state();
    m_messages.clear();
    find_files(loaded);
    load_logs(loaded);
    load_selections(loaded);
    if (m_places.read_temperatures)
        m_places.read_temperatures(*loaded.data);
    LoggedNews told;
    for (Place& place : m_read)
        tell_events(place, told);
    if (const auto messages = tell_messages(told); !messages)
        loaded.log_problems.push_back(messages.error());
    sort_by_time(told.events);
    for (const ClockEvent& event : told.events)
        loaded.data->add(event);
    if (m_places.store.empty())
        return loaded;
    if (const auto stored = stored_after(m_places.store, -1))
        (void)loaded.data->add(*stored);
    else
        loaded.store_problem = stored.error();
    return loaded;
}

// False: all is to be read anew.
bool HistoryFollower::read_on(const std::string& path, LoggedNews& news) {
    for (Place& place : m_read)
        for (File& file : place.files) {
            if (file.log.path != path)
                continue;
            LogCount count;
            const auto done =
                file.log.kind == LogKind::selection
                    ? read_selections(place, file, [&](const SourceRow& row) { news.selections.push_back(row); })
                    : read_values(place, file, news, count);
            return done && *done;
        }
    const auto found = find_logs(*m_files, {path}); // by now it may be a log
    return found && !found->front().kind;
}

// None: all is to be read anew.
std::optional<LoggedNews> HistoryFollower::read_on(const States& now) {
    const auto is_same_file = [](const auto& one, const auto& other) {
        return one.first == other.first && one.second.is_same_file(other.second) &&
               one.second.size <= other.second.size;
    };
    LoggedNews news;
    if (!std::ranges::equal(m_states, now, is_same_file))
        return std::nullopt;
    for (std::size_t at = 0; at < now.size(); ++at)
        if (now[at].second != m_states[at].second && !read_on(now[at].first, news))
            return std::nullopt;
    for (Place& place : m_read)
        tell_events(place, news);
    return news;
}

HistoryNews HistoryFollower::news(std::int64_t newest_stored) {
    HistoryNews news;
    const States now = states();
    if (now != m_states) {
        const auto begun = std::chrono::steady_clock::now();
        auto logged = read_on(now);
        if (!logged) {
            news.anew = load();
            news.reading = std::chrono::steady_clock::now() - begun;
            return news;
        }
        news.logged = std::move(*logged);
        m_states = now;
    }
    if (std::chrono::steady_clock::now() - m_messages_read >= m_between_messages)
        (void)tell_messages(news.logged); // what cannot be read was said at the beginning
    if (const FileStatus state = temperatures_state(); state != m_temperatures && m_places.read_temperatures) {
        m_temperatures = state;
        HistoryData read;
        m_places.read_temperatures(read);
        news.temperatures = read.temperatures();
    }
    if (!m_places.store.empty())
        news.stored = stored_after(m_places.store, newest_stored);
    return news;
}

} // namespace tickervantage
