// Any bytes as a "sourcestats" report or as what a program says of its version.
#include "chrony/reports/versions.h"
#include "chrony/status/refresh.h"
#include "fuzz/require.h"

#include <algorithm>

namespace {

bool is_one_word(const std::string& text) {
    return !text.empty() && text.find_first_of(" \t\n\v\f\r") == text.npos;
}

void check_names(const std::string& text) {
    const auto names = server_names(text);
    if (!names)
        return;
    require(!names->empty() && std::ranges::is_sorted(*names));
    require(std::ranges::all_of(*names, is_one_word));
}

} // namespace

FUZZED(text) {
    check_names(text);
    const auto version =
        read_version({.outcome = ExecuteOutcome::exited, .exit_status = 0, .output = text, .failure = {}});
    require(version.text == text);
    require(version.meaningless == (std::ranges::count(version.label, ' ') < 3));
    (void)knows_original_names(version.label);
}
