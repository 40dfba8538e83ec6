// Reads what is known of the clock: from the history store, from chrony's logs, and from what chronyd said. Calls wait
// for the disk; any thread.
#pragma once

#include "base/failure.h"
#include "base/followed_file.h"
#include "studies/events/events_in.h"
#include "studies/history/history_data.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tickervantage {

// What the logs were when they were read: those that were written to since have others.
using LogStates = std::vector<std::pair<std::string, FileStatus>>;

struct HistoryPlaces {
    std::string store = {};                                  // a path; empty: none
    std::vector<std::string> logs = {};                      // files, and folders of them, the rotated ones too
    std::function<Result<>(EventsRead&)> read_messages = {}; // of chronyd, from the journal; empty: they are not known
    // What sensors showed, beside chronyd's own log of it; empty: that is not known.
    std::function<void(HistoryData&)> read_temperatures = {};
};

struct LoadedHistory {
    std::unique_ptr<HistoryData> data = std::make_unique<HistoryData>(); // of what could be read
    std::optional<Failure> store_problem = {};
    std::vector<Failure> log_problems = {};
    std::vector<std::string> logs = {}; // tracking logs with records
    LogStates states = {};              // of all logs, before they were read
    EventsRead events = {};             // that the logs and messages told
};

[[nodiscard]] LoadedHistory load_history(FollowedFiles& files, const HistoryPlaces& places);

struct HistoryNews {
    Result<StoredHistory> stored = {};          // that the store has gained
    std::optional<LoadedHistory> anew = {};     // everything, where a log was written to, rotated or added
    std::chrono::duration<double> reading = {}; // how long that took
};

// What is new since then. Logs are read as a whole: what a new record means can depend on all before it.
[[nodiscard]] HistoryNews history_news(FollowedFiles& files, const HistoryPlaces& places, std::int64_t newest_stored,
                                       const LogStates& known);

// Of the files there, and of those in folders; what is not there is left out.
[[nodiscard]] LogStates states_of(FollowedFiles& files, const std::vector<std::string>& logs);

// What the store has gained since then; a store that is not there yet has nothing.
[[nodiscard]] Result<StoredHistory> stored_after(const std::string& store, std::int64_t time);

} // namespace tickervantage
