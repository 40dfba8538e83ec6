// Tries a time server before it is used: a chronyd of one measurement, which leaves the clock alone and needs no
// rights. Source: chronyd(8), options -Q, -t, -x, -U. Blocks for as long as the server takes to answer, or the time
// limit.
#pragma once

#include "base/execute.h"
#include "base/failure.h"

#include <optional>
#include <string>
#include <string_view>

namespace tickervantage {

struct ProbeRequest {
    std::string host; // a name or an address
    std::optional<int> port = {};
    bool nts = false;
    double time_limit = 5; // s
    std::string chronyd;   // the program
    std::string user;      // as whom it runs: the one who asks
};

struct ProbeAnswer {
    std::optional<double> offset = {}; // s; how far our clock is ahead of the server's. None: it did not answer
    double seconds = 0;                // how long that took
    std::optional<Failure> failure = {};
};

// A host that is no name and no address is refused and nothing is run: chronyd would read more than a host out of it.
[[nodiscard]] ProbeAnswer probe(Execute& execute, const ProbeRequest& request);

// The offset that chronyd printed at the end of such a run; none where it printed none.
[[nodiscard]] std::optional<double> offset_in(std::string_view chronyd_output);

} // namespace tickervantage
