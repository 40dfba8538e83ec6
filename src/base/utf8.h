// UTF-8: which bytes are characters. Pure functions, any thread.
#pragma once

#include <cstddef>
#include <string_view>

namespace tickervantage {

// The length in bytes of the character at the start of a text that is not empty; 0 when no well-formed one is there.
[[nodiscard]] std::size_t character_length(std::string_view text);

// One character: of the C0 and C1 controls, or DEL.
[[nodiscard]] bool is_control(std::string_view character);

// Whether every byte belongs to a well-formed character. Quick where most of them are ASCII.
[[nodiscard]] bool is_utf8(std::string_view text);

// The same, and none of them is the zero character.
[[nodiscard]] bool is_plain_utf8(std::string_view text);

} // namespace tickervantage
