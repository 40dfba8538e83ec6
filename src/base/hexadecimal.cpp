#include "base/hexadecimal.h"

#include "base/number_text.h"

#include <cstddef>

namespace tickervantage {

std::string hexadecimal(std::span<const std::uint8_t> bytes) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    for (const auto byte : bytes) {
        text += digits[byte >> 4U];
        text += digits[byte & 0xFU];
    }
    return text;
}

bool read_hexadecimal(std::string_view text, std::span<std::uint8_t> bytes) {
    if (text.size() != 2 * bytes.size())
        return false;
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const auto byte = number_from_text<std::uint8_t>(text.substr(2 * at, 2), 16);
        if (!byte)
            return false;
        bytes[at] = *byte;
    }
    return true;
}

} // namespace tickervantage
