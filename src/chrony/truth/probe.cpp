#include "chrony/truth/probe.h"

#include "base/failure_codes.h"
#include "base/text_lines.h"

#include <fmt/format.h>

#include <charconv>
#include <chrono>
#include <cmath>

namespace tickervantage {
namespace {

// chronyd says how wrong the clock is: positive where it is behind.
constexpr std::string_view verdict_words = "System clock wrong by ";

// Nothing that chronyd would take for more than one word.
bool is_host(std::string_view host) {
    constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789.-_:%";
    return !host.empty() && host.size() < 256 && host.find_first_not_of(letters) == std::string_view::npos;
}

std::string directive_of(const ProbeRequest& request) {
    const std::string port = request.port ? fmt::format(" port {}", *request.port) : "";
    return fmt::format("server {}{}{} iburst maxsamples 1", request.host, port, request.nts ? " nts" : "");
}

ExecuteRequest run_of(const ProbeRequest& request) {
    const auto patience = std::chrono::milliseconds(static_cast<long>((request.time_limit + 3) * 1000));
    return {.program = request.chronyd,
            .arguments = {"-x", "-U", "-u", request.user, "-Q", "-t",
                          fmt::format("{:.0f}", std::ceil(request.time_limit)), directive_of(request), "cmdport 0"},
            .time_limit = patience};
}

// What chronyd says between its greeting and its farewell.
std::string complaint_in(std::string_view output) {
    std::string complaint;
    for (const std::string_view line : non_empty_lines(output)) {
        const auto blank = line.find(' ');
        const std::string_view words = blank == std::string_view::npos ? line : trimmed(line.substr(blank));
        const bool is_usual = words.starts_with("chronyd ") || words.starts_with("Disabled control") ||
                              words.starts_with("Running with") || words.starts_with("Timeout reached");
        if (!is_usual)
            complaint = words;
    }
    return complaint;
}

Failure failure_of(const ProbeRequest& request, const ExecuteResult& result) {
    if (result.failure)
        return *result.failure;
    const std::string complaint = complaint_in(result.output);
    auto silent = complaint.empty() ? failed(FailureCode::no_answer_from, {request.host})
                                    : failed(FailureCode::no_answer_from, {request.host}, said_by_others(complaint));
    return std::move(silent).value();
}

} // namespace

std::optional<double> offset_in(std::string_view chronyd_output) {
    const auto start = chronyd_output.find(verdict_words);
    if (start == std::string_view::npos)
        return std::nullopt;
    const std::string_view number = chronyd_output.substr(start + verdict_words.size());
    double behind = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), behind);
    return error == std::errc() && std::isfinite(behind) ? std::optional(0.0 - behind) : std::nullopt;
}

ProbeAnswer probe(Execute& execute, const ProbeRequest& request) {
    if (!is_host(request.host))
        return {.failure = failed(FailureCode::no_server_name).value()};
    const auto begin = std::chrono::steady_clock::now();
    const ExecuteResult result = execute.run(run_of(request));
    ProbeAnswer answer{.offset = offset_in(result.output)};
    answer.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    if (!answer.offset)
        answer.failure = failure_of(request, result);
    return answer;
}

} // namespace tickervantage
