#include "history/history_recorder.h"

#include <string>

namespace tickervantage {

namespace {

MaybeExtent single(const std::optional<double>& value) {
    return value ? MaybeExtent({*value, *value, *value}) : std::nullopt;
}

// The source's address, or how chronyd names what is none: "GPS", "7F7F0101".
std::string reference_of(const TrackingData& tracking) {
    return tracking.reference_id == 0 ? std::string() : tracking.address;
}

SourceRow source_row(std::int64_t time, const JudgedSource& source) {
    SourceRow row{.time = time, .source = source.data.source, .rule = source.rule, .letter = source.letter};
    row.reach = source.data.reach;
    row.offset = single(source.data.offset);
    row.error = source.data.error;
    if (source.statistics)
        row.std_dev = source.statistics->std_dev;
    return row;
}

} // namespace

HistoryReading history_reading(std::int64_t time, const ChronyReports& reports,
                               const std::optional<ErrorBudget>& budget) {
    HistoryReading reading{.row = {.time = time, .verdict = judge(reports), .steers = reports.steers}};
    if (const auto& tracking = reports.tracking) {
        reading.row.reference = reference_of(*tracking);
        reading.row.stratum = tracking->stratum;
        reading.row.values = {single(tracking->system_time),
                              single(tracking->last_offset),
                              single(tracking->rms_offset),
                              single(tracking->frequency_ppm),
                              single(tracking->residual_frequency_ppm),
                              single(tracking->skew_ppm),
                              single(tracking->root_delay),
                              single(tracking->root_dispersion),
                              budget ? single(budget->bound) : std::nullopt};
    }
    for (const auto& source : judged_sources(reports))
        reading.sources.push_back(source_row(time, source));
    return reading;
}

std::vector<HistoryEvent> events_between(const std::optional<HistoryRow>& before, const HistoryRow& now) {
    std::vector<HistoryEvent> events;
    if (!before)
        return events;
    const bool was_there = before->verdict != Verdict::unavailable;
    const bool is_there = now.verdict != Verdict::unavailable;
    if (was_there != is_there)
        events.push_back({now.time, HistoryEventKind::chronyd, "", is_there ? "appeared" : "gone"});
    if (before->verdict != now.verdict)
        events.push_back({now.time, HistoryEventKind::verdict, std::string(name_of(before->verdict)),
                          std::string(name_of(now.verdict))});
    // A daemon that is away follows nothing, which is no change of its reference.
    if (was_there && is_there && before->reference != now.reference)
        events.push_back({now.time, HistoryEventKind::reference, before->reference, now.reference});
    return events;
}

HistoryEvent job_event(std::int64_t time, std::string_view job, const Result<>& outcome) {
    return {time, HistoryEventKind::job, std::string(job), outcome ? "done" : english(outcome.error())};
}

} // namespace tickervantage
