#include "studies/events/events_in.h"

#include "chrony/log/log_line.h"
#include "chrony/log/log_pieces.h"
#include "studies/events/message_events.h"
#include "studies/events/selection_events.h"
#include "studies/events/tracking_events.h"

#include <algorithm>

namespace tickervantage {
namespace {

void append(EventsRead& read, const std::vector<ClockEvent>& events) {
    read.events.insert(read.events.end(), events.begin(), events.end());
}

Result<> read_file(FollowedFiles& files, const std::string& path, EventsRead& read, const TakeRecord& take) {
    LogCount count;
    auto done = read_records(files, path, count, take);
    if (auto odd = odd_lines(path, count))
        read.remarks.push_back(std::move(*odd));
    return done;
}

} // namespace

Result<> read_events(FollowedFiles& files, const std::vector<LogFile>& logs, EventsRead& read) {
    TrackingEvents tracking;
    SelectionEvents selection;
    TrackingLine tracked;
    LogLine line;
    for (const LogFile& log : logs) {
        EventPlace place{.file = log.path};
        const auto take_tracking = [&](std::string_view text, std::size_t number) {
            place.line = number;
            const bool is_record = read_tracking_line(text, tracked);
            if (is_record)
                tracking.add(tracked, place);
            return is_record;
        };
        const auto take_selection = [&](std::string_view text, std::size_t number) {
            place.line = number;
            const bool is_record = read_log_line(shape_of(LogKind::selection), text, line);
            if (is_record)
                selection.add(line, place);
            return is_record;
        };
        Result<> done;
        if (log.kind.value_or(LogKind::tracking) == LogKind::tracking)
            done = read_file(files, log.path, read, take_tracking);
        else if (log.kind == LogKind::selection)
            done = read_file(files, log.path, read, take_selection);
        if (!done)
            return done;
    }
    selection.finish();
    append(read, tracking.events());
    append(read, selection.events());
    return {};
}

Result<> read_message_events(FollowedFiles& files, const std::string& path, EventsRead& read) {
    MessageEvents messages;
    EventPlace place{.file = path};
    auto done = read_file(files, path, read, [&](std::string_view text, std::size_t number) {
        place.line = number;
        return messages.add_line(text, place);
    });
    append(read, messages.events());
    return done;
}

void sort_by_time(std::vector<ClockEvent>& events) {
    std::ranges::stable_sort(events, {}, &ClockEvent::time);
}

} // namespace tickervantage
