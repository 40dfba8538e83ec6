#include "qt/local_number.h"

#include <QLocale>

#include <algorithm>

namespace tickervantage {
namespace {

constexpr std::string_view digits = "0123456789";

// Where the decimals of a number at the start of the text begin; npos where the text is something else.
std::size_t point_of(std::string_view text) {
    constexpr std::string_view minus = "−";
    const auto start = text.starts_with(minus)                          ? minus.size()
                       : text.starts_with('-') || text.starts_with('+') ? 1U
                                                                        : 0U;
    const auto point = text.find_first_not_of(digits, start);
    if (point == std::string_view::npos || text[point] != '.')
        return std::string_view::npos;
    const auto end = std::min(text.find_first_not_of(digits, point + 1), text.size());
    const bool is_alone = end == text.size() || text[end] == ' ' || text[end] == 'e';
    return end > point + 1 && is_alone ? point : std::string_view::npos;
}

} // namespace

std::string with_local_point(std::string_view text) {
    std::string shown(text);
    const auto point = point_of(text);
    if (point != std::string_view::npos)
        shown.replace(point, 1, QLocale().decimalPoint().toStdString());
    return shown;
}

} // namespace tickervantage
