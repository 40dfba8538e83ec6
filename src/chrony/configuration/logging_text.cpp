#include "chrony/configuration/logging_text.h"

#include "base/text_lines.h"
#include "chrony/configuration/configuration.h"
#include "chrony/configuration/directives.h"

#include <algorithm>
#include <array>

namespace tickervantage {
namespace {

// Bytes, as a source that is asked adds them: its measurement, its statistics and its selection.
constexpr double bytes_an_answer = 342;
constexpr double bytes_an_update = 132; // of the clock: in the tracking log
constexpr double seconds_a_day = 86400;

// "#log tracking measurements", as distributions have it.
bool is_log_line_that_is_off(std::string_view line) {
    std::string_view rest = trimmed(line);
    if (rest.empty() || !opens_comment(rest.front()))
        return false;
    rest.remove_prefix(std::min(rest.find_first_not_of("#!;% \t"), rest.size()));
    const auto said = words(rest);
    static constexpr auto logs =
        std::to_array<std::string_view>({"tracking", "measurements", "statistics", "rawmeasurements"});
    return said.size() > 1 && said.front() == "log" &&
           std::all_of(said.begin() + 1, said.end(),
                       [](std::string_view word) { return std::ranges::find(logs, word) != logs.end(); });
}

void add_line(std::string& text, std::string_view line) {
    if (!text.empty() && !text.ends_with('\n'))
        text += '\n';
    text += line;
    text += '\n';
}

} // namespace

std::string with_logging(std::string_view text) {
    std::string changed;
    bool is_on = false;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size() - 1) + 1;
        const std::string_view line = text.substr(begin, end - begin);
        if (!is_on && is_log_line_that_is_off(line)) {
            add_line(changed, usual_log_line);
            is_on = true;
        } else {
            changed += line;
        }
        begin = end;
    }
    if (!is_on)
        add_line(changed, usual_log_line);
    if (directive_in(changed, "logdir").empty())
        add_line(changed, usual_log_folder_line);
    return changed;
}

double logged_bytes_a_day(std::span<const double> intervals) {
    double bytes = 0;
    double shortest = 0;
    for (const double interval : intervals) {
        if (interval <= 0)
            continue;
        bytes += seconds_a_day / interval * bytes_an_answer;
        shortest = shortest == 0 ? interval : std::min(shortest, interval);
    }
    return shortest == 0 ? 0 : bytes + seconds_a_day / shortest * bytes_an_update;
}

} // namespace tickervantage
