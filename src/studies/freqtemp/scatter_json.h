// The scatter map as JSON: one object by sensor name, of objects with the keys "selected", "color" ("r", "g", "b",
// "a"), "quadRegression" ("r", "y_stddev", "x_min", "x_max", "coefficients", "valid") and "points" (an array of objects
// with "temperature", "frequency" and, where it is known, "time", as "2026-11-22T01:30:00Z").
//
// Members with other names are kept and written again. Members may come in any order. Pure functions, any thread; they
// work through a million points at the pace of the JSON library.
#pragma once

#include "base/user_files.h"
#include "studies/freqtemp/scatter_map.h"

#include <string>
#include <string_view>

namespace tickervantage {

// Fails when the text is no JSON or a known member is missing or of the wrong kind.
[[nodiscard]] Result<ScatterMap> read_scatter_json(std::string_view text);

// Hands over the text in pieces, indented for people; -1 as soon as the sink wants no more.
[[nodiscard]] int write_scatter_json(const ScatterMap& map, const TextSink& sink);

} // namespace tickervantage
