// The history of the clock in a file: $XDG_DATA_HOME/Tickervantage/history.sqlite (SQLite, write-ahead log).
//
// One process writes at a time, whoever comes first; others read meanwhile. A process that is killed loses the reading
// that it was about to write and nothing else; after a power cut the last few may be missing. Readings are whole for 7
// days, one row a minute for 90, one an hour for 5 years: below 60 MB for a reading each 10 s with 6 sources.
// All calls wait for the disk; one thread at a time.
#pragma once

#include "history/history_reader.h"
#include "linux/small_file.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

struct HistoryOpening {
    std::shared_ptr<DatabaseStop> stop = {}; // breaks off what takes long
    bool is_damaged = false;                 // writing to it said so: the file is set aside
};

class HistoryWriter : public HistoryReader {
public:
    // Makes the file with its folders. All pages of it are looked at after a writer that did not come to its end, else
    // the first ones: damage elsewhere is met by what reads there. A damaged file is set aside under a name that
    // `kept_aside` tells. Fails with history_has_writer while another process writes, and with history_is_newer for the
    // file of a later version.
    [[nodiscard]] static Result<HistoryWriter> open(const std::string& path, const HistoryOpening& opening = {});

    // Of one event, whoever else writes meanwhile. Makes no file.
    [[nodiscard]] static Result<> add_beside(const std::string& path, const HistoryEvent& event);

    [[nodiscard]] const std::optional<std::string>& kept_aside() const { return m_kept_aside; }

    // In one transaction: all of it or nothing.
    [[nodiscard]] Result<> add(const HistoryReading& reading, const std::vector<HistoryEvent>& events);
    [[nodiscard]] Result<> add(const HistoryEvent& event);
    // Many readings in one transaction.
    [[nodiscard]] Result<> add(const std::vector<HistoryReading>& readings, const std::vector<HistoryEvent>& events);

    // Makes spans of what is old enough at `now`, a day's worth for each transaction; ends early when it is stopped.
    [[nodiscard]] Result<> thin(std::int64_t now);

private:
    [[nodiscard]] static Result<HistoryWriter> opened(const std::string& path, const HistoryOpening& opening);
    [[nodiscard]] Result<> prepare();
    [[nodiscard]] Result<> thin_level(int from, int to, std::int64_t end);
    [[nodiscard]] Result<> thin_day(int from, int to, const HistoryPeriod& day);
    [[nodiscard]] Result<std::optional<std::int64_t>> id_of(const std::string& name);
    [[nodiscard]] Result<> add_whole(const HistoryReading& reading);
    [[nodiscard]] Result<> add_row(const HistoryRow& row);
    [[nodiscard]] Result<> add_source(const SourceRow& row);

    FileLock m_lock; // held for as long as this process writes
    std::shared_ptr<DatabaseStop> m_stop;
    std::optional<std::string> m_kept_aside;
    // Prepared once, since they run at each reading.
    Statement m_insert_reading;
    Statement m_insert_source;
    Statement m_insert_event;
    Statement m_insert_name;
    Statement m_find_name;
};

} // namespace tickervantage
