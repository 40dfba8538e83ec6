#include "help/help_search.h"

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

std::vector<std::string> words_in(std::string_view text) {
    std::vector<std::string> words;
    for (std::size_t at = text.find_first_not_of(" \t\n"); at != std::string_view::npos;
         at = text.find_first_not_of(" \t\n", at)) {
        const auto end = std::min(text.find_first_of(" \t\n", at), text.size());
        words.emplace_back(text.substr(at, end - at));
        at = end;
    }
    return words;
}

bool is_underline(std::string_view word) {
    return word.size() > 2 && word.find_first_not_of("-=") == std::string_view::npos;
}

// Line ends and runs of blanks become one blank: a paragraph is searched as it is read, not as it is folded.
std::string joined(std::string_view paragraph) {
    std::string line;
    for (const auto& word : words_in(paragraph))
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

std::vector<std::string> search_page(std::string_view text, std::string_view words, std::size_t limit) {
    const auto wanted = words_in(lower_case(words));
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
