#include "roothelper/grammar/helper_question.h"

#include "base/failure_codes.h"

#include <algorithm>

namespace tickervantage {
namespace {

constexpr std::string_view plain_signs = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789 ./_-:@,+=*?[]";
constexpr std::size_t shown_lines = 12; // in a dialog
constexpr std::size_t shown_bytes = 240;

} // namespace

bool is_plain_line(std::string_view line) {
    return line.find_first_not_of(plain_signs) == std::string_view::npos;
}

Result<std::string> question_about(const std::vector<ConfigurationLine>& lines) {
    const auto can_be_shown = [](const auto& line) {
        return line.text.size() <= shown_bytes && is_plain_line(line.text);
    };
    if (lines.size() > shown_lines || !std::ranges::all_of(lines, can_be_shown))
        return failed(FailureCode::configuration_unshowable);
    std::string text = "This configuration lets chronyd, which starts as root, do more than usual:";
    for (const auto& line : lines)
        text += "\nline " + std::to_string(line.number) + ": " + line.text;
    return text;
}

} // namespace tickervantage
