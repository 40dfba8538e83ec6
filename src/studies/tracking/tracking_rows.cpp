#include "studies/tracking/tracking_rows.h"

#include "base/local_clock.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <span>
#include <string>
#include <utility>

namespace tickervantage {

namespace {

constexpr std::size_t PIECE = std::size_t{64} * 1024;

constexpr std::array<std::string_view, series_count> NAMES{"offset",      "mean_offset",    "rms_offset",
                                                           "offset_sd",   "rem_cor",        "mean_rem_cor",
                                                           "rms_rem_cor", "rootdispersion", "frequency"};

class RowWriter {
public:
    explicit RowWriter(RowFormat format) : m_csv(format == RowFormat::csv) {}

    std::string text;

    void heading(std::span<const Series> shown) {
        add(m_csv ? "timestamp" : "{:<19}", "timestamp");
        for (const Series series : shown)
            add(m_csv ? ",{}" : "  {:>14}", series_name(series));
        text += '\n';
    }

    void row(LogTime time, std::span<const double> values) {
        text += m_csv ? utc_stamp(time) : utc_date_time(time);
        for (const double value : values)
            add_value(value);
        text += '\n';
    }

private:
    template <typename... Values>
    void add(std::string_view pattern, const Values&... values) {
        fmt::format_to(std::back_inserter(text), fmt::runtime(pattern), values...);
    }

    void add_value(double value) {
        if (std::isnan(value))
            text += m_csv ? "," : "               -";
        else
            add(m_csv ? ",{}" : "  {:>14.6e}", value);
    }

    bool m_csv;
};

} // namespace

std::string_view series_name(Series series) {
    return NAMES[static_cast<std::size_t>(series)];
}

TrackingRows::TrackingRows(std::vector<RecordSpan> which, const std::array<bool, series_count>& shown)
    : m_left(std::move(which)) {
    std::ranges::reverse(m_left);
    for (const RecordSpan& span : m_left)
        m_needed = std::max(m_needed, span.end);
    for (std::size_t i = 0; i < series_count; ++i)
        if (shown[i])
            m_shown.push_back(static_cast<Series>(i));
}

bool TrackingRows::are_still_in(const TrackingRecords& records) const {
    return records.size() >= m_needed &&
           (m_slices.empty() || (records.time(m_taken.first) == m_slices.front().times.front() &&
                                 records.time(m_taken.end - 1) == m_slices.back().times.back()));
}

bool TrackingRows::take(const TrackingRecords& records, std::size_t most) {
    Slice slice;
    while (!m_left.empty() && slice.times.size() < most) {
        RecordSpan& span = m_left.back();
        const std::size_t end = std::min(span.end, span.first + most - slice.times.size());
        if (m_slices.empty() && slice.times.empty())
            m_taken.first = span.first;
        for (; span.first < end; ++span.first) {
            slice.times.push_back(records.time(span.first));
            for (const Series series : m_shown)
                slice.values.push_back(records.value(series, span.first));
        }
        m_taken.end = end;
        if (span.first == span.end)
            m_left.pop_back();
    }
    if (!slice.times.empty())
        m_slices.push_back(std::move(slice));
    return m_left.empty();
}

int TrackingRows::write(RowFormat format, const std::function<bool(std::string_view)>& write) const {
    RowWriter rows(format);
    rows.heading(m_shown);
    for (const Slice& slice : m_slices)
        for (std::size_t i = 0; i < slice.times.size(); ++i) {
            rows.row(slice.times[i], std::span(slice.values).subspan(i * m_shown.size(), m_shown.size()));
            if (rows.text.size() < PIECE)
                continue;
            if (!write(rows.text))
                return -1;
            rows.text.clear();
        }
    return write(rows.text) ? 0 : -1;
}

} // namespace tickervantage
