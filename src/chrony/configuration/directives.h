// chrony's directives by name, each with one line of help, and what kind of line a line of chrony.conf is.
//
// Names are not case-sensitive, as chronyd reads them. Pure functions, any thread.
// Source: chrony.conf(5) of chrony 4.3; a test compares the names with what chronyd itself knows.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace tickervantage {

enum class DirectiveState : unsigned char {
    current,
    ignored, // chronyd reads it, says that it is no longer supported, and goes on
};

struct Directive {
    std::string_view name;
    std::string_view arguments; // what stands behind the name; empty: nothing does
    const char* help;           // one line
    DirectiveState state = DirectiveState::current;
};

[[nodiscard]] std::span<const Directive> all_directives();            // by name
[[nodiscard]] const Directive* find_directive(std::string_view name); // null: chronyd does not know it
[[nodiscard]] bool opens_comment(char first);                         // the first character of a line

enum class LineKind : unsigned char { empty, comment, directive, unknown };

// Where the name stands in its line; of a comment, where the comment begins. Lengths in bytes.
struct LineParts {
    LineKind kind = LineKind::empty;
    std::size_t start = 0;
    std::size_t length = 0;               // of the name, or of the comment
    const Directive* directive = nullptr; // with LineKind::directive
};

[[nodiscard]] LineParts parts_of_line(std::string_view line);

} // namespace tickervantage
