#include "roothelper/grammar/helper_history.h"

#include <array>
#include <charconv>

namespace tickervantage {
namespace {

constexpr std::array<std::string_view, 3> reasons{"found", "installed", "rolledback"};
constexpr std::string_view ending = ".conf";

template <class Number>
bool take_number(std::string_view& text, Number& number) {
    const auto* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop == end || *stop != '-')
        return false;
    text.remove_prefix(static_cast<std::size_t>(stop - text.data()) + 1);
    return true;
}

} // namespace

// No two paths come out alike.
std::string history_folder_of(std::string_view configuration) {
    std::string name;
    for (const char letter : configuration.substr(configuration.starts_with('/') ? 1 : 0))
        if (letter == '/')
            name += '-';
        else if (letter == '-')
            name += "%2D";
        else if (letter == '%')
            name += "%25";
        else
            name += letter;
    return name;
}

std::string history_name(const HistoryEntry& entry) {
    return std::to_string(entry.number) + '-' + std::to_string(entry.seconds) + '-' + std::to_string(entry.user) + '-' +
           std::string(reasons.at(static_cast<std::size_t>(entry.reason))) + std::string(ending);
}

std::optional<HistoryEntry> parse_history_name(std::string_view name) {
    HistoryEntry entry;
    if (!name.ends_with(ending) || !take_number(name, entry.number) || !take_number(name, entry.seconds) ||
        !take_number(name, entry.user))
        return std::nullopt;
    name.remove_suffix(ending.size());
    for (std::size_t at = 0; at < reasons.size(); ++at)
        if (name == reasons.at(at)) {
            entry.reason = static_cast<HistoryReason>(at);
            return entry;
        }
    return std::nullopt;
}

} // namespace tickervantage
