// A sentence for people that is put together away from any language: words with %1, %2, …, marked for translators with
// TV_TEXT, and the values that go into them. Pure functions, any thread.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tickervantage {

enum class QuantityKind : unsigned char {
    seconds,        // "2.81 µs"
    signed_seconds, // "+2.81 µs"
    duration,       // "2 h 4 min"
    parts_per_million,
    count,
};

struct Quantity {
    double value = 0;
    QuantityKind kind = QuantityKind::count;
    double resolution = 0; // of seconds: a difference that has to be seen, such as an interval's width; 0: none
};

namespace quantity {
[[nodiscard]] inline Quantity seconds(double value) {
    return {.value = value, .kind = QuantityKind::seconds};
}
[[nodiscard]] inline Quantity signed_seconds(double value) {
    return {.value = value, .kind = QuantityKind::signed_seconds};
}
[[nodiscard]] inline Quantity duration(double value) {
    return {.value = value, .kind = QuantityKind::duration};
}
[[nodiscard]] inline Quantity count(double value) {
    return {.value = value, .kind = QuantityKind::count};
}
} // namespace quantity

// A time of day, which clocks of 12 hours show otherwise than those of 24.
struct Moment {
    std::int64_t seconds = 0; // since 1970, UTC
    bool has_date = false;    // of another day than today
    std::string text = {};    // "02:14", or with the date before it
};

using SentenceValue = std::variant<std::string, Quantity, Moment>;

struct Sentence {
    const char* context = ""; // of the translation
    const char* words = "";
    std::vector<SentenceValue> values = {};
};

// Three significant digits, more where the resolution asks for them, and one unit.
[[nodiscard]] std::string text_of(const Quantity& quantity, std::string_view decimal_point = ".");

// Texts of others, fit for a line: cut at 100 bytes, and control characters become dots.
[[nodiscard]] std::string harmless(std::string text);

// `words` are those of the sentence, in whatever language. Texts among the values are made harmless: a server may
// call itself anything.
[[nodiscard]] std::string filled(std::string_view words, const Sentence& sentence, std::string_view decimal_point);

[[nodiscard]] std::string english(const Sentence& sentence);

} // namespace tickervantage
