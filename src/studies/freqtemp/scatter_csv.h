// Points as comma-separated values: temperature, frequency and, where several sensors share a text, the sensor's name.
//
// Pure functions, any thread.
#pragma once

#include "base/user_files.h"
#include "studies/freqtemp/scatter_map.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace tickervantage {

// Lines "temperature,frequency" or "temperature,frequency,sensor", a first line of column names allowed. Points without
// a sensor belong to `sensor`. Where the first line calls the third column "time", it is passed over. Lines that are no
// points are counted; the first one's number (from 1) is kept.
struct CsvDamage {
    std::size_t lines = 0;
    std::size_t first = 0; // 0: none
};

// -1: not one point in it.
[[nodiscard]] int read_scatter_csv(std::string_view text, const std::string& sensor, ScatterMap& map,
                                   CsvDamage& damage);

// All points of all sensors, with a line of column names; -1 as soon as the sink wants no more.
[[nodiscard]] int write_scatter_csv(const ScatterMap& map, const TextSink& sink);

} // namespace tickervantage
