#include "chrony/configuration/config_error.h"

#include "base/failure_codes.h"
#include "base/text_lines.h"
#include "chrony/configuration/tempcomp_points.h"

#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <limits>

namespace tickervantage {
namespace {

constexpr std::string_view fatal = "Fatal error : ";
constexpr std::string_view in_file = " in file";
constexpr std::size_t largest_answer = 64U << 20U; // chronyd prints the whole configuration back

long long first_number(std::string_view text) {
    const auto digit = text.find_first_of("0123456789");
    if (digit == std::string_view::npos)
        return 0;
    long long number = 0;
    const auto read = std::from_chars(text.data() + digit, text.data() + text.size(), number);
    return read.ec == std::errc() ? number : std::numeric_limits<long long>::max();
}

std::string first_line(std::string_view text) {
    return std::string(trimmed(text.substr(0, text.find('\n'))));
}

// What chronyd says when it ends without having read the configuration, such as "Could not open ..."
std::string complaint_in(std::string_view answer) {
    const auto start = answer.find(fatal);
    return start == std::string_view::npos ? std::string() : first_line(answer.substr(start + fatal.size()));
}

// An exit status other than 0 without words that the scanner knows: the daemon would not start with this text, although
// the scanner finds no error. A file that cannot be included is the usual case.
std::optional<Failure> doubt_about(const ExecuteResult& result) {
    switch (result.outcome) {
    case ExecuteOutcome::exited:
        break;
    case ExecuteOutcome::timed_out:
        return Failure{.code = FailureCode::chronyd_too_slow};
    default:
        return result.failure.value_or(Failure{.code = FailureCode::chronyd_not_run});
    }
    if (result.exit_status == 0)
        return std::nullopt;
    return failed(FailureCode::configuration_refused, {}, said_by_others(complaint_in(result.output))).value();
}

bool cannot_read(const ExecuteResult& result, const std::string& file) {
    return result.output.find("Could not open " + file + " : Permission denied") != std::string::npos;
}

ExecuteResult ask(const SyntaxCheckParts& parts, const std::vector<std::string>& chronyds, const std::string& file) {
    ExecuteResult result;
    for (const auto& chronyd : chronyds) {
        result = parts.execute.run({.program = chronyd,
                                    .arguments = {"-p", "-f", file},
                                    .time_limit = parts.patience,
                                    .output_limit = largest_answer});
        if (!cannot_read(result, file))
            break;
    }
    return result;
}

// What chronyd does not look into before it starts.
ConfigError error_of_points(std::string_view text) {
    const auto found = tempcomp_error(text);
    if (!found)
        return {};
    return {.m_isok = false,
            .m_msg = english(found->what),
            .m_line = static_cast<long long>(found->line),
            .m_file = found->included,
            .m_doubt = found->what};
}

bool is_program(const std::string& path) {
    std::error_code error;
    return path.starts_with('/') && std::filesystem::is_regular_file(path, error) && ::access(path.c_str(), X_OK) == 0;
}

} // namespace

ConfigError parse_check_answer(std::string_view answer) {
    const auto start = answer.find(fatal);
    if (start == std::string_view::npos || start == 0)
        return {};
    const auto end = answer.find(in_file, start);
    if (end == std::string_view::npos)
        return {};
    ConfigError error;
    error.m_msg = answer.substr(start, end - start);
    error.m_line = first_number(error.m_msg);
    error.m_isok = false;
    error.m_file = first_line(answer.substr(end + in_file.size()));
    return error;
}

ConfigError checkSyntax(const SyntaxCheckParts& parts, std::string_view text) {
    const std::string file = parts.temporary + "check_chrony.conf";
    std::error_code ignored; // a file that cannot be removed cannot be replaced either
    std::filesystem::remove(file, ignored);
    ConfigError error;
    error.m_isok = false;
    if (const auto written = parts.files.replace_by(file, text); !written) {
        error.m_doubt = written.error();
        return error;
    }
    const auto chronyds = parts.chronyds();
    ExecuteResult result;
    result.outcome = ExecuteOutcome::exited;
    result.exit_status = 0;
    if (!chronyds.empty())
        result = ask(parts, chronyds, file);
    std::filesystem::remove(file, ignored);
    error = parse_check_answer(result.output);
    if (error.m_isok)
        error.m_doubt = doubt_about(result);
    if (error.m_file == file)
        error.m_file.clear();
    return error.passed() ? error_of_points(text) : error;
}

std::vector<std::string> executables(const std::string& name, const std::string& search_path) {
    std::vector<std::string> found;
    const std::string folders = search_path + ":/usr/sbin:/sbin:/usr/local/sbin";
    for (std::size_t start = 0; start <= folders.size();) {
        const auto end = std::min(folders.find(':', start), folders.size());
        const std::string path = folders.substr(start, end - start) + "/" + name;
        if (is_program(path) && std::ranges::find(found, path) == found.end())
            found.push_back(path);
        start = end + 1;
    }
    return found;
}

std::vector<std::string> find_chronyds(const std::string& search_path, const std::string& bundled) {
    auto found = executables("chronyd", search_path);
    if (is_program(bundled))
        found.push_back(bundled);
    return found;
}

} // namespace tickervantage
