// What the records of a selection log tell: sources that disagree with the others, and that no majority agrees.
//
// chronyd writes a record for each source at each selection, one selection after the other. Records in the order of the
// log, events out; finish() after the last one. One thread. Source: chrony.conf(5), directive log, option selection.
#pragma once

#include "chrony/log/log_line.h"
#include "studies/events/clock_event.h"

#include <set>
#include <string>
#include <vector>

namespace tickervantage {

class SelectionEvents {
public:
    void add(const LogLine& line, const EventPlace& place);
    void finish();

    [[nodiscard]] const std::vector<ClockEvent>& events() const { return m_events; }

private:
    struct Judged {
        std::string source;
        char letter = '?';
        double time = 0;
        EventPlace place;
    };
    void judge_round();

    std::vector<ClockEvent> m_events;
    std::vector<Judged> m_round; // the selection that is being read
    std::set<std::string> m_falsetickers;
    bool m_has_no_majority = false;
};

} // namespace tickervantage
