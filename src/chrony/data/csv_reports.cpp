#include "chrony/data/csv_reports.h"

#include "base/number_text.h"
#include "base/text_lines.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::uint32_t never = 4294967295U; // chronyc's word for it
constexpr double year_10000 = 253402300800;  // s since 1970; no calendar goes beyond it

std::vector<std::string_view> columns_of(std::string_view line) {
    std::vector<std::string_view> columns;
    columns.reserve(40); // more than any report has
    for (std::size_t comma = line.find(','); comma != std::string_view::npos; comma = line.find(',')) {
        columns.push_back(line.substr(0, comma));
        line.remove_prefix(comma + 1);
    }
    columns.push_back(line);
    return columns;
}

// One row's columns, taken one after the other; a column that is not what it should be spoils the row.
class Row {
public:
    explicit Row(std::vector<std::string_view> columns) : m_columns(std::move(columns)) {}

    [[nodiscard]] bool is_good() const { return m_good; }
    void skip(std::size_t count) { m_next += count; }
    std::string text() { return std::string(take()); }

    char letter() {
        const auto column = take();
        return column.size() == 1 ? column.front() : spoilt('\0');
    }

    double real() {
        const auto number = number_from_text<double>(take());
        return number ? *number : spoilt(0.0);
    }

    template <typename Number = int>
    Number integer(int base = 10) {
        const auto number = number_from_text<Number>(take(), base);
        return number ? *number : spoilt(Number{});
    }

    std::optional<double> ago() {
        const auto seconds = integer<std::uint32_t>();
        return seconds == never ? std::nullopt : std::optional<double>(seconds);
    }

private:
    std::string_view take() { return m_next < m_columns.size() ? m_columns[m_next++] : spoilt(std::string_view()); }
    template <typename Value>
    Value spoilt(Value value) {
        m_good = false;
        return value;
    }

    std::vector<std::string_view> m_columns;
    std::size_t m_next = 0;
    bool m_good = true;
};

std::string in_words(std::initializer_list<std::size_t> widths) {
    std::string text;
    for (const std::size_t width : widths)
        text += (text.empty() ? "" : " or ") + std::to_string(width);
    return text;
}

template <typename Record>
ReportRows<Record> read_rows(std::string_view text, std::initializer_list<std::size_t> widths,
                             void (*read)(Row&, Record&)) {
    ReportRows<Record> report;
    for (const std::string_view line : non_empty_lines(text)) {
        auto columns = columns_of(line);
        const std::size_t count = columns.size();
        const bool fits = std::ranges::find(widths, count) != widths.end();
        Row row(std::move(columns));
        Record record;
        if (fits)
            read(row, record);
        if (fits && row.is_good())
            report.rows.push_back(std::move(record));
        else
            report.odd.push_back({.line = std::string(line), .columns = count, .expected = in_words(widths)});
    }
    return report;
}

SourceMode mode_from(char letter) {
    return letter == '=' ? SourceMode::peer : letter == '#' ? SourceMode::refclock : SourceMode::server;
}

void read_tracking(Row& row, TrackingData& tracking) {
    tracking.reference_id = row.integer<std::uint32_t>(16);
    tracking.address = row.text();
    tracking.stratum = row.integer();
    if (const double moment = row.real(); moment > 0 && moment < year_10000)
        tracking.reference_time = moment;
    tracking.system_time = 0.0 - row.real(); // this column is positive for a clock that is behind
    tracking.last_offset = row.real();
    tracking.rms_offset = row.real();
    tracking.frequency_ppm = row.real();
    tracking.residual_frequency_ppm = row.real();
    tracking.skew_ppm = row.real();
    tracking.root_delay = row.real();
    tracking.root_dispersion = row.real();
    tracking.update_interval = row.real();
    tracking.leap_status = row.text();
}

// Of a source that was never heard chronyc prints offsets of 0.
void read_source(Row& row, SourceData& source) {
    source.mode = mode_from(row.letter());
    source.letter = row.letter();
    source.source = row.text();
    source.stratum = row.integer();
    source.poll = row.integer();
    source.reach = row.integer<unsigned>(8) & 0xFFU;
    source.last_rx = row.ago();
    const double offset = row.real();
    const double measured = row.real();
    const double error = row.real();
    if (!source.last_rx)
        return;
    source.offset = offset;
    source.measured = measured;
    source.error = error;
}

