// What the history keeps: readings of the clock, of its sources, and what happened. Plain values, any thread.
//
// Whole for a week, then one row a minute, then one an hour: a row that stands for several readings has the lowest, the
// mean and the highest of each quantity, the worst of their verdicts and the last of their references.
#pragma once

#include "chrony/truth/judged_source.h"
#include "chrony/truth/verdict.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

enum class HistoryQuantity : unsigned char {
    system_time, // s
    last_offset, // s
    rms_offset,  // s
    frequency_ppm,
    residual_frequency_ppm,
    skew_ppm,
    root_delay,      // s
    root_dispersion, // s
    bound,           // s
};
inline constexpr std::size_t history_quantities = 9;

// "system_time", "frequency_ppm": for files and command lines, never translated.
[[nodiscard]] std::string_view name_of(HistoryQuantity quantity);

struct Extent {
    double low = 0;
    double mean = 0;
    double high = 0;
};
using MaybeExtent = std::optional<Extent>;

// Seconds are kept to the nanosecond and frequencies to a thousandth of a ppm: that is what chronyc prints.
struct HistoryRow {
    std::int64_t time = 0; // s since 1970, UTC; of a span its begin
    int span = 0;          // s; 0: one reading
    int count = 1;         // of readings in it
    Verdict verdict = Verdict::unavailable;
    std::string reference = {}; // address or reference ID; empty: none
    std::optional<int> stratum = {};
    std::optional<bool> steers = {};
    std::array<MaybeExtent, history_quantities> values = {};
};

struct SourceRow {
    std::int64_t time = 0;
    int span = 0;
    std::string source = {};
    SelectionRule rule = SelectionRule::unknown; // of a span the last one
    char letter = '?';
    unsigned reach = 0;                 // of a span the last one
    MaybeExtent offset = {};            // s
    std::optional<double> error = {};   // s, of a span the mean
    std::optional<double> std_dev = {}; // s, of a span the mean
};

enum class HistoryEventKind : unsigned char { verdict, reference, chronyd, job };
[[nodiscard]] std::string_view name_of(HistoryEventKind kind);

// verdict, reference: `from` and `to` are the names of both. chronyd: "appeared" or "gone" in `to`. job: its name in
// `from`, how it ended in `to`; also where the recording of a demonstration ends.
struct HistoryEvent {
    std::int64_t time = 0;
    HistoryEventKind kind{};
    std::string from = {};
    std::string to = {};
};

struct HistoryPeriod {
    std::int64_t from = 0;
    std::int64_t to = std::int64_t{1} << 40; // not included
};

// One reading with all its sources, as it goes into the store; `span` 0 and each extent a single value.
struct HistoryReading {
    HistoryRow row;
    std::vector<SourceRow> sources = {};
};

} // namespace tickervantage
