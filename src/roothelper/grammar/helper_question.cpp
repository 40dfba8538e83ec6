#include "roothelper/grammar/helper_question.h"

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

int question_about(const std::vector<ConfigurationLine>& lines, std::string& question, std::string& sentence) {
    const auto can_be_shown = [](const auto& line) {
        return line.text.size() <= shown_bytes && is_plain_line(line.text);
    };
    if (lines.size() > shown_lines || !std::ranges::all_of(lines, can_be_shown)) {
        sentence = "This configuration has more or longer unusual lines than a question can show.";
        return -1;
    }
    std::string text = "This configuration lets chronyd, which starts as root, do more than usual:";
    for (const auto& line : lines)
        text += "\nline " + std::to_string(line.number) + ": " + line.text;
    question = std::move(text);
    return 0;
}

} // namespace tickervantage
