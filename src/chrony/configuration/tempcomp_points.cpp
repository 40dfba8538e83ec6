#include "chrony/configuration/tempcomp_points.h"

#include "base/text_lines.h"
#include "chrony/configuration/directives.h"
#include "chrony/configuration/included_files.h"
#include "chrony/services/compensation_sensor.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::uintmax_t largest_file = std::uintmax_t{1} << 20U;

std::string_view next_line(std::string_view& text) {
    const std::size_t length = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, length);
    text.remove_prefix(std::min(length + 1, text.size()));
    return line;
}

// Everybody may put a file there, a pipe that nobody writes to as well.
std::optional<std::string> contents_of(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error) || std::filesystem::file_size(path, error) > largest_file)
        return std::nullopt;
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(file), {});
}

// What a line says of a file of points; empty: nothing. chronyd works in the root folder.
struct PointsFile {
    std::string path;
    bool is_for_kernel = false; // its temperatures are in thousandths of a degree
};

PointsFile points_file_in(std::string_view line) {
    const LineParts parts = parts_of_line(line);
    const auto all = words(line);
    if (parts.kind != LineKind::directive || parts.directive->name != "tempcomp" || all.size() != 4)
        return {};
    return {.path = (all[3].starts_with('/') ? "" : "/") + std::string(all[3]),
            .is_for_kernel = all[1].starts_with("/sys/") || all[1] == compensation_temperature_path};
}

std::optional<TempcompError> error_in(std::string_view configuration, const std::string& included) {
    for (std::size_t number = 1; !configuration.empty(); ++number) {
        const auto [path, is_for_kernel] = points_file_in(next_line(configuration));
        const auto text = path.empty() ? std::nullopt : contents_of(path);
        if (!text)
            continue;
        auto points = is_for_kernel ? read_points_for_kernel(*text, path) : read_tempcomp_points(*text, path);
        if (!points)
            return TempcompError{.included = included, .line = number, .what = std::move(points).error()};
    }
    return std::nullopt;
}

} // namespace

std::optional<TempcompError> tempcomp_error(std::string_view configuration) {
    auto error = error_in(configuration, {});
    for (const IncludedFile& included : included_files(configuration))
        if (const auto text = error ? std::nullopt : contents_of(included.path))
            error = error_in(*text, included.path);
    return error;
}

} // namespace tickervantage
