// Reads what "chronyc -n -c" prints into records. Pure functions, any thread. Source: chronyc(1), option -c.
//
// A line with another number of columns than this program knows is kept as it came, so that it can be shown, and the
// rest of the report goes on; chrony adds columns now and then.
#pragma once

#include "chrony/data/records.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

// A line that does not fit: shown raw, with both numbers.
struct OddLine {
    std::string line;
    std::size_t columns = 0;
    std::string expected; // "14", "34 or 38"
};

template <typename Row>
struct ReportRows {
    std::vector<Row> rows;
    std::vector<OddLine> odd;
};

[[nodiscard]] ReportRows<TrackingData> read_tracking_csv(std::string_view text); // one row
[[nodiscard]] ReportRows<SourceData> read_sources_csv(std::string_view text);
[[nodiscard]] ReportRows<SourceStatistics> read_sourcestats_csv(std::string_view text);
[[nodiscard]] ReportRows<ActivityData> read_activity_csv(std::string_view text); // one row
[[nodiscard]] ReportRows<SelectionData> read_selectdata_csv(std::string_view text);
[[nodiscard]] ReportRows<AuthenticationData> read_authdata_csv(std::string_view text);
[[nodiscard]] ReportRows<NtpData> read_ntpdata_csv(std::string_view text);
[[nodiscard]] ReportRows<ServerData> read_serverstats_csv(std::string_view text); // one row

} // namespace tickervantage
