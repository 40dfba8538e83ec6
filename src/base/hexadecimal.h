// Bytes as two hexadecimal digits each. Pure functions, any thread.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tickervantage {

[[nodiscard]] std::string hexadecimal(std::span<const std::uint8_t> bytes); // in small letters

// False when the text is anything else than two digits a byte; the bytes may have changed all the same.
[[nodiscard]] bool read_hexadecimal(std::string_view text, std::span<std::uint8_t> bytes);

} // namespace tickervantage
