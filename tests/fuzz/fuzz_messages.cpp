// Any bytes as messages of chronyd: at most two events a line, each with a sentence and a finite value.
#include "fuzz/require.h"
#include "studies/events/message_events.h"

#include <cmath>

FUZZED(text) {
    using namespace tickervantage;
    MessageEvents messages;
    std::size_t lines = 0;
    for (std::string_view rest = text; !rest.empty(); ++lines) {
        const auto length = std::min(rest.find('\n'), rest.size());
        (void)messages.add_line(rest.substr(0, length), {"messages", lines + 1});
        rest.remove_prefix(std::min(length + 1, rest.size()));
    }
    require(messages.events().size() <= 2 * lines);
    for (const ClockEvent& event : messages.events()) {
        require(std::isfinite(event.time) && std::isfinite(event.value.value_or(0)));
        require(!english(event.sentence).empty());
    }
}
