// What `tickerctl events` prints.
#pragma once

#include "studies/events/clock_event.h"

#include <iosfwd>
#include <vector>

namespace tickervantage {

// JSON: one line an event, with the keys time, kind, source, value, sentence, file and line. Returns an exit status: 1
// when there is none.
[[nodiscard]] int print_events(const std::vector<ClockEvent>& events, bool as_json, std::ostream& out);

} // namespace tickervantage
