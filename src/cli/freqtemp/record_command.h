// What `tickerctl record` does: it samples frequency against temperature as the window does, without a window.
#pragma once

#include "chrony/reports/runchronyc.h"
#include "cli/end_signals.h"
#include "studies/freqtemp/freqtemp_settings.h"

#include <string>

namespace tickervantage {

struct RecordOptions {
    std::string map;              // path of the scatter map
    FreqTempSettings settings;    // order and largest number of samples
    double interval_seconds = 10; // between two frequencies
    double for_seconds = 0;       // 0: until a signal asks for the end
};

// Samples until then, saves the map and prints how many samples it has. Returns an exit status: `answer_is_no` when
// there is no sensor. What goes wrong meanwhile is told on standard error. Needs a QCoreApplication; main thread.
[[nodiscard]] int record(const RecordOptions& options, const Runchronyc& chronyc, const EndSignals& signals);

} // namespace tickervantage
