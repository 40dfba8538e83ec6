#include "mainwindow/refresh.h"

#include "platform/text_lines.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tickervantage {
namespace {

ReportText shortened(std::string output, std::string problem) {
    if (limit_lines(output) && problem.empty())
        problem = "only the first " + std::to_string(most_lines) + " lines are shown.";
    return {std::move(output), std::move(problem)};
}

ReportText run_command(const RefreshRequest& request, const ExecuteResult& tracking) {
    if (request.command == "tracking")
        return shortened(tracking.output, {});
    // A chronyc that could not be run, or hung, a moment ago would only do so again.
    if (request.command == "version" || is_privileged_report(request.command) ||
        tracking.outcome != ExecuteOutcome::exited)
        return {};
    ExecuteResult result = request.runner->run(request.command);
    return shortened(std::move(result.output), std::move(result.sentence));
}

} // namespace

bool is_privileged_report(const std::string& command) {
    static constexpr std::array<std::string_view, 4> reports{"authdata", "ntpdata", "selectdata", "clients"};
    return std::ranges::find(reports, command) != reports.end();
}

bool limit_lines(std::string& text) {
    const auto continues_character = [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
    };
    std::string result;
    result.reserve(text.size());
    std::size_t lines = 0;
    std::size_t column = 0;
    for (const char byte : text) {
        const bool too_long = column == longest_line && byte != '\n' && !continues_character(byte);
        if (too_long)
            result += '\n';
        if (too_long || byte == '\n') {
            column = 0;
            if (++lines == most_lines)
                break;
        }
        result += byte;
        column += byte == '\n' || continues_character(byte) ? 0U : 1U;
    }
    text = std::move(result);
    return lines == most_lines;
}

std::optional<std::vector<std::string>> server_names(const std::string& sourcestats) {
    const auto lines = non_empty_lines(sourcestats);
    // The heading is two or three lines long, by chronyc's version, and always ends with a ruler.
    const auto ruler = std::ranges::find_if(lines, [](std::string_view line) { return line.starts_with("==="); });
    if (ruler == lines.end())
        return std::nullopt;
    std::vector<std::string> names;
    for (auto line = ruler + 1; line != lines.end(); ++line)
        if (auto name = first_words(*line, 1); !name.empty())
            names.push_back(std::move(name));
    if (names.empty())
        return std::nullopt;
    std::ranges::sort(names);
    return names;
}

RefreshReading read_status(const RefreshRequest& request, RefreshTools& tools) {
    RefreshReading reading;
    reading.gpsd_application_found = tools.gpsd_application_found();
    reading.tracking = request.runner->run("tracking");
    reading.report = parse_tracking(reading.tracking.output);
    reading.discipline = tools.running_check.check();
    reading.report_text = run_command(request, reading.tracking);
    if (request.list_servers && reading.tracking.outcome == ExecuteOutcome::exited)
        reading.servers = server_names(request.runner->run("sourcestats").output);
    return reading;
}

ReportText read_privileged_report(const RefreshRequest& request) {
    const bool authdata = request.command == "authdata";
    const bool ntpdata = request.command == "ntpdata";
    return shortened(request.runner->run_privileged(request.resolve, request.original,
                                                    authdata ? request.command + " -a" : request.command,
                                                    ntpdata ? request.server : std::string()),
                     {});
}

} // namespace tickervantage
