// All that chrony said at one moment, as records: the one place where its reports become data, from a live reading as
// from a capture. Pure functions, any thread.
#pragma once

#include "chrony/data/capture.h"
#include "chrony/data/csv_reports.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

// A report that was not asked for, or that was refused, is absent; an empty one is there and empty.
struct ChronyReports {
    std::optional<double> now;  // seconds since 1970, UTC
    std::optional<bool> steers; // whether chronyd adjusts the system clock; none: not known
    std::optional<TrackingData> tracking;
    std::optional<std::vector<SourceData>> sources;
    std::optional<std::vector<SourceStatistics>> statistics;
    std::optional<ActivityData> activity;
    std::optional<std::vector<SelectionData>> selection;
    std::optional<std::vector<AuthenticationData>> authentication;
    std::optional<std::vector<NtpData>> ntp;
    std::optional<ServerData> server;
    std::map<std::string, std::string> names; // the configuration's name of a source, by its address
    std::string refusal;                      // chronyc's words in place of "tracking"
    std::vector<Failure> problems;            // lines that did not fit, each named with both numbers
};

[[nodiscard]] ChronyReports reports_in(const Capture& capture);

// The configuration's names by address. Both lists come from runs of chronyc one after the other, and the names have no
// address beside them: they are joined only where each row is of the same kind, poll and stratum.
[[nodiscard]] std::map<std::string, std::string> names_of_sources(const std::vector<SourceData>& sources,
                                                                  const std::vector<SourceData>& named);

// What one run of chronyc with the option -m printed for the commands asked, in their order, cut into its reports
// again: by the number of columns, since an empty report prints nothing. Lines with a number that no report is known to
// have begin the report that was asked for next. Its last words when a command was refused
// become the refusal of the command whose turn it was; of those behind it nothing is known.
[[nodiscard]] std::map<std::string, CapturedReport> divided_reports(std::string_view output,
                                                                    const std::vector<std::string>& asked);

inline const std::vector<std::string> open_reports{"tracking", "sources", "sourcestats", "activity"};
inline const std::vector<std::string> root_reports{"selectdata", "authdata", "ntpdata", "serverstats"};

// "2026-11-22T01:30:00Z", with or without parts of a second; none for anything else.
[[nodiscard]] std::optional<double> moment_in(std::string_view text);
[[nodiscard]] std::string text_of_moment(double seconds_since_1970);

} // namespace tickervantage
