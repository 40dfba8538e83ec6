#include "chrony/services/points_table.h"

#include "base/failure_codes.h"
#include "base/number_text.h"
#include "base/text_lines.h"

#include <algorithm>
#include <cmath>

namespace tickervantage {
namespace {

constexpr std::size_t longest_line = 510; // chronyd takes what is longer for two lines
constexpr double hottest_degrees = 200;   // in thousandths these are a fifth of a degree

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

Result<std::vector<TempcompPoint>> read_points_for_kernel(std::string_view text, const std::string& file) {
    auto points = read_tempcomp_points(text, file);
    if (points &&
        std::max(std::abs(points->front().temperature), std::abs(points->back().temperature)) <= hottest_degrees)
        return failed(FailureCode::points_in_degrees, {file});
    return points;
}

} // namespace tickervantage
