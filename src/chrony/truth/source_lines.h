// Which line of chrony's configuration brought a source. Source: chrony.conf(5), server, pool, peer, refclock. Pure.
#pragma once

#include "chrony/data/capture.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

struct SourceLine {
    std::string path;
    int line = 0; // from 1
    std::string text;
};

// By the configuration's name of the source, else its address; a reference clock by its ID, be it given on the line or
// made by chronyd of the driver and its number. None where no line names it.
[[nodiscard]] std::optional<SourceLine> line_of_source(const std::vector<CapturedFile>& configuration,
                                                       std::string_view source, std::string_view name);

// The rest of the last line with this directive, in any of the files.
[[nodiscard]] std::optional<std::string> last_value(const std::vector<CapturedFile>& configuration,
                                                    std::string_view directive);

// The same as a number.
[[nodiscard]] std::optional<double> last_number(const std::vector<CapturedFile>& configuration,
                                                std::string_view directive);

} // namespace tickervantage
