#include "chrony/truth/configuration_lines.h"

#include "base/number_text.h"
#include "base/text_lines.h"

#include <algorithm>
#include <cctype>

namespace tickervantage {
namespace {

// chronyd reads directives, and names of hosts, in any case.
std::string in_small_letters(std::string_view word) {
    std::string small(word);
    std::ranges::transform(small, small.begin(),
                           [](unsigned char sign) { return static_cast<char>(std::tolower(sign)); });
    return small;
}

// "PPS0": three letters of the driver and the number of the clock among all, which only four letters have room for.
std::string refclock_id(const std::vector<std::string_view>& words, int number) {
    const auto option = std::ranges::find(words, "refid", in_small_letters);
    if (option != words.end() && option + 1 != words.end())
        return std::string(*(option + 1));
    return std::string(words[1].substr(0, 3)) + std::to_string(number);
}

std::optional<SourceLine> found_in(const std::map<std::string, SourceLine>& lines, const std::string& key) {
    const auto found = lines.find(key);
    return found == lines.end() ? std::nullopt : std::optional(found->second);
}

} // namespace

ConfigurationLines::ConfigurationLines(const std::vector<CapturedFile>& configuration) {
    for (const CapturedFile& file : configuration) {
        int number = 0;
        for (std::string_view rest = file.text; !rest.empty();) {
            const std::size_t length = std::min(rest.find('\n'), rest.size());
            add({.path = file.path, .line = ++number, .text = std::string(rest.substr(0, length))});
            rest.remove_prefix(std::min(length + 1, rest.size()));
        }
    }
}

void ConfigurationLines::add(const SourceLine& line) {
    const auto parts = words(line.text);
    if (parts.empty())
        return;
    const std::string directive = in_small_letters(parts[0]);
    if (directive == "refclock" && parts.size() > 2) {
        m_clocks.try_emplace(refclock_id(parts, m_refclocks++), line);
    } else if ((directive == "server" || directive == "pool" || directive == "peer") && parts.size() > 1) {
        m_hosts.try_emplace(in_small_letters(parts[1]), line);
    } else {
        m_values[directive].emplace_back(trimmed(trimmed(line.text).substr(directive.size())));
    }
}

std::optional<SourceLine> ConfigurationLines::line_of(std::string_view source, std::string_view name) const {
    for (const std::string_view host : {name, source})
        if (auto line = found_in(m_hosts, in_small_letters(host)))
            return line;
    return found_in(m_clocks, std::string(source));
}

std::vector<std::string> ConfigurationLines::values(std::string_view directive) const {
    const auto found = m_values.find(std::string(directive));
    return found == m_values.end() ? std::vector<std::string>() : found->second;
}

std::optional<double> ConfigurationLines::number(std::string_view directive) const {
    const auto found = m_values.find(std::string(directive));
    return found == m_values.end() ? std::nullopt : number_from_text<double>(first_words(found->second.back(), 1));
}

} // namespace tickervantage
