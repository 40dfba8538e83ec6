#include "chrony/status/trend.h"

#include "base/failure_codes.h"
#include "history/history_reader.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::int64_t least_gap = 30; // s: a reading that was missed once is none
constexpr std::int64_t usual_spacings = 3;

std::optional<double> mean_of(const HistoryRow& row, HistoryQuantity quantity) {
    const MaybeExtent& extent = row.values.at(static_cast<std::size_t>(quantity));
    return extent ? std::optional(extent->mean) : std::nullopt;
}

// Beyond it nobody looked.
std::int64_t longest_spacing(const std::vector<HistoryRow>& rows) {
    std::vector<std::int64_t> spacings;
    for (std::size_t at = 1; at < rows.size(); ++at)
        spacings.push_back(rows[at].time - rows[at - 1].time);
    if (spacings.empty())
        return least_gap;
    const auto middle = spacings.begin() + static_cast<std::ptrdiff_t>(spacings.size() / 2);
    std::ranges::nth_element(spacings, middle);
    return std::max(least_gap, usual_spacings * *middle);
}

bool has_reference(Verdict verdict) {
    return verdict != Verdict::unavailable && verdict != Verdict::unsynchronised && verdict != Verdict::local;
}

} // namespace

std::vector<TrendReading> trend_readings(const std::vector<HistoryRow>& rows) {
    const std::int64_t longest = longest_spacing(rows);
    std::vector<TrendReading> readings;
    for (const HistoryRow& row : rows) {
        TrendReading reading{.time = row.time, .verdict = row.verdict};
        reading.bound = mean_of(row, HistoryQuantity::bound);
        if (has_reference(row.verdict))
            reading.offset = mean_of(row, HistoryQuantity::system_time);
        reading.joins = !readings.empty() && row.time - readings.back().time <= longest;
        readings.push_back(reading);
    }
    return readings;
}

std::int64_t shown_seconds(const std::vector<HistoryRow>& rows, std::int64_t to) {
    constexpr std::array<std::int64_t, 5> shorter{120, 300, 600, 1200, 1800};
    const std::int64_t needed = rows.empty() ? 0 : to - rows.front().time;
    const auto* const found = std::ranges::find_if(shorter, [needed](auto one) { return needed <= one; });
    return found == shorter.end() ? trend_seconds : *found;
}

Result<Trend> read_trend(const std::string& file, std::int64_t to, const std::optional<HistoryRow>& newest) {
    Trend trend{.from = to - trend_seconds, .to = to};
    std::vector<HistoryRow> rows;
    auto reader = HistoryReader::open(file);
    if (!reader && reader.error().code != FailureCode::no_such_file)
        return tl::unexpected(reader.error());
    if (reader) {
        auto kept = reader->rows({trend.from, trend.to + 1});
        if (!kept)
            return tl::unexpected(kept.error());
        rows = std::move(*kept);
    }
    if (newest && (rows.empty() || rows.back().time < newest->time))
        rows.push_back(*newest);
    trend.from = to - shown_seconds(rows, to);
    trend.readings = trend_readings(rows);
    return trend;
}

} // namespace tickervantage
