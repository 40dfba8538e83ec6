// Any bytes as a configuration that was saved, asked for a source by any name: the line that is found is one of it,
// the numbers of directives are finite, and poll intervals are those that chronyd knows.
#include "chrony/configuration/poll_limits.h"
#include "chrony/truth/configuration_lines.h"
#include "fuzz/require.h"

#include <cmath>

using namespace tickervantage;

namespace {

std::string take_line(std::string& text) {
    const std::size_t length = std::min(text.find('\n'), text.size());
    std::string line = text.substr(0, length);
    text.erase(0, length + 1);
    return line;
}

std::string line_at(std::string text, int number) {
    for (; number > 1; --number)
        (void)take_line(text);
    return take_line(text);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string text(data, data + size);
    const std::string source = take_line(text);
    const std::string name = take_line(text);
    const ConfigurationLines lines({{.path = "/one", .text = text}, {.path = "/two", .text = source}});
    if (const auto found = lines.line_of(source, name)) {
        require(found->line >= 1);
        require(found->text == line_at(found->path == "/one" ? text : source, found->line));
    }
    for (const auto& directive : {source, name, std::string("maxclockerror")}) {
        const auto number = lines.number(directive);
        require(!number || (std::isfinite(*number) && !lines.values(directive).empty()));
    }
    const PollLimits polls = poll_limits_in(text);
    require(polls.minpoll <= polls.maxpoll && polls.minpoll >= -7 && polls.maxpoll <= 24);
    return 0;
}
