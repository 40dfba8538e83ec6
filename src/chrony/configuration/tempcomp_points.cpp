#include "chrony/configuration/tempcomp_points.h"

#include "base/failure_codes.h"
#include "base/number_text.h"
#include "base/text_lines.h"
#include "chrony/configuration/directives.h"
#include "chrony/configuration/included_files.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::size_t longest_line = 510; // chronyd takes what is longer for two lines
constexpr std::uintmax_t largest_file = std::uintmax_t{1} << 20U;

std::string_view next_line(std::string_view& text) {
    const std::size_t length = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, length);
    text.remove_prefix(std::min(length + 1, text.size()));
    return line;
}

bool read_plain_number(std::string_view word, double& number) {
    if (word.starts_with('+') && !word.starts_with("+-"))
        word.remove_prefix(1);
    return read_number(word, number);
}

Result<TempcompPoint> point_in(std::string_view line) {
    constexpr std::string_view remarks = "#%;!";
    const auto columns = words(line);
    TempcompPoint point;
    if (columns.empty())
        return failed(FailureCode::points_line_blank);
    if (remarks.find(columns[0].front()) != std::string_view::npos)
        return failed(FailureCode::points_line_remark);
    if (line.size() > longest_line || columns.size() < 2 || !read_plain_number(columns[0], point.temperature) ||
        !read_plain_number(columns[1], point.compensation))
        return failed(FailureCode::points_line_unreadable);
    if (std::abs(point.compensation) > largest_compensation)
        return failed(FailureCode::points_line_beyond_limit);
    return point;
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

// chronyd works in the root folder.
std::string points_file_in(std::string_view line) {
    const LineParts parts = parts_of_line(line);
    const auto all = words(line);
    if (parts.kind != LineKind::directive || parts.directive->name != "tempcomp" || all.size() != 4)
        return {};
    return (all[3].starts_with('/') ? "" : "/") + std::string(all[3]);
}

std::optional<TempcompError> error_in(std::string_view configuration, const std::string& included) {
    for (std::size_t number = 1; !configuration.empty(); ++number) {
        const std::string path = points_file_in(next_line(configuration));
        const auto text = path.empty() ? std::nullopt : contents_of(path);
        if (!text)
            continue;
        if (auto points = read_tempcomp_points(*text, path); !points)
            return TempcompError{.included = included, .line = number, .what = std::move(points).error()};
    }
    return std::nullopt;
}

} // namespace

Result<std::vector<TempcompPoint>> read_tempcomp_points(std::string_view text, const std::string& file) {
    std::vector<TempcompPoint> points;
    std::size_t number = 0;
    const auto refused = [&](FailureCode code) {
        return failed(code, {file, std::to_string(number)});
    };
    while (!text.empty()) {
        ++number;
        const auto point = point_in(next_line(text));
        if (!point)
            return refused(point.error().code);
        if (!points.empty() && point->temperature == points.back().temperature)
            return refused(FailureCode::points_line_equal);
        if (!points.empty() && point->temperature < points.back().temperature)
            return refused(FailureCode::points_line_descending);
        points.push_back(*point);
    }
    if (points.size() < 2)
        return refused(FailureCode::points_too_few);
    return points;
}

std::optional<TempcompError> tempcomp_error(std::string_view configuration) {
    auto error = error_in(configuration, {});
    for (const IncludedFile& included : included_files(configuration))
        if (const auto text = error ? std::nullopt : contents_of(included.path))
            error = error_in(*text, included.path);
    return error;
}

} // namespace tickervantage
