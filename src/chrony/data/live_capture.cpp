#include "chrony/data/live_capture.h"

#include "base/text_lines.h"
#include "chrony/configuration/included_files.h"
#include "chrony/data/reports.h"
#include "chrony/reports/runchronyc.h"
#include "chrony/reports/running_check.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::size_t largest_file = std::size_t{1} << 20U;

double seconds_now() {
    return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

std::string first_line(std::string_view text) {
    const auto lines = non_empty_lines(text);
    return lines.empty() ? std::string() : std::string(trimmed(lines.front()));
}

// A chronyc that could not be run, or hung, has nothing to say but why.
void add(const ExecuteResult& result, const std::vector<std::string>& asked, Capture& capture) {
    auto reports = divided_reports(result.output, asked);
    if (result.outcome != ExecuteOutcome::exited || reports.empty())
        reports[asked.front()].refusal = result.failure ? english(*result.failure) : first_line(result.output);
    capture.reports.merge(reports);
}

// The same commands, with the sources that have no address yet.
std::vector<std::string> of_all_sources(std::vector<std::string> commands) {
    static constexpr std::array<std::string_view, 4> lists{"sources", "sourcestats", "selectdata", "authdata"};
    for (std::string& command : commands)
        if (std::ranges::find(lists, command) != lists.end())
            command += " -a";
    return commands;
}

void add_names(const Runchronyc& chronyc, Capture& capture) {
    const ExecuteResult result = run_for_names(chronyc);
    CapturedReport& named = capture.reports["sources -N"];
    if (result.outcome == ExecuteOutcome::exited && result.exit_status == 0)
        named.text = result.output;
    else
        named.refusal = first_line(result.output);
}

// As large as it is, which may be nothing.
std::size_t room_for(const std::string& path) {
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    return error ? 0 : std::min<std::uintmax_t>(size, largest_file);
}

// A pipe would hold up whoever opens it.
bool is_file(const std::string& path) {
    std::error_code ignored; // what cannot be looked at is no file
    return std::filesystem::is_regular_file(path, ignored);
}

std::string text_of_file(const std::string& path) {
    if (!is_file(path))
        return {};
    std::ifstream file(path, std::ios::binary);
    std::string text(room_for(path), '\0');
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(std::max<std::streamsize>(file.gcount(), 0)));
    return text;
}

const char* fact_of(std::optional<bool> steers) {
    if (!steers)
        return "unknown";
    return *steers ? "yes" : "no";
}

} // namespace

ExecuteResult run_open_reports(const Runchronyc& chronyc) {
    return chronyc.run_for_data(of_all_sources(open_reports));
}

ExecuteResult run_root_reports(const Runchronyc& chronyc) {
    if (auto through_helper = chronyc.run_privileged_for_data())
        return *std::move(through_helper);
    return chronyc.run_for_data(of_all_sources(root_reports));
}

ExecuteResult run_for_names(const Runchronyc& chronyc) {
    return chronyc.run_for_data(of_all_sources({"sources"}), SourceNames::of_configuration);
}

Capture capture_of_open_reports(const ExecuteResult& run) {
    Capture capture;
    add(run, open_reports, capture);
    capture.facts["time"] = text_of_moment(seconds_now());
    return capture;
}

void add_root_reports(const ExecuteResult& run, Capture& capture) {
    add(run, root_reports, capture);
}

Capture read_capture(const Runchronyc& chronyc, CaptureDepth depth) {
    Capture capture = capture_of_open_reports(run_open_reports(chronyc));
    capture.facts["steers"] = fact_of(steers(RunningCheck(chronyc.extra()).check()));
    if (!capture.reports["tracking"].refusal.empty())
        return capture; // a chronyc that hung would only do so again
    if (depth != CaptureDepth::open)
        add_names(chronyc, capture);
    if (depth == CaptureDepth::with_root)
        add_root_reports(run_root_reports(chronyc), capture);
    return capture;
}

std::vector<CapturedFile> read_configuration(const std::string& path) {
    if (!is_file(path))
        return {};
    std::vector<CapturedFile> files{{.path = path, .text = text_of_file(path)}};
    for (const IncludedFile& included : included_files(files.front().text))
        files.push_back({.path = included.path, .text = text_of_file(included.path)});
    return files;
}

} // namespace tickervantage
