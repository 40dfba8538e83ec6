// Reports of chronyc as tests want them: lines as "chronyc -n -c" of chrony 4.3 prints them, put together by what
// matters.
#pragma once

#include "chrony/data/reports.h"

#include <string>
#include <string_view>

namespace tickervantage::testing {

struct TrackingLine {
    std::string id = "C0000201";
    std::string address = "192.0.2.1";
    std::string time = "1795325000.000000000"; // 2026-11-22T05:23:20Z
    std::string system_time = "-0.000000344";
    std::string root_delay = "0.002000000";
    std::string root_dispersion = "0.001000000";
    std::string leap = "Normal";

    [[nodiscard]] std::string text() const {
        return id + ',' + address + ",3," + time + ',' + system_time + ",0.000000056,0.000001408,-0.156,0.003,0.247," +
               root_delay + ',' + root_dispersion + ",64.2," + leap + '\n';
    }
};

// One source in "sources" and, unless its letter there is empty, in "selectdata".
struct ReportedSource {
    std::string address = {};
    char letter = '*';
    char selected = '\0';
    std::string reach = "377";
    std::string last = "5";
    std::string interval = "-0.000100000,0.000200000";
    std::string leap = "Normal";
    std::string poll = "6";

    [[nodiscard]] std::string in_sources() const {
        return std::string("^,") + letter + ',' + address + ",2," + poll + ',' + reach + ',' + last +
               ",0.000050000,0.000060000,0.000150000\n";
    }
    [[nodiscard]] std::string in_selection() const {
        return std::string(1, selected) + ',' + address + ",N,-,-,-,-,-,-,-,-,-,-," + last + ",1.0," + interval + ',' +
               leap + '\n';
    }
};

inline const std::string never = "4294967295";

[[nodiscard]] inline Capture capture_of(const TrackingLine& tracking, const std::vector<ReportedSource>& sources) {
    Capture capture;
    capture.facts["time"] = "2026-11-22T05:23:30Z"; // ten seconds after the reference time above
    capture.reports["tracking"].text = tracking.text();
    for (const ReportedSource& source : sources) {
        capture.reports["sources"].text += source.in_sources();
        if (source.selected != '\0')
            capture.reports["selectdata"].text += source.in_selection();
    }
    return capture;
}

} // namespace tickervantage::testing
