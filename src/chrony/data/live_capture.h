// What chronyd says now, as a capture: two runs of chronyc for what everybody may ask, a third for what root may ask.
// Blocks for as long as chronyc takes: not on the main thread.
#pragma once

#include "base/execute.h"
#include "chrony/data/capture.h"

#include <string>
#include <vector>

namespace tickervantage {

class Runchronyc;

enum class CaptureDepth : unsigned char {
    open,       // tracking, sources, sourcestats, activity
    with_names, // and the configuration's names of the sources: one run more
    with_root,  // and selectdata, authdata, ntpdata, serverstats: through the root helper where it is ready, else they
                // are refused unless chronyd admits this user
};

// The runs by themselves, for who wants to know how each ended, and what they bring.
[[nodiscard]] ExecuteResult run_open_reports(const Runchronyc& chronyc);
[[nodiscard]] ExecuteResult run_root_reports(const Runchronyc& chronyc);
[[nodiscard]] ExecuteResult run_for_names(const Runchronyc& chronyc); // "sources" by the configuration's names
[[nodiscard]] Capture capture_of_open_reports(const ExecuteResult& run);
void add_root_reports(const ExecuteResult& run, Capture& capture);

// With the facts "time" and "steers", the latter of the daemon that this chronyc asks. A chronyc that could not be run
// is a refusal of "tracking" in the words of this program, and nothing more is asked then.
[[nodiscard]] Capture read_capture(const Runchronyc& chronyc, CaptureDepth depth);

// The configuration and the files that it takes in, as far as they can be read, at most 1 MiB each. None where there is
// no such configuration.
[[nodiscard]] std::vector<CapturedFile> read_configuration(const std::string& path);

} // namespace tickervantage
