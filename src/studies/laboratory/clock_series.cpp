#include "studies/laboratory/clock_series.h"

#include "studies/laboratory/free_running_clock.h"

namespace tickervantage {
namespace {

void add(UnevenSeries& series, double time, double value) {
    if (!series.times.empty() && time <= series.times.back())
        return;
    series.times.push_back(time);
    series.values.push_back(value);
}

} // namespace

UnevenSeries series_of(const FreeRunningClock& clock, ClockQuantity quantity) {
    UnevenSeries series;
    for (std::size_t at = 0; at < clock.records.size(); ++at) {
        const ClockRecord& record = clock.records[at];
        const auto time = static_cast<double>(record.time);
        if (quantity == ClockQuantity::offset) {
            add(series, time, record.offset);
        } else if (!record.begins_stretch) {
            const ClockRecord& before = clock.records[at - 1];
            const double elapsed = time - static_cast<double>(before.time);
            add(series, time - elapsed / 2, (record.phase - before.phase) / elapsed);
        }
    }
    return series;
}

} // namespace tickervantage
