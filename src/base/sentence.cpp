#include "base/sentence.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdio>

namespace tickervantage {
namespace {

constexpr std::size_t longest_foreign_text = 100; // bytes

// A report from elsewhere may hold any number: those of more digits than fit into a line have a power of ten.
std::string decimal(double number, int digits, std::string_view point) {
    constexpr double most = 1e15;
    std::array<char, 64> buffer{};
    if (!std::isfinite(number))
        return "∞";
    const int length = std::abs(number) < most ? std::snprintf(buffer.data(), buffer.size(), "%.*f", digits, number)
                                               : std::snprintf(buffer.data(), buffer.size(), "%.2e", number);
    std::string text(buffer.data(), static_cast<std::size_t>(std::max(length, 0)));
    // Whatever the C library's locale made of it.
    const auto sign = std::ranges::find_if(text, [](char one) { return one != '-' && (one < '0' || one > '9'); });
    if (sign != text.end())
        text.replace(static_cast<std::size_t>(sign - text.begin()), 1, point);
    return text;
}

std::string significant(double number, std::string_view point, double resolution = 0) {
    constexpr double most_digits = 6;
    const double size = std::abs(number);
    const int enough = size >= 99.95 ? 0 : size >= 9.995 ? 1 : 2;
    const double needed = resolution > 0 ? std::floor(-std::log10(resolution)) + 1 : 0;
    return decimal(number, std::max(enough, static_cast<int>(std::clamp(needed, 0.0, most_digits))), point);
}

struct Unit {
    const char* name;
    double seconds;
};

std::string with_unit(double seconds, std::string_view point, double resolution) {
    static constexpr std::array<Unit, 3> small{{{" ns", 1e-9}, {" µs", 1e-6}, {" ms", 1e-3}}};
    constexpr double rounds_up = 999.5; // that many are a thousand
    const double size = std::abs(seconds);
    if (size == 0)
        return "0 s";
    for (const Unit& unit : small)
        if (size < rounds_up * unit.seconds)
            return significant(seconds / unit.seconds, point, resolution / unit.seconds) + unit.name;
    return significant(seconds, point, resolution) + " s";
}

std::string signed_with_unit(double seconds, std::string_view point, double resolution) {
    const std::string size = with_unit(std::abs(seconds), point, resolution);
    return (seconds < 0 ? "−" : "+") + size;
}

std::string duration_text(double seconds) {
    const auto whole = static_cast<long long>(std::clamp(std::round(seconds), 0.0, 1e12));
    const auto parts = [](long long large, const char* name, long long small, const char* rest) {
        const std::string text = std::to_string(large) + name;
        return small == 0 ? text : text + ' ' + std::to_string(small) + rest;
    };
    if (whole < 60)
        return std::to_string(whole) + " s";
    if (whole < 3600)
        return parts(whole / 60, " min", whole % 60, " s");
    if (whole < 86400)
        return parts(whole / 3600, " h", whole % 3600 / 60, " min");
    return parts(whole / 86400, " d", whole % 86400 / 3600, " h");
}

struct TextOfValue {
    std::string_view point;
    std::string operator()(const std::string& text) const { return harmless(text); }
    std::string operator()(const Quantity& quantity) const { return text_of(quantity, point); }
    std::string operator()(const Moment& moment) const { return moment.text; }
};

} // namespace

std::string text_of(const Quantity& quantity, std::string_view decimal_point) {
    switch (quantity.kind) {
    case QuantityKind::seconds:
        return with_unit(quantity.value, decimal_point, quantity.resolution);
    case QuantityKind::signed_seconds:
        return signed_with_unit(quantity.value, decimal_point, quantity.resolution);
    case QuantityKind::duration:
        return duration_text(quantity.value);
    case QuantityKind::parts_per_million:
        return significant(quantity.value, decimal_point) + " ppm";
    case QuantityKind::count:
        break;
    }
    return decimal(quantity.value, 0, decimal_point);
}

std::string harmless(std::string text) {
    if (text.size() > longest_foreign_text) {
        std::size_t end = longest_foreign_text; // between characters of UTF-8
        while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U)
            --end;
        text.resize(end);
        text += "…";
    }
    std::ranges::replace_if(
        text, [](unsigned char sign) { return sign < 0x20 || sign == 0x7f; }, '.');
    return text;
}

std::string filled(std::string_view words, const Sentence& sentence, std::string_view decimal_point) {
    std::string text;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const bool is_place = words[i] == '%' && i + 1 < words.size() && words[i + 1] >= '1' && words[i + 1] <= '9';
        const auto number = is_place ? static_cast<std::size_t>(words[i + 1] - '1') : sentence.values.size();
        if (number < sentence.values.size())
            text += std::visit(TextOfValue{decimal_point}, sentence.values[number]);
        else
            text += words[i];
        i += number < sentence.values.size() ? 1U : 0U;
    }
    return text;
}

std::string english(const Sentence& sentence) {
    return filled(sentence.words, sentence, ".");
}

} // namespace tickervantage
