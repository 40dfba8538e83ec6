#include "chrony/configuration/compensation_text.h"

#include "base/text_lines.h"
#include "chrony/configuration/configuration.h"
#include "chrony/configuration/directives.h"
#include "chrony/configuration/logging_text.h"
#include "chrony/services/compensation_sensor.h"

#include <fmt/format.h>

#include <algorithm>

namespace tickervantage {
namespace {

constexpr std::string_view own_log_line = "log tracking tempcomp";

bool is_compensation(std::string_view line) {
    const LineParts parts = parts_of_line(line);
    return parts.kind == LineKind::directive && parts.directive->name == "tempcomp";
}

bool is_own(std::string_view line) {
    const auto said = words(line);
    return is_compensation(line) && said.size() == 4 && said[1] == compensation_temperature_path &&
           said[3] == compensation_points_path;
}

// The line behind ours that was written with it.
bool is_own_log(std::string_view line) {
    return trimmed(line) == own_log_line;
}

template <class Visit>
void each_line(std::string_view text, Visit visit) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
        visit(text.substr(0, end));
        text.remove_prefix(end);
    }
}

template <class Predicate>
bool has_line(std::string_view text, Predicate predicate) {
    bool found = false;
    each_line(text, [&](std::string_view line) { found = found || predicate(line); });
    return found;
}

template <class Predicate>
std::string without_lines(std::string_view text, Predicate goes) {
    std::string rest;
    bool was_own = false;
    each_line(text, [&](std::string_view line) {
        if (!goes(line) && !(was_own && is_own_log(line)))
            rest += line;
        was_own = is_own(line);
    });
    return rest;
}

} // namespace

std::string with_compensation(std::string_view text) {
    std::string changed = without_lines(text, is_compensation);
    if (!changed.empty() && !changed.ends_with('\n'))
        changed += '\n';
    changed += fmt::format("tempcomp {} {} {}\n{}\n", compensation_temperature_path, compensation_interval,
                           compensation_points_path, own_log_line);
    if (directive_in(changed, "logdir").empty())
        changed += std::string(usual_log_folder_line) + '\n';
    return changed;
}

std::string without_compensation(std::string_view text) {
    return without_lines(text, is_own);
}

bool has_compensation(std::string_view text) {
    return has_line(text, is_own);
}

bool has_any_compensation(std::string_view text) {
    return has_line(text, is_compensation);
}

} // namespace tickervantage
