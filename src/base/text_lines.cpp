#include "base/text_lines.h"

#include <algorithm>

namespace tickervantage {
namespace {

constexpr std::string_view white_space = " \t\n\v\f\r";

std::vector<std::string_view> split(std::string_view text, std::string_view separators) {
    std::vector<std::string_view> parts;
    std::size_t start = text.find_first_not_of(separators);
    while (start != std::string_view::npos) {
        const std::size_t end = text.find_first_of(separators, start);
        parts.push_back(text.substr(start, end - start));
        start = text.find_first_not_of(separators, end);
    }
    return parts;
}

} // namespace

std::string_view trimmed(std::string_view text) {
    const auto start = text.find_first_not_of(white_space);
    if (start == std::string_view::npos)
        return {};
    return text.substr(start, text.find_last_not_of(white_space) - start + 1);
}

std::vector<std::string_view> non_empty_lines(std::string_view text) {
    return split(text, "\n");
}

std::vector<std::string_view> words(std::string_view text) {
    return split(text, white_space);
}

std::string first_words(std::string_view text, std::size_t count) {
    const auto all = words(text);
    std::string joined;
    for (std::size_t i = 0; i < std::min(count, all.size()); ++i)
        joined.append(i == 0 ? "" : " ").append(all[i]);
    return joined;
}

} // namespace tickervantage
