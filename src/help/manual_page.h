// Manual pages as mandoc renders them, made fit for a window and for a terminal.
//
// Source: mandoc(1), output formats "html" and "utf8". Texts are UTF-8. Plain functions of their arguments; any thread.
#pragma once

#include "help/help_topics.h"

#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

// The files in which the manual page may lie, the likeliest first, compressed ones too: mandoc reads both.
[[nodiscard]] std::vector<std::string> manual_files(const std::vector<std::string>& roots, const HelpTopic& topic);

// mandoc's HTML fragment for a rich-text view that knows few tags and no browser's style sheet: headings one level down
// and no links to themselves, the table above the text left out, references such as "chronyc(1)" made links to their
// topics except to `self`.
[[nodiscard]] std::string adapted_manual(std::string_view html, const HelpTopic& self);

// Without the letter-backspace-letter by which a typewriter makes bold and underlined words.
[[nodiscard]] std::string without_overstrikes(std::string_view text);

} // namespace tickervantage
