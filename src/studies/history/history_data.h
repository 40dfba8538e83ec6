// What is known of the clock over time, from the history store and from tracking logs, on one axis.
//
// Where a tracking log tells of a time, its record of each update stands; elsewhere stand the readings of the store.
// Sources are known from the store alone. Values are those of chrony: seconds, ppm; an offset is positive while the
// clock is ahead. One thread.
#pragma once

#include "draw/plots/timed_values.h"
#include "history/records.h"
#include "studies/events/clock_event.h"

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

enum class HistoryLine : unsigned char {
    offset,          // s, of the newest update
    bound,           // s: the largest error, not signed
    frequency,       // ppm
    skew_band,       // ppm: the frequency, with the skew to both sides as its lowest and highest
    root_delay,      // s
    root_dispersion, // s
    compensation,    // ppm, that chronyd made for the temperature
};
inline constexpr std::size_t history_lines = 7;

enum class HistoryOrigin : unsigned char { store, log };

struct OriginStretch {
    TimeRange range;
    HistoryOrigin origin;
};

// A source in one state. `reach`: of the newest polls in the first reading of the stretch.
struct LaneStretch {
    TimeRange range;
    SelectionRule rule = SelectionRule::unknown;
    char letter = '?';
    unsigned reach = 0;
};

struct HistoryLane {
    std::string source;
    std::vector<LaneStretch> stretches; // by time, none over another
    TimedValues offsets;                // s
    double newest = 0;                  // time of the newest reading

    // What the store has of a time; null between and outside the readings.
    [[nodiscard]] const LaneStretch* at(double time) const;
};

// What chrony's logs and messages tell, and behind that what this program keeps.
enum class MarkKind : unsigned char {
    start = static_cast<unsigned char>(EventKind::start),
    stop = static_cast<unsigned char>(EventKind::stop),
    source = static_cast<unsigned char>(EventKind::source),
    lost = static_cast<unsigned char>(EventKind::lost),
    verdict = event_kinds, // what this program made of the reports
    job,                   // what this program was told to do
};
inline constexpr std::size_t mark_kinds = event_kinds + 2;
[[nodiscard]] constexpr MarkKind mark_kind(EventKind kind) {
    return static_cast<MarkKind>(kind);
}

// Something that happened. Of the store: `from` and `to` are names of verdicts, references, a job and its end; else the
// sentence tells.
struct HistoryMark {
    double time = 0;
    MarkKind kind{};
    std::string from = {};
    std::string to = {};
    std::optional<Sentence> sentence = {};
    std::string source = {}; // that it is about, or that is followed now; empty: of none
};

// What one sensor showed, in degrees Celsius.
struct HistoryTemperature {
    std::string sensor; // empty: the one by which chronyd compensates
    TimedValues values;
};

// What the store holds from a time on.
struct StoredHistory {
    std::vector<HistoryRow> rows = {};
    std::vector<SourceRow> sources = {};
    std::vector<HistoryEvent> events = {};
};

// What logs tell: values, and the times of all records.
struct LogValues {
    std::array<std::vector<TimedExtent>, history_lines> lines;
    std::vector<double> times;
};

struct LoggedTemperature {
    double time = 0;
    double celsius = 0;
};

// What logs gained while they were followed.
struct LoggedNews {
    LogValues values = {};
    std::vector<LoggedTemperature> temperatures = {}; // by which chronyd compensates
    std::vector<SourceRow> selections = {};
    std::vector<ClockEvent> withdrawn = {}; // told before, and told otherwise now
    std::vector<ClockEvent> events = {};

    [[nodiscard]] bool empty() const {
        return values.times.empty() && selections.empty() && withdrawn.empty() && events.empty();
    }
};

class HistoryData {
public:
    void set_log(LogValues log); // before anything is added
    // Where the log now tells of a time, what the store told of it goes.
    void add(const LoggedNews& news);

    // In the order of time; rows that are known already are left out. True when anything was added.
    bool add(const StoredHistory& stored);
    void add(const ClockEvent& event);
    void add_logged(const SourceRow& row); // of a selection log
    void add_temperature(const std::string& sensor, double time, double celsius);
    // In place of all but that by which chronyd compensates.
    void replace_temperatures(std::vector<HistoryTemperature> all);

    [[nodiscard]] const TimedValues& line(HistoryLine line) const { return m_lines[static_cast<std::size_t>(line)]; }
    [[nodiscard]] const std::vector<HistoryLane>& lanes() const { return m_lanes; }
    [[nodiscard]] const std::vector<HistoryTemperature>& temperatures() const { return m_temperatures; }
    [[nodiscard]] const std::vector<HistoryMark>& marks() const { return m_marks; } // by time
    [[nodiscard]] const std::vector<OriginStretch>& origins() const { return m_origins; }

    // Of all that is known; none where nothing is.
    [[nodiscard]] std::optional<TimeRange> extent() const { return m_extent; }
    [[nodiscard]] std::int64_t newest_stored() const { return m_newest_stored; }
    // Grows with each change: for those who keep what they made of it.
    [[nodiscard]] unsigned version() const { return m_version; }

private:
    [[nodiscard]] bool is_logged(double time) const;
    void add_row(const HistoryRow& row);
    void add_source(const SourceRow& row, double longest_between);
    void add(HistoryMark mark);
    void withdraw(const ClockEvent& event);
    void take_back_stored(double from, double to);
    void add_origin(const TimeRange& range, HistoryOrigin origin);
    void reach_to(double from, double to);

    std::array<TimedValues, history_lines> m_lines;
    std::vector<HistoryLane> m_lanes;
    std::map<std::string, std::size_t> m_lane_of;
    std::vector<HistoryTemperature> m_temperatures;
    std::vector<HistoryMark> m_marks;
    std::vector<OriginStretch> m_origins;
    std::vector<double> m_logged; // times of the logs' records
    std::optional<TimeRange> m_extent;
    std::int64_t m_newest_stored = -1;
    std::optional<double> m_last_offset; // s, of the newest reading
    unsigned m_version = 0;
};

} // namespace tickervantage
