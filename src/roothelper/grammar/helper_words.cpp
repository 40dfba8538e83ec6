#include "roothelper/grammar/helper_words.h"

#include <algorithm>
#include <cstdint>

namespace tickervantage {
namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";

bool continues(std::string_view bytes, std::size_t at, unsigned char lowest, unsigned char highest) {
    const auto byte = at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : std::uint8_t{0};
    return byte >= lowest && byte <= highest;
}

// The length of the character that begins here, 0 when none does. Source: the Unicode Standard, table 3-7.
std::size_t character_length(std::string_view bytes) {
    const auto lead = static_cast<unsigned char>(bytes.front());
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead <= 0xDF)
        return continues(bytes, 1, 0x80, 0xBF) ? 2 : 0;
    if (lead >= 0xE0 && lead <= 0xEF) {
        const bool second = continues(bytes, 1, lead == 0xE0 ? 0xA0 : 0x80, lead == 0xED ? 0x9F : 0xBF);
        return second && continues(bytes, 2, 0x80, 0xBF) ? 3 : 0;
    }
    if (lead >= 0xF0 && lead <= 0xF4) {
        const bool second = continues(bytes, 1, lead == 0xF0 ? 0x90 : 0x80, lead == 0xF4 ? 0x8F : 0xBF);
        return second && continues(bytes, 2, 0x80, 0xBF) && continues(bytes, 3, 0x80, 0xBF) ? 4 : 0;
    }
    return 0;
}

bool is_control(std::string_view character) {
    const auto first = static_cast<unsigned char>(character[0]);
    if (character.size() == 2)
        return first == 0xC2 && static_cast<unsigned char>(character[1]) < 0xA0;
    return character.size() == 1 && (first < 0x20 || first == 0x7F);
}

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
