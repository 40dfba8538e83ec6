// Whose doing an event was, as far as the sources' states about it tell: this machine, the way to the servers, one
// server, or all of them. What they do not tell stays unknown. Pure functions.
#pragma once

#include "studies/history/history_data.h"

#include <cstddef>
#include <string>

namespace tickervantage {

enum class Culprit : unsigned char {
    unknown,
    machine,     // chronyd or the machine itself ended, began, slept or was told to
    way,         // every source fell silent at once: the network, or this machine's part of it
    silent,      // one source no longer answered
    refused,     // the others, or chronyd, no longer believed one source
    dissent,     // the sources disagreed
    choice,      // nothing was wrong: chronyd found another source better
    temperature, // it changed much in the hour before
};

struct Cause {
    Culprit culprit = Culprit::unknown;
    std::string source = {}; // of one
    std::size_t sources = 0; // how many were known then
    double degrees = 0;      // by which the temperature rose
};

[[nodiscard]] Cause cause_of(const HistoryData& data, const HistoryMark& mark);

} // namespace tickervantage
