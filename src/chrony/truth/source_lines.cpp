#include "chrony/truth/source_lines.h"

#include "base/number_text.h"
#include "base/text_lines.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <map>

namespace tickervantage {
namespace {

bool is_same_word(std::string_view one, std::string_view other) {
    const auto lower = [](unsigned char sign) {
        return std::tolower(sign);
    };
    return std::ranges::equal(one, other, {}, lower, lower);
}

bool is_server_line(const std::vector<std::string_view>& words) {
    static constexpr std::array<std::string_view, 3> directives{"server", "pool", "peer"};
    return words.size() > 1 && std::ranges::any_of(directives, [&](auto one) { return is_same_word(one, words[0]); });
}

bool is_refclock_line(const std::vector<std::string_view>& words) {
    return words.size() > 2 && is_same_word(words[0], "refclock");
}

// "PPS0": three letters of the driver and the number of the clock among all, which only four letters have room for.
std::string refclock_id(const std::vector<std::string_view>& words, int number) {
    const auto option = std::ranges::find_if(words, [](auto word) { return is_same_word(word, "refid"); });
    if (option != words.end() && option + 1 != words.end())
        return std::string(*(option + 1));
    return std::string(words[1].substr(0, 3)) + std::to_string(number);
}

// Every line of every file, until one is taken.
template <typename Take>
void each_line(const std::vector<CapturedFile>& files, Take take) {
    for (const CapturedFile& file : files) {
        int number = 0;
        for (std::string_view rest = file.text; !rest.empty();) {
            const std::size_t length = std::min(rest.find('\n'), rest.size());
            const SourceLine line{.path = file.path, .line = ++number, .text = std::string(rest.substr(0, length))};
            rest.remove_prefix(std::min(length + 1, rest.size()));
            if (take(line, words(line.text)))
                return;
        }
    }
}

} // namespace

std::optional<SourceLine> line_of_source(const std::vector<CapturedFile>& configuration, std::string_view source,
                                         std::string_view name) {
    std::optional<SourceLine> found;
    int refclocks = 0;
    each_line(configuration, [&](const SourceLine& line, const std::vector<std::string_view>& words) {
        const bool names_it = is_server_line(words) &&
                              (is_same_word(words[1], source) || (!name.empty() && is_same_word(words[1], name)));
        const bool is_it = names_it || (is_refclock_line(words) && refclock_id(words, refclocks++) == source);
        if (is_it)
            found = line;
        return is_it;
    });
    return found;
}

std::optional<std::string> last_value(const std::vector<CapturedFile>& configuration, std::string_view directive) {
    std::optional<std::string> value;
    each_line(configuration, [&](const SourceLine& line, const std::vector<std::string_view>& words) {
        if (!words.empty() && is_same_word(words[0], directive))
            value = trimmed(trimmed(line.text).substr(words[0].size()));
        return false;
    });
    return value;
}

std::optional<double> last_number(const std::vector<CapturedFile>& configuration, std::string_view directive) {
    const auto value = last_value(configuration, directive);
    return value ? number_from_text<double>(first_words(*value, 1)) : std::nullopt;
}

} // namespace tickervantage
