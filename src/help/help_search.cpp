#include "help/help_search.h"

#include "base/text_lines.h"

#include <algorithm>
#include <cctype>

namespace tickervantage {
namespace {

constexpr std::size_t excerpt_before = 30; // bytes
constexpr std::size_t excerpt_length = 90;

std::string lower_case(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(),
                           [](unsigned char c) { return static_cast<char>(c < 0x80U ? std::tolower(c) : c); });
    return lower;
}

bool is_underline(std::string_view word) {
    return word.size() > 2 && word.find_first_not_of("-=") == std::string_view::npos;
}

// Line ends and runs of blanks become one blank: a paragraph is searched as it is read, not as it is folded.
std::string joined(std::string_view paragraph) {
    std::string line;
    for (const auto word : words(paragraph))
        if (!is_underline(word)) // of a heading
            line.append(line.empty() ? "" : " ").append(word);
    return line;
}

bool begins_letter(std::string_view text, std::size_t at) {
    return at >= text.size() || (static_cast<unsigned char>(text[at]) & 0xC0U) != 0x80U;
}

std::string excerpt_of(std::string_view paragraph, std::size_t at) {
    std::size_t from = 0;
    if (at > excerpt_before) { // a whole word, where one begins before the match
        const auto blank = paragraph.find(' ', at - excerpt_before);
        from = blank < at ? blank + 1 : at;
    }
    std::size_t to = std::min(from + excerpt_length, paragraph.size());
    while (!begins_letter(paragraph, to))
        --to;
    const std::string middle(paragraph.substr(from, to - from));
    return (from > 0 ? "…" : "") + middle + (to < paragraph.size() ? "…" : "");
}

} // namespace

std::vector<std::string> search_page(std::string_view text, std::string_view query, std::size_t limit) {
    const std::string lower_query = lower_case(query);
    const auto wanted = words(lower_query);
    std::vector<std::string> hits;
    while (!wanted.empty() && !text.empty() && hits.size() < limit) {
        const auto end = std::min(text.find("\n\n"), text.size());
        const std::string paragraph = joined(text.substr(0, end));
        text.remove_prefix(std::min(end + 2, text.size()));
        const std::string lower = lower_case(paragraph);
        if (std::ranges::all_of(wanted, [&lower](const auto& word) { return lower.find(word) != std::string::npos; }))
            hits.push_back(excerpt_of(paragraph, lower.find(wanted.front())));
    }
    return hits;
}

} // namespace tickervantage
