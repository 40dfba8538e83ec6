#include "studies/laboratory/stored_clock.h"

#include "base/failure_codes.h"
#include "history/history_reader.h"

namespace tickervantage {
namespace {

constexpr double million = 1e6;
constexpr double half = 0.5;

std::optional<double> value_of(const HistoryRow& row, HistoryQuantity quantity) {
    const MaybeExtent& extent = row.values.at(static_cast<std::size_t>(quantity));
    return extent ? std::optional(extent->mean) : std::nullopt;
}

// As chronyd would have noted it; none while it follows nothing.
std::optional<ClockRecord> record_of(const HistoryRow& row) {
    const auto frequency = value_of(row, HistoryQuantity::frequency_ppm);
    const auto offset = value_of(row, HistoryQuantity::last_offset);
    const bool follows = row.verdict == Verdict::synchronised || row.verdict == Verdict::correcting ||
                         row.verdict == Verdict::leap || row.verdict == Verdict::holdover;
    if (!frequency || !offset || !follows)
        return std::nullopt;
    ClockRecord record{.time = row.time, .frequency = *frequency / million, .offset = *offset};
    record.bound = value_of(row, HistoryQuantity::root_dispersion).value_or(0) +
                   half * value_of(row, HistoryQuantity::root_delay).value_or(0);
    record.bound_growth = value_of(row, HistoryQuantity::skew_ppm).value_or(0) / million + maxclockerror;
    return record;
}

} // namespace

Result<FreeRunningClock> read_stored_clock(const std::string& store) {
    auto reader = HistoryReader::open(store);
    if (!reader)
        return tl::unexpected(reader.error());
    const auto rows = reader->rows({});
    if (!rows)
        return tl::unexpected(rows.error());
    FreeRunningClockReader clock;
    std::optional<ClockRecord> last;
    for (const HistoryRow& row : *rows) {
        if (row.span > 0)
            continue;
        const auto record = record_of(row);
        if (!record)
            clock.add_loss();
        else if (!last || last->offset != record->offset || last->frequency != record->frequency)
            clock.add(*record);
        last = record;
    }
    FreeRunningClock found = std::move(clock).finish();
    if (found.interval <= 0)
        return failed(FailureCode::too_few_readings);
    return found;
}

} // namespace tickervantage
