// One reading of the daemon, as a value in and a value out: made on the main thread, run off it, applied on it again.
#pragma once

#include "chrony/reports/runchronyc.h"
#include "chrony/reports/running_check.h"
#include "chrony/reports/tracking_report.h"
#include "chrony/truth/clock_truth.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

// The configuration's names of the sources: asked for when the list of sources has changed, not with every reading.
struct SourceNamesMemory {
    std::vector<std::string> addresses; // of the sources that were asked about, in chronyc's order
    std::map<std::string, std::string> names;
};

// What a reading needs that does not change from one to the next. Used on the queue only.
struct RefreshTools {
    RunningCheck running_check;
    std::function<bool()> gpsd_application_found;
    SourceNamesMemory names = {};
};

struct RefreshRequest {
    std::shared_ptr<const Runchronyc> runner;
    std::string command;
    std::string configuration; // the path of chrony.conf; empty: not known
    std::string server;        // for "ntpdata"
    bool resolve = true;       // for the privileged reports
    bool original = false;     // likewise
    bool list_servers = false; // read the names of the sources as well
    std::shared_ptr<const ExecuteResult> root_reports =
        {}; // the newest, as run_root_reports() brought them; none: null
};

// What chronyc said, and what is known beside it, before it is judged.
struct TruthBasis {
    Capture capture; // of the open reports
    double now = 0;  // seconds since 1970, UTC, with their parts, which a capture's own time has not
    std::optional<TrackingData> tracking = {}; // of the text, where the tracking report as data cannot be read
    std::optional<bool> steers = {};
    std::map<std::string, std::string> names = {}; // the configuration's, by address
    std::string configuration = {};                // the path; empty: not known
};

// The text of the report that is shown.
struct ReportText {
    std::string output;             // empty for "version", whose text is known, and for the reports that need root
    std::optional<Failure> problem; // why the output is missing or cut
};

struct RefreshReading {
    bool gpsd_application_found = false;
    ClockDiscipline discipline = ClockDiscipline::not_running;
    std::optional<Failure> failure; // of chronyc: it could not be run, hung, or was ended
    std::string silence;            // what it said in place of a tracking report
    TrackingReport report;
    std::shared_ptr<const TruthBasis> basis; // both are always there
    std::shared_ptr<const ClockTruth> truth;
    bool has_new_sources = false; // whose names are not known
    ReportText report_text;
    std::optional<std::vector<std::string>> servers; // sorted; none: keep the list as it is
};

// The reports that chronyd gives to root only.
[[nodiscard]] bool is_privileged_report(const std::string& command);

// Such a report in words, as on a command line ("ntpdata", "192.0.2.1"). -1: the helper does not admit these words.
[[nodiscard]] int report_request(const std::vector<std::string>& words, RefreshRequest& request);

// Whether chronyc's text is a report, rather than nothing or chronyc's word that there is none.
[[nodiscard]] bool is_report(std::string_view text);

// Why there is no tracking report, out of what chronyc printed in its place.
[[nodiscard]] std::string silence_sentence(std::string_view tracking);

// Runs chronyc once for the reports as data, and at most once more for the report that is shown. Blocks for as long as
// that takes: not for the main thread.
[[nodiscard]] RefreshReading read_status(const RefreshRequest& request, RefreshTools& tools);

// With the reports that need root, where there are any. Reads the configuration and the tracking log's end: not on the
// main thread.
[[nodiscard]] std::shared_ptr<const ClockTruth> truth_of(const TruthBasis& basis, const ExecuteResult* root);

// Asks for the names of these sources: one run of chronyc. The next reading brings them. Blocks likewise.
void read_names(const Runchronyc& runner, const ChronyReports& reports, RefreshTools& tools);

// The report that needs root, through the helper. Blocks for as long as that takes, which may be much longer than a
// reading: names of clients are looked up, and others may be ahead in the helper's line.
[[nodiscard]] ReportText read_privileged_report(const RefreshRequest& request);

// The text with lines of at most longest_line characters and at most most_lines of them, and whether anything was left
// out. A text view lays out any such text in a few milliseconds; a megabyte of line ends would take it seconds.
inline constexpr std::size_t longest_line = 200;
inline constexpr std::size_t most_lines = 6000;
[[nodiscard]] bool limit_lines(std::string& text);

// The names in a "sourcestats" report, sorted; none when it lists no source. The table cuts long names: those are taken
// from the same report as comma-separated values, `whole`, which need not be there otherwise.
[[nodiscard]] std::optional<std::vector<std::string>> server_names(const std::string& sourcestats,
                                                                   const std::string& whole = {});
[[nodiscard]] bool has_cut_names(const std::string& sourcestats);

} // namespace tickervantage
