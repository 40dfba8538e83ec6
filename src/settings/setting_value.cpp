#include "settings/setting_value.h"

#include "base/text_lines.h"

#include <fmt/ranges.h>

#include <algorithm>

namespace tickervantage {

SettingList list_from_text(std::string_view text) {
    SettingList parts;
    while (!text.empty()) {
        const auto comma = std::min(text.find(','), text.size());
        if (const auto part = trimmed(text.substr(0, comma)); !part.empty())
            parts.emplace_back(part);
        text.remove_prefix(std::min(comma + 1, text.size()));
    }
    return parts;
}

std::string text_from_list(const SettingList& list) {
    return fmt::format("{}", fmt::join(list, ","));
}

} // namespace tickervantage
