// Any bytes as a range: what is one has an order, and its normal form is the same range.
#include "fuzz/require.h"
#include "watch/range.h"

#include <cstdint>

using namespace tickervantage;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    for (const RangeUnits units : {RangeUnits::none, RangeUnits::time}) {
        const auto range = parse_range(text, units);
        if (!range)
            continue;
        require(range->start <= range->end);
        const auto again = parse_range(text_of(*range), RangeUnits::none);
        require(again && again->start == range->start && again->end == range->end && again->inside == range->inside);
        require(alerts(*range, range->start) == range->inside);
    }
    return 0;
}
