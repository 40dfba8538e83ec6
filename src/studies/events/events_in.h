// The events that logs and messages of chronyd tell, from their files. Calls wait for the disk: on a queue.
#pragma once

#include "chrony/log/log_files.h"
#include "studies/events/clock_event.h"

#include <string>
#include <vector>

namespace tickervantage {

struct EventsRead {
    std::vector<ClockEvent> events;
    std::vector<Failure> remarks; // lines that were left out, each file once
};

// Of the tracking and selection logs among these, which stand in the order in which they were written; others tell
// nothing and are not read. The events stand log by log: sort_by_time().
[[nodiscard]] Result<> read_events(FollowedFiles& files, const std::vector<LogFile>& logs, EventsRead& read);

// Of a file of messages, in either form of message_events.h.
[[nodiscard]] Result<> read_message_events(FollowedFiles& files, const std::string& path, EventsRead& read);

// What happened at the same second stays in its order.
void sort_by_time(std::vector<ClockEvent>& events);

} // namespace tickervantage
