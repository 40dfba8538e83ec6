// A command line taken apart: words divided by blanks, some of them in double quotes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

struct CommandWord {
    std::string text;
    bool is_quoted = false;
};

// Every quote must be closed, stand at a word's start and be followed by a blank or the end; between two words stands
// exactly one blank. There is no escaping. 0, or -1 when the line is not so.
[[nodiscard]] int split_command_line(std::string_view line, std::vector<CommandWord>& words);

// A host's name or address, with a zone or not, as the helper takes it.
[[nodiscard]] bool is_host_name(std::string_view word);

// Valid UTF-8 without control characters.
[[nodiscard]] bool is_printable(std::string_view text);

// The same text with U+FFFD for every byte that is no part of valid UTF-8, and for every NUL: what a bus message can
// carry. Not longer than the limit; a character is never cut.
[[nodiscard]] std::string as_valid_text(std::string_view bytes, std::size_t limit);

} // namespace tickervantage
