#include "studies/events/clock_event.h"

namespace tickervantage {

std::string_view name_of(EventKind kind) {
    static constexpr std::array<std::string_view, event_kinds> names{
        "start",     "stop", "step",      "source", "lost",   "falseticker", "no_majority",
        "frequency", "gap",  "backwards", "leap",   "reboot", "suspend",     "other"};
    return names.at(static_cast<std::size_t>(kind));
}

} // namespace tickervantage
