// The configurations that were installed last, as the root helper keeps them for everybody to read.
//
// Each configuration path has a folder of its own, and each text in it a file whose name says what became of it:
// "NUMBER-SECONDS-USER-REASON.conf", with the seconds since 1970 (UTC) and the number of the user who asked for it.
// Numbers go up; the highest is what was installed last.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tickervantage {

inline constexpr const char* history_folder = "/var/lib/chronyhelper/history";
inline constexpr std::size_t longest_history = 10; // texts of one configuration

enum class HistoryReason : unsigned char {
    found,       // it lay there before, and came from elsewhere
    installed,   // it was new
    rolled_back, // it had been there before
};

struct HistoryEntry {
    std::uint64_t number = 0;
    std::int64_t seconds = 0;
    std::uint32_t user = 0;
    HistoryReason reason = HistoryReason::installed;
    friend bool operator==(const HistoryEntry&, const HistoryEntry&) = default;
};

// The folder in the history that belongs to a configuration's path.
[[nodiscard]] std::string history_folder_of(std::string_view configuration);

[[nodiscard]] std::string history_name(const HistoryEntry& entry);
[[nodiscard]] std::optional<HistoryEntry> parse_history_name(std::string_view name);

} // namespace tickervantage
