#include "history/recording.h"

#include "history/history_recorder.h"
#include "history/history_writer.h"

#include <optional>
#include <utility>
#include <vector>

namespace tickervantage {

Result<> keep_recording(const std::string& path, const RecordedDay& day) {
    std::vector<HistoryReading> readings;
    std::vector<HistoryEvent> events;
    std::optional<HistoryRow> before;
    for (const ChronyReports& reports : day.readings) {
        const auto time = static_cast<std::int64_t>(reports.now.value_or(0));
        readings.push_back(history_reading(time, reports, error_budget(reports)));
        const HistoryRow& row = readings.back().row;
        for (auto& event : events_between(before, row))
            events.push_back(std::move(event));
        before = row;
    }
    events.push_back(job_event(day.installed, "install-config", {}));
    if (before)
        events.push_back({before->time, HistoryEventKind::job, "recording", "ends: from here on it is live"});
    return HistoryWriter::open(path).and_then([&](HistoryWriter writer) { return writer.add(readings, events); });
}

} // namespace tickervantage
