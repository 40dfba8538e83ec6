#include "studies/laboratory/free_running_clock.h"

#include "base/failure_codes.h"
#include "base/quantile.h"
#include "chrony/log/log_files.h"
#include "chrony/log/log_pieces.h"
#include "chrony/log/tracking_line.h"

#include <cmath>
#include <utility>

namespace tickervantage {
namespace {

constexpr double million = 1e6;
constexpr double longest_gap = 4; // median intervals
constexpr double half = 0.5;

double or_zero(double value) {
    return std::isnan(value) ? 0 : value;
}

} // namespace

double FreeRunningClock::seconds() const {
    double all = 0;
    for (const auto stretch : stretches())
        all += static_cast<double>(stretch.back().time - stretch.front().time);
    return all;
}

std::vector<std::span<const ClockRecord>> FreeRunningClock::stretches() const {
    std::vector<std::span<const ClockRecord>> found;
    for (std::size_t first = 0, next = 0; first < records.size(); first = next) {
        for (next = first + 1; next < records.size() && !records[next].begins_stretch;)
            ++next;
        found.emplace_back(records.data() + first, next - first);
    }
    return found;
}

void FreeRunningClockReader::add_line(std::string_view line) {
    TrackingLine read;
    if (!read_tracking_line(line, read))
        return;
    if (read.stratum == "0" || read.el == "?" || std::isnan(read.frequency.value) || std::isnan(read.offset.value)) {
        add_loss();
        return;
    }
    add({.time = read.timestamp,
         .frequency = read.frequency.value / million,
         .offset = read.offset.value,
         .bound = or_zero(read.rootdispersion.value) + half * or_zero(read.root_delay.value),
         .bound_growth = or_zero(read.skew.value) / million + maxclockerror});
    if (!std::isnan(read.offset_sd.value))
        m_deviations.push_back(read.offset_sd.value);
}

void FreeRunningClockReader::add(ClockRecord record) {
    if (!m_noted.empty() && record.time == m_noted.back().time)
        return; // chronyd notes whole seconds: nothing can be divided by none
    record.begins_stretch = m_is_lost || m_noted.empty() || record.time < m_noted.back().time;
    m_noted.push_back(record);
    m_is_lost = false;
}

void FreeRunningClockReader::add_loss() {
    m_is_lost = true;
}

FreeRunningClock FreeRunningClockReader::finish() && {
    FreeRunningClock clock;
    std::vector<double> intervals;
    for (std::size_t at = 1; at < m_noted.size(); ++at)
        if (!m_noted[at].begins_stretch)
            intervals.push_back(static_cast<double>(m_noted[at].time - m_noted[at - 1].time));
    clock.interval = intervals.empty() ? 0 : quantile(intervals, half);
    if (!m_deviations.empty())
        clock.offset_sd = quantile(m_deviations, half);
    clock.records = std::move(m_noted);
    for (std::size_t at = 1; at < clock.records.size(); ++at) {
        ClockRecord& record = clock.records[at];
        if (record.begins_stretch)
            continue;
        const ClockRecord& before = clock.records[at - 1];
        const auto elapsed = static_cast<double>(record.time - before.time);
        record.begins_stretch = elapsed > longest_gap * clock.interval;
        record.phase = record.begins_stretch ? 0 : before.phase + before.frequency * elapsed + record.offset;
    }
    return clock;
}

Result<FreeRunningClock> read_free_running_clock(FollowedFiles& files, const std::string& path) {
    const auto logs = find_logs(files, {path}, LogKind::tracking);
    if (!logs)
        return tl::unexpected(logs.error());
    FreeRunningClockReader reader;
    for (const LogFile& log : *logs)
        if (auto read = read_log(files, log.path, [&reader](std::string_view line) { reader.add_line(line); }); !read)
            return tl::unexpected(read.error());
    FreeRunningClock clock = std::move(reader).finish();
    if (clock.interval <= 0)
        return failed(FailureCode::log_of_one_record, {path});
    return clock;
}

} // namespace tickervantage
