// Any bytes as what chronyc prints with -c: each line becomes a record of finite numbers or is kept as it came, and
// what one run printed for several commands is divided among them without a loss.
#include "base/text_lines.h"
#include "chrony/data/reports.h"
#include "fuzz/require.h"

#include <algorithm>
#include <cmath>

using namespace tickervantage;

namespace {

bool is_sound(const std::optional<double>& number) {
    return !number || std::isfinite(*number);
}

template <typename Row>
ReportRows<Row> whole(ReportRows<Row> report, std::string_view text) {
    require(report.rows.size() + report.odd.size() == non_empty_lines(text).size());
    for (const OddLine& odd : report.odd)
        require(odd.columns == 1 + static_cast<std::size_t>(std::ranges::count(odd.line, ',')));
    return report;
}

void check_rows(std::string_view text) {
    for (const TrackingData& row : whole(read_tracking_csv(text), text).rows)
        require(is_sound(row.reference_time) && is_sound(row.system_time) && is_sound(row.frequency_ppm));
    for (const SourceData& row : whole(read_sources_csv(text), text).rows)
        require(row.reach <= 255 && is_sound(row.offset) && is_sound(row.measured) && is_sound(row.error));
    for (const SourceStatistics& row : whole(read_sourcestats_csv(text), text).rows)
        require(row.samples != 0 || !row.skew_ppm);
    (void)whole(read_activity_csv(text), text);
    for (const SelectionData& row : whole(read_selectdata_csv(text), text).rows)
        require(row.low.has_value() == row.high.has_value() && row.effective_options.size() <= 5);
    (void)whole(read_authdata_csv(text), text);
    for (const NtpData& row : whole(read_ntpdata_csv(text), text).rows)
        require(std::isfinite(row.root_delay) && std::isfinite(row.root_dispersion));
    (void)whole(read_serverstats_csv(text), text);
}

void check_division(std::string_view text, const std::vector<std::string>& asked) {
    const auto reports = divided_reports(text, asked);
    const auto lines = non_empty_lines(text);
    std::size_t divided = 0;
    std::size_t refusals = 0;
    for (const auto& [command, report] : reports) {
        require(std::ranges::find(asked, command) != asked.end());
        divided += non_empty_lines(report.text).size();
        refusals += report.refusal.empty() ? 0U : 1U;
    }
    require(reports.empty() == lines.empty() && refusals <= 1);
    require(refusals == 1 ? divided < lines.size() : divided == lines.size());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    check_rows(text);
    check_division(text, open_reports);
    check_division(text, root_reports);
    return 0;
}
