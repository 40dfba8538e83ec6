// What chronyd wrote to the journal of this machine. Waits for the disk. Source: sd_journal_open(3).
#pragma once

#include "base/failure.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace tickervantage {

struct JournalEntry {
    double time = 0;  // s since 1970, UTC
    std::string boot; // changes when the machine is started anew
    std::string_view writer;
    std::string_view message;
};

// The messages of chrony's services in [from, to), seconds since 1970 UTC, oldest first. What the user may not read is
// not there, which is no failure.
[[nodiscard]] Result<> read_chrony_journal(std::int64_t from, std::int64_t to,
                                           const std::function<void(const JournalEntry&)>& take);

} // namespace tickervantage
