#include "chrony/configuration/configuration.h"

#include "base/text_lines.h"
#include "base/utf8.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace tickervantage {

void Configuration::load(const std::string& path) {
    constexpr std::uintmax_t largest = 16U << 20U;
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error) || std::filesystem::file_size(path, error) > largest || error)
        return;
    std::ifstream file(path, std::ios::binary);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    if (file.bad() || !is_plain_utf8(text))
        return;
    read(text);
}

void Configuration::read(std::string_view text) {
    for (const auto raw : non_empty_lines(text)) {
        const auto line = trimmed(raw);
        if (line.empty() || line.front() == '#')
            continue;
        const auto key = line.substr(0, line.find_first_of(" \t"));
        const auto rest = trimmed(line.substr(key.size()));
        if (!rest.empty())
            m_config.insert_or_assign(std::string(key), std::string(rest));
    }
}

std::optional<std::string> Configuration::value(const std::string& directive) const {
    const auto found = m_config.find(directive);
    return found == m_config.end() ? std::nullopt : std::optional(found->second);
}

std::string directive_in(std::string_view text, const std::string& directive) {
    Configuration map;
    map.read(text);
    return map.value(directive).value_or("");
}

} // namespace tickervantage
