// Any bytes as a tracking log: counts that a log of so many lines can have.
#include "base/text_lines.h"
#include "fuzz/require.h"
#include "watch/log_alarms.h"

#include <cmath>
#include <cstdint>
#include <string>

using namespace tickervantage;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    const auto alarms = alarms_in_log(text, watch_rules());
    if (!alarms)
        return 0;
    require(std::isfinite(alarms->seconds) && alarms->seconds > 0);
    for (const auto& count : alarms->raised)
        require(!count || (*count >= 0 && static_cast<std::size_t>(*count) < non_empty_lines(text).size()));
    return 0;
}