// Without samples chronyc prints a skew of 2000 and a deviation of 4.
void read_sourcestats(Row& row, SourceStatistics& statistics) {
    statistics.source = row.text();
    statistics.samples = row.integer();
    statistics.runs = row.integer();
    statistics.span = row.real();
    const double frequency = row.real();
    const double skew = row.real();
    const double offset = row.real();
    const double std_dev = row.real();
    if (statistics.samples == 0)
        return;
    statistics.frequency_ppm = frequency;
    statistics.skew_ppm = skew;
    statistics.offset = offset;
    statistics.std_dev = std_dev;
}

void read_activity(Row& row, ActivityData& activity) {
    activity.online = row.integer();
    activity.offline = row.integer();
    activity.burst_online = row.integer();
    activity.burst_offline = row.integer();
    activity.unresolved = row.integer();
}

std::string options_in(Row& row) {
    std::string options;
    for (int column = 0; column < 5; ++column)
        if (const char letter = row.letter(); letter != '-')
            options += letter;
    return options;
}

void read_selectdata(Row& row, SelectionData& selection) {
    selection.letter = row.letter();
    selection.source = row.text();
    selection.authenticated = row.letter() == 'Y';
    selection.configured_options = options_in(row);
    selection.effective_options = options_in(row);
    selection.last = row.ago();
    selection.score = row.real();
    const double low = row.real();
    const double high = row.real();
    selection.leap = row.text();
    if (low == 0 && high == 0)
        return; // never heard
    selection.low = low;
    selection.high = high;
}

void read_authdata(Row& row, AuthenticationData& authentication) {
    authentication.source = row.text();
    authentication.mode = row.text();
    row.skip(3); // key's number, type and length
    authentication.last_key_exchange = row.ago();
    row.skip(2); // attempts, refusals
    authentication.cookies = row.integer();
}

void read_ntpdata(Row& row, NtpData& data) {
    data.source = row.text();
    row.skip(4); // reference ID and port, local address and its reference ID
    data.leap = row.text();
    row.skip(2); // version, mode
    data.stratum = row.integer();
    row.skip(4); // poll and precision, each as an exponent and in seconds
    data.root_delay = row.real();
    data.root_dispersion = row.real();
    data.reference_id = row.integer<std::uint32_t>(16);
    row.skip(14); // from the reference's name to the time stamps' origin
    data.sent = row.integer<std::uint64_t>();
    data.received = row.integer<std::uint64_t>();
    data.valid = row.integer<std::uint64_t>();
    data.good = row.integer<std::uint64_t>();
}

void read_serverstats(Row& row, ServerData& server) {
    server.ntp_received = row.integer<std::uint64_t>();
    server.ntp_dropped = row.integer<std::uint64_t>();
    server.command_received = row.integer<std::uint64_t>();
    server.command_dropped = row.integer<std::uint64_t>();
    server.client_records_dropped = row.integer<std::uint64_t>();
}

} // namespace

ReportRows<TrackingData> read_tracking_csv(std::string_view text) {
    return read_rows(text, {14}, read_tracking);
}

ReportRows<SourceData> read_sources_csv(std::string_view text) {
    return read_rows(text, {10}, read_source);
}

ReportRows<SourceStatistics> read_sourcestats_csv(std::string_view text) {
    return read_rows(text, {8}, read_sourcestats);
}

ReportRows<ActivityData> read_activity_csv(std::string_view text) {
    return read_rows(text, {5}, read_activity);
}

ReportRows<SelectionData> read_selectdata_csv(std::string_view text) {
    return read_rows(text, {18}, read_selectdata);
}

ReportRows<AuthenticationData> read_authdata_csv(std::string_view text) {
    return read_rows(text, {10}, read_authdata);
}

ReportRows<NtpData> read_ntpdata_csv(std::string_view text) {
    return read_rows(text, {34, 38}, read_ntpdata);
}

ReportRows<ServerData> read_serverstats_csv(std::string_view text) {
    return read_rows(text, {11, 17}, read_serverstats);
}

} // namespace tickervantage
