#include "cli/logs/log_command.h"

#include "base/local_clock.h"
#include "cli/terminal.h"

#include <algorithm>
#include <array>
#include <future>
#include <ostream>
#include <string_view>
#include <utility>
#include <vector>

namespace tickervantage {
namespace {

constexpr std::array<std::string_view, series_count> series_names{"offset",      "mean_offset",    "rms_offset",
                                                                  "offset_sd",   "rem_cor",        "mean_rem_cor",
                                                                  "rms_rem_cor", "rootdispersion", "frequency"};

Json json_of(const tracking& record) {
    return {{"timestamp", utc_stamp(record.timestamp)},
            {"address", record.address},
            {"stratum", or_null(record.stratum)},
            {"frequency", or_null(record.frequency)},
            {"skew", or_null(record.skew)},
            {"offset", or_null(record.offset)},
            {"el", record.el},
            {"co", or_null(record.co)},
            {"offset_sd", or_null(record.offset_sd)},
            {"rem_cor", or_null(record.rem_cor)},
            {"rootdispersion", or_null(record.rootdispersion)},
            {"rms_offset", or_null(record.rms_offset)},
            {"mean_offset", or_null(record.mean_offset)},
            {"mean_rem_cor", or_null(record.mean_rem_cor)},
            {"rms_rem_cor", or_null(record.rms_rem_cor)},
            {"root_delay", or_null(record.root_delay)},
            {"max_error", or_null(record.max_error)}};
}

bool is_chosen(const TrackingRecords& records, std::size_t index, const LogChoice& choice) {
    return choice.has_time(static_cast<double>(records.time(index))) &&
           (!choice.source || records.record(index).address == *choice.source);
}

// Runs of records that are chosen, so that they can be read at once.
using Runs = std::vector<std::pair<std::size_t, std::size_t>>;
Runs chosen_runs(const TrackingRecords& records, const LogChoice& choice) {
    Runs runs;
    for (std::size_t index = 0; index < records.size(); ++index) {
        if (!is_chosen(records, index, choice))
            continue;
        if (runs.empty() || runs.back().second != index)
            runs.emplace_back(index, index);
        runs.back().second = index + 1;
    }
    return runs;
}

// A piece of the records after the other: of a log of years not all values would fit into a processor's memory.
void summarise(const TrackingRecords& records, const Runs& runs, bool rolling, std::array<Json, series_count>& found) {
    std::vector<SummaryMaker> makers;
    for (std::size_t series = 0; series < series_count; ++series)
        makers.emplace_back(summary_shares);
    TrackingRecords::AllValues values;
    const auto look = [&](auto look_at) {
        for (const auto& [first, end] : runs)
            for (std::size_t at = first; at < end; at += TrackingRecords::RECORDS_PER_PIECE) {
                for (auto& of_series : values)
                    of_series.clear();
                const std::size_t piece_end = std::min(at + TrackingRecords::RECORDS_PER_PIECE, end);
                rolling ? records.read_rolling(at, piece_end, values) : records.read_logged(at, piece_end, values);
                for (std::size_t series = 0; series < series_count; ++series)
                    (makers[series].*look_at)(values[series]);
            }
    };
    look(&SummaryMaker::look_at);
    look(&SummaryMaker::look_again_at);
    for (std::size_t series = 0; series < series_count; ++series)
        if (is_rolling(static_cast<Series>(series)) == rolling)
            found[series] = summary_json(makers[series].summary());
}

// The rolling statistics on another thread: they take as long as the rest.
std::array<Json, series_count> summaries_of(const TrackingRecords& records, const Runs& runs) {
    std::array<Json, series_count> summaries;
    const auto rolling = std::async(std::launch::async, [&] { summarise(records, runs, true, summaries); });
    summarise(records, runs, false, summaries);
    rolling.wait();
    return summaries;
}

} // namespace

int print_log(const TrackingRecords& records, LogForm form, std::ostream& out, const LogChoice& choice) {
    tracking any;
    print_heading(json_of(any), form, out);
    int answer = answer_is_no;
    for (std::size_t index = 0; index < records.size() && out; ++index) {
        if (!is_chosen(records, index, choice))
            continue;
        print_record(json_of(records.record(index)), form, out);
        answer = 0;
    }
    return answer;
}

int print_log_summary(const TrackingRecords& records, LogForm form, std::ostream& out, const LogChoice& choice) {
    const Runs runs = chosen_runs(records, choice);
    std::size_t count = 0;
    for (const auto& [first, end] : runs)
        count += end - first;
    Json document{{"count", count}, {"first", nullptr}, {"last", nullptr}};
    if (!runs.empty()) {
        document["first"] = utc_stamp(records.time(runs.front().first));
        document["last"] = utc_stamp(records.time(runs.back().second - 1));
    }
    const auto summaries = summaries_of(records, runs);
    for (std::size_t series = 0; series < series_count; ++series)
        document[std::string(series_names[series])] = summaries[series];
    print_summary(document, form, out);
    return runs.empty() ? answer_is_no : 0;
}

} // namespace tickervantage
