// Any bytes as a tracking log: records stay finite, chrony's own layout is read as any other layout is, and the quick
// ways to ranges agree with the records.
#include "chrony/log/tracking_line.h"
#include "fuzz/require.h"
#include "studies/tracking/tracking_records.h"

#include <bit>
#include <cmath>
#include <string_view>

namespace {

bool is_same(double one, double other) {
    return std::bit_cast<std::uint64_t>(one) == std::bit_cast<std::uint64_t>(other);
}

// And survives being packed.
bool is_same(const LogNumber& one, const LogNumber& other) {
    std::vector<double> others;
    const PackedNumber number = packed(one, others);
    return is_same(one.value, other.value) && is_same(one.value, unpacked(number, others));
}

void require_same_when_moved(std::string_view text) {
    const std::string moved = " " + std::string(text);
    TrackingLine one;
    TrackingLine other;
    const bool is_data = read_tracking_line(text, one);
    require(is_data == read_tracking_line(moved, other));
    if (!is_data)
        return;
    require(one.timestamp == other.timestamp && one.address == other.address && one.stratum == other.stratum &&
            one.el == other.el && one.co == other.co);
    require(is_same(one.frequency, other.frequency) && is_same(one.skew, other.skew) &&
            is_same(one.offset, other.offset) && is_same(one.offset_sd, other.offset_sd) &&
            is_same(one.rem_cor, other.rem_cor) && is_same(one.root_delay, other.root_delay) &&
            is_same(one.rootdispersion, other.rootdispersion) && is_same(one.max_error, other.max_error));
}

void require_sound(const TrackingRecords& records) {
    for (std::size_t series = 0; series < series_count; ++series) {
        const auto range = records.range(static_cast<Series>(series), 0, records.size());
        for (std::size_t index = 0; index < records.size(); ++index) {
            const double value = records.value(static_cast<Series>(series), index);
            require(std::isnan(value) ||
                    (std::isfinite(value) && range && value >= range->low && value <= range->high));
        }
    }
    for (std::size_t index = 0; index < records.size(); ++index) {
        const auto before = records.newest_before(records.time(index));
        require(!before || records.time(*before) < records.time(index));
        require(records.record(index).address.size() <= largest_log_name);
    }
}

} // namespace

FUZZED(text) {
    static TrackingRecords records;
    records.clear();
    std::string_view rest = text;
    while (!rest.empty()) {
        const auto length = std::min(rest.find('\n'), rest.size());
        const auto line = rest.substr(0, length);
        require_same_when_moved(line);
        (void)records.add_line(line);
        rest.remove_prefix(std::min(length + 1, rest.size()));
    }
    require_sound(records);
}
