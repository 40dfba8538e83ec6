// Scatter maps and .csv files of any bytes: what is taken in is written so that it is taken in again as it was.
#include "fuzz/require.h"
#include "studies/freqtemp/scatter_csv.h"
#include "studies/freqtemp/scatter_json.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

using namespace tickervantage;

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

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    ScatterMap map;
    ScatterMap again;
    std::string sentence;
    if (read_scatter_json(text, map, sentence) == 0) {
        const std::string once = written(map, write_scatter_json);
        require(read_scatter_json(once, again, sentence) == 0);
        require(written(again, write_scatter_json) == once);
    }
    CsvDamage damage;
    if (read_scatter_csv(text, "sensor", map, damage) == 0)
        require(largest_count(map) > 0);
    return 0;
}
