// The files of points for chronyd's temperature compensation that a configuration names: "chronyd -p" does not read
// them.
#pragma once

#include "chrony/services/points_table.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tickervantage {

// What is wrong with a file of points that a configuration names.
struct TempcompError {
    std::string included; // the file with the directive; empty: the configuration itself
    std::size_t line = 0; // of the directive, counted from 1
    Failure what;
};

// The first error in the files of points that a configuration, or a file that it includes, names. Files that we may not
// read are passed over. Waits for the disk: not on the main thread.
[[nodiscard]] std::optional<TempcompError> tempcomp_error(std::string_view configuration);

} // namespace tickervantage
