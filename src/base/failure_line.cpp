#include "base/failure_line.h"

#include "base/failure_codes.h"
#include "base/translatable.h" // IWYU pragma: keep

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace tickervantage {
namespace {

constexpr char between_parts = '\t';
constexpr char before_cause = '\x1e';
constexpr char mark = '\x1d';
constexpr std::size_t longest_line = 16384; // far more than any failure of ours has

constexpr auto names = std::to_array<std::string_view>({
#define TV_FAILURE(code, words) #code,
#include "base/failure_table.h" // IWYU pragma: keep
#undef TV_FAILURE
});

std::string without_controls(std::string text) {
    std::ranges::replace_if(
        text, [](unsigned char sign) { return sign < 0x20 || sign == 0x7f; }, ' ');
    return text;
}

std::vector<std::string> parts_of(std::string_view text, char divider) {
    std::vector<std::string> parts;
    for (std::size_t end = text.find(divider); end != std::string_view::npos; end = text.find(divider)) {
        parts.emplace_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    parts.emplace_back(text);
    return parts;
}

std::optional<Failure> single(std::string_view text) {
    std::vector<std::string> parts = parts_of(text, between_parts);
    const auto* const found = std::ranges::find(names, parts.front());
    if (found == names.end())
        return std::nullopt;
    parts.erase(parts.begin());
    return Failure{.code = static_cast<FailureCode>(found - names.begin()), .arguments = std::move(parts)};
}

} // namespace

std::string to_line(const Failure& failure) {
    std::string line(names.at(static_cast<std::size_t>(failure.code)));
    for (const std::string& argument : failure.arguments)
        line += between_parts + without_controls(argument);
    return failure.cause == nullptr ? line : line + before_cause + to_line(*failure.cause);
}

std::optional<Failure> failure_in(std::string_view line) {
    if (line.size() > longest_line)
        return std::nullopt;
    std::vector<std::string> chain = parts_of(line, before_cause);
    std::ranges::reverse(chain);
    std::optional<Failure> whole;
    for (const auto& part : chain) {
        auto failure = single(part);
        if (!failure)
            return std::nullopt;
        if (whole)
            failure->cause = std::make_shared<const Failure>(*std::move(whole));
        whole = std::move(failure);
    }
    return whole;
}

std::string marked_line(const Failure& failure) {
    return mark + to_line(failure) + '\n';
}

std::optional<Failure> take_failure(std::string& output) {
    const auto start = output.rfind(mark);
    if (start == std::string::npos || (start > 0 && output[start - 1] != '\n') || !output.ends_with('\n'))
        return std::nullopt;
    auto failure = failure_in(std::string_view(output).substr(start + 1, output.size() - start - 2));
    output.resize(start);
    return failure;
}

} // namespace tickervantage
