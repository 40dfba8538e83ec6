// What chronyd's messages tell, from a file of them or from the journal.
//
// A file has the form in which chronyd writes to standard error or to its own file ("2026-11-22T01:04:33Z …"), or
// journalctl's short-iso ("2026-11-22T01:04:33+0100 host chronyd[812]: …"), also mixed. Messages in order, events out.
// One thread. Source: the texts of chronyd 4.3; what it says in passing at each start is no event.
#pragma once

#include "studies/events/clock_event.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

struct LoggedMessage {
    double time = 0;         // s since 1970, UTC
    std::string_view writer; // "chronyd", "kernel"
    std::string_view text;
};

// None: the line has neither form. The texts point into the line.
[[nodiscard]] std::optional<LoggedMessage> message_in(std::string_view line);

class MessageEvents {
public:
    void add(const LoggedMessage& message, const EventPlace& place);

    // The machine was started anew before the next message.
    void note_boot() { m_has_booted = true; }

    // A line of a file. False: it has neither form.
    bool add_line(std::string_view line, const EventPlace& place);

    [[nodiscard]] const std::vector<ClockEvent>& events() const { return m_events; }

private:
    void add_of_chronyd(const LoggedMessage& message, const EventPlace& place);
    void note_sleep(const LoggedMessage& message, const EventPlace& place);

    std::vector<ClockEvent> m_events;
    bool m_has_booted = false;
    std::optional<double> m_slept; // s since 1970
};

// The journal's: `boot` changes when the machine is started anew.
class JournalEvents {
public:
    void add(const LoggedMessage& message, const std::string& boot);
    void append_to(std::vector<ClockEvent>& events) const;

private:
    MessageEvents m_messages;
    std::string m_boot;
};

} // namespace tickervantage
