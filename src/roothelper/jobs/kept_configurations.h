// The configurations that the root helper has kept, as they can be looked at and brought back.
//
// Reads files that everybody may read, and blocks for as long as the disk does. Any thread.
#pragma once

#include "roothelper/grammar/helper_history.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tickervantage {

class JobMachine;

struct KeptConfiguration {
    HistoryEntry entry;
    std::string text;
    std::string user;
    bool is_installed = false; // it is what lies in its place
};

// Those of the configuration at this path, the newest first. One that cannot be read is left out.
[[nodiscard]] std::vector<KeptConfiguration> kept_configurations(const JobMachine& machine,
                                                                 const std::string& configuration,
                                                                 const std::string& history = history_folder);

[[nodiscard]] const KeptConfiguration* find_kept(const std::vector<KeptConfiguration>& kept, std::uint64_t number);

// "2026-11-22 04:05:06 +0100", in this machine's zone.
[[nodiscard]] std::string local_date_text(std::int64_t seconds);

// Why it was kept, in a few words.
[[nodiscard]] const char* reason_text(HistoryReason reason);

} // namespace tickervantage
