// Reads what is known of the clock: from the history store, from chrony's logs, and from what chronyd said. Calls wait
// for the disk; any thread.
#pragma once

#include "base/failure.h"
#include "base/followed_file.h"
#include "studies/events/events_in.h"
#include "studies/history/history_data.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

struct HistoryPlaces {
    std::string store = {};                                  // a path; empty: none
    std::vector<std::string> logs = {};                      // files, and folders of them, the rotated ones too
    std::function<Result<>(EventsRead&)> read_messages = {}; // of chronyd, from the journal; empty: they are not known
    // What sensors showed, beside chronyd's own log of it; empty: that is not known. It is in the file, if one is
    // named.
    std::function<void(HistoryData&)> read_temperatures = {};
    std::string temperatures = {};
};

struct LoadedHistory {
    std::unique_ptr<HistoryData> data = std::make_unique<HistoryData>(); // of what could be read
    std::optional<Failure> store_problem = {};
    std::vector<Failure> log_problems = {};
    std::vector<std::string> logs = {}; // tracking logs with records
};

[[nodiscard]] LoadedHistory load_history(FollowedFiles& files, const HistoryPlaces& places);

// What the store has gained since then; a store that is not there yet has nothing.
[[nodiscard]] Result<StoredHistory> stored_after(const std::string& store, std::int64_t time);

} // namespace tickervantage
