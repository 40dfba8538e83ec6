#include "base/text_difference.h"

#include <algorithm>

namespace tickervantage {
namespace {

using Lines = std::vector<std::string_view>;

constexpr std::size_t largest_table = std::size_t{1} << 22U; // cells of two bytes

Lines lines_of(std::string_view text) {
    Lines lines;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        lines.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

// How many lines the rests of two texts have in common at most, for each pair of rests.
class CommonLines {
public:
    CommonLines(const Lines& former, const Lines& latter)
        : m_width(latter.size() + 1), m_counts((former.size() + 1) * m_width) {
        for (auto i = former.size(); i-- > 0;)
            for (auto j = latter.size(); j-- > 0;)
                m_counts[i * m_width + j] = former[i] == latter[j] ? static_cast<unsigned short>(at(i + 1, j + 1) + 1)
                                                                   : std::max(at(i + 1, j), at(i, j + 1));
    }
    [[nodiscard]] unsigned short at(std::size_t i, std::size_t j) const { return m_counts[i * m_width + j]; }

private:
    std::size_t m_width;
    std::vector<unsigned short> m_counts;
};

void add(std::vector<DifferenceLine>& lines, char sign, const Lines& texts, std::size_t from, std::size_t to) {
    for (; from < to; ++from)
        lines.push_back({sign, std::string(texts[from])});
}

// Between the first and the last line that differ.
void add_middle(std::vector<DifferenceLine>& lines, const Lines& former, const Lines& latter) {
    std::size_t i = 0;
    std::size_t j = 0;
    if ((former.size() + 1) * (latter.size() + 1) <= largest_table) {
        const CommonLines common(former, latter);
        while (i < former.size() && j < latter.size())
            if (former[i] == latter[j])
                add(lines, ' ', former, i, i + 1), ++i, ++j;
            else if (common.at(i + 1, j) >= common.at(i, j + 1))
                add(lines, '-', former, i, i + 1), ++i;
            else
                add(lines, '+', latter, j, j + 1), ++j;
    }
    add(lines, '-', former, i, former.size());
    add(lines, '+', latter, j, latter.size());
}

std::vector<DifferenceLine> whole_difference(const Lines& former, const Lines& latter) {
    const auto [first, second] = std::ranges::mismatch(former, latter);
    const auto start = static_cast<std::size_t>(first - former.begin());
    std::size_t end = 0; // lines in common behind
    const auto most = std::min(former.size(), latter.size()) - start;
    while (end < most && former[former.size() - 1 - end] == latter[latter.size() - 1 - end])
        ++end;
    const auto middle = [&](const Lines& lines) {
        return Lines(lines.begin() + static_cast<std::ptrdiff_t>(start),
                     lines.end() - static_cast<std::ptrdiff_t>(end));
    };
    std::vector<DifferenceLine> lines;
    add(lines, ' ', former, 0, start);
    add_middle(lines, middle(former), middle(latter));
    add(lines, ' ', former, former.size() - end, former.size());
    return lines;
}

} // namespace

std::vector<DifferenceLine> text_difference(std::string_view former, std::string_view latter, std::size_t context) {
    const auto all = whole_difference(lines_of(former), lines_of(latter));
    std::vector<bool> shown(all.size());
    for (std::size_t at = 0; at < all.size(); ++at)
        if (all[at].sign != ' ')
            std::fill(shown.begin() + static_cast<std::ptrdiff_t>(at - std::min(at, context)),
                      shown.begin() + static_cast<std::ptrdiff_t>(std::min(at + context + 1, all.size())), true);
    std::vector<DifferenceLine> lines;
    if (std::ranges::find(shown, true) == shown.end())
        return lines;
    for (std::size_t at = 0; at < all.size(); ++at)
        if (shown[at])
            lines.push_back(all[at]);
        else if (lines.empty() || lines.back().sign != '@')
            lines.push_back({'@'});
    return lines;
}

std::string difference_text(const std::vector<DifferenceLine>& lines) {
    std::string text;
    for (const auto& line : lines)
        text += line.sign == '@' ? "...\n" : std::string(1, line.sign) + line.text + '\n';
    return text;
}

} // namespace tickervantage
