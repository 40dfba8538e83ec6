// Cutting chronyc's reports into lines and words. The views point into the text given.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

// White space here is what C's isspace knows, whatever the locale.
[[nodiscard]] std::string_view trimmed(std::string_view text);
[[nodiscard]] std::vector<std::string_view> non_empty_lines(std::string_view text);
[[nodiscard]] std::vector<std::string_view> words(std::string_view text);

// The first `count` words joined by single blanks; fewer when there are fewer.
[[nodiscard]] std::string first_words(std::string_view text, std::size_t count);

} // namespace tickervantage
