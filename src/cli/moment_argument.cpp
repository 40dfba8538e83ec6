#include "cli/moment_argument.h"

#include "chrony/data/reports.h"
#include "cli/terminal.h"

#include <cmath>

namespace tickervantage {
namespace {

std::optional<std::int64_t> moment_of(std::string text) {
    if (text.find('T') == std::string::npos)
        text += "T00:00:00Z";
    const auto moment = moment_in(text);
    return moment ? std::optional(static_cast<std::int64_t>(std::ceil(*moment))) : std::nullopt;
}

} // namespace

int take_moment(const std::optional<std::string>& text, std::int64_t& moment) {
    if (!text)
        return 0;
    const auto wanted = moment_of(*text);
    if (!wanted)
        return fail("A moment is written as 2026-11-22T01:30:00Z or 2026-11-22, not \"" + *text + "\".");
    moment = *wanted;
    return 0;
}

} // namespace tickervantage
