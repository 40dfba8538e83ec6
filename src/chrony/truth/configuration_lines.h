// chrony's configuration by what its lines bring: which line a source comes from, and what a directive says. Looked
// through once, so that a thousand sources cost no more than their lines. Source: chrony.conf(5), server, pool, peer,
// refclock. Const functions from any thread.
#pragma once

#include "chrony/data/capture.h"

#include <map>
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

class ConfigurationLines {
public:
    explicit ConfigurationLines(const std::vector<CapturedFile>& configuration);

    // By the configuration's name of the source, else its address; a reference clock by its ID, be it given on the line
    // or made by chronyd of the driver and its number. None where no line names it.
    [[nodiscard]] std::optional<SourceLine> line_of(std::string_view source, std::string_view name) const;

    // What stands behind the directive, line by line.
    [[nodiscard]] std::vector<std::string> values(std::string_view directive) const;

    // The last of them as a number; none where that is none.
    [[nodiscard]] std::optional<double> number(std::string_view directive) const;

private:
    void add(const SourceLine& line);

    std::map<std::string, SourceLine> m_hosts; // names in small letters; the first line of each
    std::map<std::string, SourceLine> m_clocks;
    std::map<std::string, std::vector<std::string>> m_values; // directives in small letters
    int m_refclocks = 0;
};

} // namespace tickervantage
