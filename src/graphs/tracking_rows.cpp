#include "graphs/tracking_rows.h"

#include <fmt/format.h>

#include <chrono>
#include <cmath>
#include <iterator>

namespace tickervantage {

namespace {

constexpr std::size_t PIECE = std::size_t{64} * 1024;

constexpr std::array<std::string_view, series_count> NAMES{"offset",      "mean_offset",    "rms_offset",
                                                           "offset_sd",   "rem_cor",        "mean_rem_cor",
                                                           "rms_rem_cor", "rootdispersion", "frequency"};

class RowWriter {
public:
    RowWriter(const TrackingRecords& records, const std::array<bool, series_count>& shown, RowFormat format)
        : m_records(records), m_shown(shown), m_csv(format == RowFormat::csv) {}

    std::string text;

    void heading() {
        add(m_csv ? "timestamp" : "{:<19}", "timestamp");
        for (std::size_t i = 0; i < series_count; ++i)
            if (m_shown[i])
                add(m_csv ? ",{}" : "  {:>14}", NAMES[i]);
        text += '\n';
    }

    void row(std::size_t record) {
        add_time(m_records.time(record));
        for (std::size_t i = 0; i < series_count; ++i)
            if (m_shown[i])
                add_value(m_records.value(static_cast<Series>(i), record));
        text += '\n';
    }

private:
    template <typename... Values>
    void add(std::string_view pattern, const Values&... values) {
        fmt::format_to(std::back_inserter(text), fmt::runtime(pattern), values...);
    }

    void add_time(LogTime time) {
        const std::chrono::sys_seconds moment{std::chrono::seconds{time}};
        const auto day = std::chrono::floor<std::chrono::days>(moment);
        const std::chrono::year_month_day date{day};
        const std::chrono::hh_mm_ss clock{moment - day};
        add(m_csv ? "{:04}-{:02}-{:02}T{:02}:{:02}:{:02}Z" : "{:04}-{:02}-{:02} {:02}:{:02}:{:02}",
            static_cast<int>(date.year()), static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
            clock.hours().count(), clock.minutes().count(), clock.seconds().count());
    }

    void add_value(double value) {
        if (std::isnan(value))
            text += m_csv ? "," : "               -";
        else
            add(m_csv ? ",{}" : "  {:>14.6e}", value);
    }

    const TrackingRecords& m_records;
    const std::array<bool, series_count>& m_shown;
    bool m_csv;
};

} // namespace

std::string_view series_name(Series series) {
    return NAMES[static_cast<std::size_t>(series)];
}

int write_rows(const TrackingRecords& records, std::span<const RecordSpan> which,
               const std::array<bool, series_count>& shown, RowFormat format,
               const std::function<bool(std::string_view)>& write) {
    RowWriter rows(records, shown, format);
    rows.heading();
    for (const RecordSpan& span : which)
        for (std::size_t i = span.first; i < span.end; ++i) {
            rows.row(i);
            if (rows.text.size() < PIECE)
                continue;
            if (!write(rows.text))
                return -1;
            rows.text.clear();
        }
    return write(rows.text) ? 0 : -1;
}

} // namespace tickervantage
