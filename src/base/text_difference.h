// What sets two texts apart, line by line. Any thread.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

struct DifferenceLine {
    char sign = ' '; // '-' only in the first text, '+' only in the second, ' ' in both, '@' lines are left out here
    std::string text = {};
    friend bool operator==(const DifferenceLine&, const DifferenceLine&) = default;
};

// The lines that differ, each group with up to `context` lines around it; empty: the texts have the same lines. Texts
// that differ over some thousands of lines are told as wholly different there.
[[nodiscard]] std::vector<DifferenceLine> text_difference(std::string_view former, std::string_view latter,
                                                          std::size_t context = 3);

// The same as a text, one line each behind its sign.
[[nodiscard]] std::string difference_text(const std::vector<DifferenceLine>& lines);

} // namespace tickervantage
