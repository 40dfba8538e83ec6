// Follows what is known of the clock while it grows: a new record costs what one record costs, however long the logs
// are. Only what is no longer the same, such as a log that was rotated, is read as a whole again.
//
// Calls wait for the disk; one thread at a time.
#pragma once

#include "chrony/log/log_files.h"
#include "studies/events/selection_events.h"
#include "studies/events/tracking_events.h"
#include "studies/history/history_files.h"

#include <chrono>
#include <utility>

namespace tickervantage {

struct HistoryNews {
    std::optional<LoadedHistory> anew = {};     // everything; else the others
    std::chrono::duration<double> reading = {}; // how long that took
    LoggedNews logged = {};
    Result<StoredHistory> stored = {};
    std::optional<std::vector<HistoryTemperature>> temperatures = {};
};

class HistoryFollower {
public:
    HistoryFollower(FollowedFiles& files, HistoryPlaces places) : m_files(&files), m_places(std::move(places)) {}

    [[nodiscard]] LoadedHistory load();
    // Since load() or the last news, of the store since that time.
    [[nodiscard]] HistoryNews news(std::int64_t newest_stored);

    // Messages of chronyd are looked for no more often than that.
    void set_time_between_messages(std::chrono::seconds time) { m_between_messages = time; }

private:
    // Files, in folders too, and what each was; what is not there is left out.
    using States = std::vector<std::pair<std::string, FileStatus>>;
    struct File {
        LogFile log;
        LogTail tail = {};
    };
    struct Place {
        std::vector<File> files = {};
        TrackingEvents tracking = {};
        SelectionEvents selection = {};
        std::vector<ClockEvent> told_of_tracking = {};
        std::vector<ClockEvent> told_of_selection = {};
    };

    [[nodiscard]] States states() const;
    [[nodiscard]] FileStatus temperatures_state() const;
    void find_files(LoadedHistory& loaded);
    void load_logs(LoadedHistory& loaded);
    void load_selections(LoadedHistory& loaded);
    [[nodiscard]] Result<bool> read_values(Place& place, File& file, LoggedNews& news, LogCount& count);
    [[nodiscard]] Result<bool> read_selections(Place& place, File& file,
                                               const std::function<void(const SourceRow&)>& take);
    [[nodiscard]] std::optional<LoggedNews> read_on(const States& now);
    [[nodiscard]] bool read_on(const std::string& path, LoggedNews& news);
    void tell_events(Place& place, LoggedNews& news);
    [[nodiscard]] Result<> tell_messages(LoggedNews& news);

    FollowedFiles* m_files;
    HistoryPlaces m_places;
    std::vector<Place> m_read;
    States m_states;
    FileStatus m_temperatures;
    std::vector<ClockEvent> m_messages;
    std::chrono::seconds m_between_messages{60};
    std::chrono::steady_clock::time_point m_messages_read{};
};

} // namespace tickervantage
