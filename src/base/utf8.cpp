#include "base/utf8.h"

#include <array>
#include <cstdint>
#include <cstring>

namespace tickervantage {
namespace {

bool continues(std::string_view bytes, std::size_t at, unsigned char lowest, unsigned char highest) {
    const auto byte = at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : std::uint8_t{0};
    return byte >= lowest && byte <= highest;
}

bool is_ascii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

// Where the first character that is not ASCII stands; the size of the text when all are.
std::size_t ascii_length(std::string_view text) {
    constexpr std::uint64_t high_bits = 0x8080808080808080U;
    std::array<std::uint64_t, 8> words{};
    std::size_t at = 0;
    for (; at + sizeof words <= text.size(); at += sizeof words) {
        std::memcpy(words.data(), text.data() + at, sizeof words);
        std::uint64_t all = 0;
        for (const auto word : words)
            all |= word;
        if ((all & high_bits) != 0)
            break;
    }
    while (at < text.size() && is_ascii(text[at]))
        ++at;
    return at;
}

} // namespace

// Source: the Unicode Standard, table 3-7.
std::size_t character_length(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text.front());
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead <= 0xDF)
        return continues(text, 1, 0x80, 0xBF) ? 2 : 0;
    if (lead >= 0xE0 && lead <= 0xEF) {
        const bool second = continues(text, 1, lead == 0xE0 ? 0xA0 : 0x80, lead == 0xED ? 0x9F : 0xBF);
        return second && continues(text, 2, 0x80, 0xBF) ? 3 : 0;
    }
    if (lead >= 0xF0 && lead <= 0xF4) {
        const bool second = continues(text, 1, lead == 0xF0 ? 0x90 : 0x80, lead == 0xF4 ? 0x8F : 0xBF);
        return second && continues(text, 2, 0x80, 0xBF) && continues(text, 3, 0x80, 0xBF) ? 4 : 0;
    }
    return 0;
}

bool is_control(std::string_view character) {
    const auto first = static_cast<unsigned char>(character[0]);
    if (character.size() == 2)
        return first == 0xC2 && static_cast<unsigned char>(character[1]) < 0xA0;
    return character.size() == 1 && (first < 0x20 || first == 0x7F);
}

bool is_utf8(std::string_view text) {
    for (text.remove_prefix(ascii_length(text)); !text.empty(); text.remove_prefix(ascii_length(text))) {
        const auto length = character_length(text);
        if (length == 0)
            return false;
        text.remove_prefix(length);
    }
    return true;
}

bool is_plain_utf8(std::string_view text) {
    return text.find('\0') == std::string_view::npos && is_utf8(text);
}

} // namespace tickervantage
