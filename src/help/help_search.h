// Finds words in the text form of a page. Any thread.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

// One hit for every paragraph that holds all words of the query, in any order and, for ASCII, in any case; at most
// `limit`. A hit is one line out of the paragraph around the first of the words; where it leaves something out stands
// "…".
[[nodiscard]] std::vector<std::string> search_page(std::string_view text, std::string_view query, std::size_t limit);

} // namespace tickervantage
