// What may stand behind the name of a directive: the words that chronyd knows there, by directive and by place.
//
// Names are not case-sensitive, as chronyd reads them. Pure functions, any thread.
// Source: chrony.conf(5) of chrony 4.3; a test has chronyd itself read each of them.
#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace tickervantage {

struct DirectiveOption {
    std::string_view name;
    std::string_view value;        // what stands behind it; empty: nothing does
    std::string_view example = {}; // a value that chronyd takes
};

struct DirectiveOptions {
    std::string_view directive;
    std::string_view before;                  // words that stand between the name and the options, as examples
    bool is_single;                           // one of them, not several
    std::span<const DirectiveOption> options; // by name
};

[[nodiscard]] std::span<const DirectiveOptions> all_directive_options();

// The options that may come next in a line of which `before` is the part before the cursor, its unfinished last word
// apart: without those that are there already. None where a value or another word is expected.
[[nodiscard]] std::vector<DirectiveOption> options_after(std::string_view before);

} // namespace tickervantage
