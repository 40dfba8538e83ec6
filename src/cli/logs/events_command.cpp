#include "cli/logs/events_command.h"

#include "chrony/data/reports.h"
#include "cli/json_text.h"
#include "cli/terminal.h"

#include <fmt/format.h>

#include <ostream>

namespace tickervantage {
namespace {

Json json_of(const ClockEvent& event) {
    const auto text = [](const std::string& one) {
        return one.empty() ? Json(nullptr) : Json(one);
    };
    return object_of({{"time", text_of_moment(event.time)},
                      {"kind", name_of(event.kind)},
                      {"source", text(event.source)},
                      {"value", or_null(event.value)},
                      {"sentence", english(event.sentence)},
                      {"file", text(event.place.file)},
                      {"line", event.place.line == 0 ? Json(nullptr) : Json(event.place.line)}});
}

} // namespace

int print_events(const std::vector<ClockEvent>& events, bool as_json, std::ostream& out) {
    for (const ClockEvent& event : events) {
        if (as_json)
            out << json_text(json_of(event), -1);
        else
            out << fmt::format("{}  {:<11}  {}\n", text_of_moment(event.time), name_of(event.kind),
                               one_line(english(event.sentence)));
    }
    return events.empty() ? answer_is_no : 0;
}

} // namespace tickervantage
