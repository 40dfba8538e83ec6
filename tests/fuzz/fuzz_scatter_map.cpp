// Scatter maps and .csv files of any bytes: what is taken in is written so that it is taken in again as it was.
#include "fuzz/require.h"
#include "studies/freqtemp/scatter_csv.h"
#include "studies/freqtemp/scatter_json.h"

#include <string_view>

namespace {

template <class Write>
std::string written(const ScatterMap& map, const Write& write) {
    std::string text;
    (void)write(map, [&text](std::string_view piece) {
        text += piece;
        return 0;
    });
    return text;
}

} // namespace

FUZZED(text) {
    if (const auto read = read_scatter_json(text)) {
        const std::string once = written(*read, write_scatter_json);
        const auto again = read_scatter_json(once);
        require(again.has_value());
        require(written(*again, write_scatter_json) == once);
    }
    ScatterMap map;
    CsvDamage damage;
    if (read_scatter_csv(text, "sensor", map, damage) == 0)
        require(largest_count(map) > 0);
}
