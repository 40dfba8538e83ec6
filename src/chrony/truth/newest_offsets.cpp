#include "chrony/truth/newest_offsets.h"

#include "base/number_text.h"
#include "base/text_lines.h"
#include "chrony/truth/configuration_lines.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string_view>

namespace tickervantage {
namespace {

constexpr std::size_t most = 64;
constexpr std::streamoff enough = std::streamoff{32} << 10U; // bytes: twice as much as that many records have

bool names_tracking(const std::string& logs) {
    const auto names = words(logs);
    return std::ranges::find(names, "tracking") != names.end();
}

std::optional<std::string> log_of(const ConfigurationLines& lines) {
    const auto folders = lines.values("logdir");
    if (folders.empty() || folders.back().empty() || std::ranges::none_of(lines.values("log"), names_tracking))
        return std::nullopt;
    return folders.back() + "/tracking.log";
}

std::string end_of_file(const std::string& path) {
    std::error_code ignored; // what cannot be looked at is not read
    if (!std::filesystem::is_regular_file(path, ignored))
        return {};
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    const std::streamoff size = file ? std::streamoff(file.tellg()) : 0;
    std::string text(static_cast<std::size_t>(std::clamp(size, std::streamoff{0}, enough)), '\0');
    file.seekg(size - static_cast<std::streamoff>(text.size()));
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(std::max<std::streamsize>(file.gcount(), 0)));
    return text;
}

// "2026-11-22 05:23:20 192.0.2.1 3 -0.156 0.247 -5.6e-08 N 1 …"; none on a line of the heading, or where the
// reference was lost and nothing measured.
std::optional<double> offset_on(std::string_view line) {
    constexpr std::size_t column = 6;
    const auto parts = words(line);
    if (parts.size() <= column || parts[0].size() != 10 || (parts[2] == "0.0.0.0" && parts[3] == "0"))
        return std::nullopt;
    return number_from_text<double>(parts[column]);
}

} // namespace

std::optional<std::string> tracking_log_of(const std::vector<CapturedFile>& configuration) {
    return log_of(ConfigurationLines(configuration));
}

std::vector<double> newest_offsets(const std::vector<CapturedFile>& configuration) {
    std::vector<double> offsets;
    const auto path = log_of(ConfigurationLines(configuration));
    const std::string text = path ? end_of_file(*path) : "";
    for (const std::string_view line : non_empty_lines(text))
        if (const auto offset = offset_on(line))
            offsets.push_back(*offset);
    if (offsets.size() > most)
        offsets.erase(offsets.begin(), offsets.end() - most);
    return offsets;
}

} // namespace tickervantage
