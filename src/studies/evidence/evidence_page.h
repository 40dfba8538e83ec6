// Evidence as a document: one page that needs no knowledge of chrony, and an annex with every excursion, gap and file.
//
// English, and the same bytes for the same input: no moment of its making, no path but those given. Numbers are rounded
// so that the clock looks worse, never better. Pure functions, any thread.
#pragma once

#include "studies/evidence/evidence.h"

#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

struct EvidenceFile {
    std::string name;
    std::string sha256; // hexadecimal, of the file as it lies there
    std::size_t records = 0;
};

struct EvidenceOrigin {
    std::vector<EvidenceFile> files;
    std::string command; // that makes it again
    std::string version; // of this program
};

// Such text as Qt's rich text and any browser show.
[[nodiscard]] std::string evidence_html(const Evidence& evidence, const EvidenceOrigin& origin);

// "1.24 ms", never less than the seconds given.
[[nodiscard]] std::string rounded_up(double seconds);

// "99.987 %" of a share, of three decimals, rounded down; up for those that speak against the clock.
[[nodiscard]] std::string percent_down(std::int64_t part, std::int64_t whole);
[[nodiscard]] std::string percent_up(std::int64_t part, std::int64_t whole);

} // namespace tickervantage
