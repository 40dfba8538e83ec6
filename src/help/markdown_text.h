// Our own pages, written in Markdown, as text for a terminal.
//
// Known are what the pages use: headings, paragraphs, lists with "- " and "1. ", fenced and indented blocks, tables,
// **bold**, *leaning*, `code`, [words](target) and pictures. Anything else stays as it is written. A link within the
// help keeps its words, one that leads out of it is followed by its address. Any thread.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tickervantage {

// Lines have at most `width` letters, but for words and blocks that are longer.
[[nodiscard]] std::string markdown_as_text(std::string_view markdown, std::size_t width);

} // namespace tickervantage
