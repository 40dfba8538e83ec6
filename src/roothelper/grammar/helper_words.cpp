#include "roothelper/grammar/helper_words.h"

#include "base/utf8.h"

#include <algorithm>

namespace tickervantage {
namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";

// The word at the line's start, taken off it. -1 when its quotes are not in order.
int take_word(std::string_view& line, CommandWord& word) {
    word.is_quoted = line.front() == '"';
    if (word.is_quoted)
        line.remove_prefix(1);
    const auto end = word.is_quoted ? line.find('"') : std::min(line.find_first_of(" \""), line.size());
    if (end == std::string_view::npos || (!word.is_quoted && (end == 0 || (end < line.size() && line[end] == '"'))))
        return -1;
    word.text = line.substr(0, end);
    line.remove_prefix(end + (word.is_quoted ? 1 : 0));
    return 0;
}

} // namespace

int split_command_line(std::string_view line, std::vector<CommandWord>& words) {
    std::vector<CommandWord> found;
    while (!line.empty()) {
        CommandWord word;
        if (take_word(line, word) != 0)
            return -1;
        found.push_back(std::move(word));
        if (line.empty())
            break;
        if (line.front() != ' ' || line.size() == 1)
            return -1;
        line.remove_prefix(1);
    }
    words = std::move(found);
    return 0;
}

bool is_host_name(std::string_view word) {
    constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789._:%-";
    constexpr std::size_t longest = 253; // RFC 1035
    return !word.empty() && word.size() <= longest && word.front() != '-' &&
           word.find_first_not_of(letters) == std::string_view::npos;
}

bool is_printable(std::string_view text) {
    while (!text.empty()) {
        const auto length = character_length(text);
        if (length == 0 || is_control(text.substr(0, length)))
            return false;
        text.remove_prefix(length);
    }
    return true;
}

std::string as_valid_text(std::string_view bytes, std::size_t limit) {
    std::string result;
    result.reserve(std::min(bytes.size(), limit));
    while (!bytes.empty()) {
        const auto length = bytes.front() == '\0' ? 0 : character_length(bytes);
        const auto character = length == 0 ? replacement : bytes.substr(0, length);
        if (result.size() + character.size() > limit)
            break;
        result += character;
        bytes.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return result;
}

} // namespace tickervantage
