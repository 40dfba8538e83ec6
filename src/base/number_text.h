// Numbers written as text, the same in every locale.
//
// Reading takes the whole text or nothing: no blanks, no signs in front other than "-", no units. Pure functions, any
// thread.
#pragma once

#include <array>
#include <charconv>
#include <cmath>
#include <concepts>
#include <optional>
#include <string>
#include <string_view>

namespace tickervantage {

// None too for a number that the type cannot hold, an infinity, or not-a-number.
template <std::integral Number>
[[nodiscard]] std::optional<Number> number_from_text(std::string_view text, int base = 10) {
    Number number{};
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, base);
    return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

template <std::floating_point Number>
[[nodiscard]] std::optional<Number> number_from_text(std::string_view text) {
    Number number{};
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && stop == end && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

// The same, into a number that stays as it is when there is none.
template <class Number>
[[nodiscard]] bool read_number(std::string_view text, Number& number) {
    const auto read = number_from_text<Number>(text);
    number = read.value_or(number);
    return read.has_value();
}

// The shortest text that reads back exactly; none for an infinity and for not-a-number.
[[nodiscard]] inline std::optional<std::string> text_from_double(double value) {
    std::array<char, 32> text{}; // the longest double takes 24 characters
    if (!std::isfinite(value))
        return std::nullopt;
    return std::string(text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr);
}

} // namespace tickervantage
