// A short text in the Rich Text Format as HTML, for a label: paragraphs of plain, bold, italic, raised and lowered
// text.
//
// Everything else that such a file may hold is passed over; characters beyond ASCII come as \u, or as Latin-1. Control
// words as in Microsoft's Rich Text Format, version 1.9.1. Any thread.
#pragma once

#include "base/failure.h"

#include <QString>

#include <string>

namespace tickervantage {

inline constexpr std::size_t LARGEST_RTF = std::size_t{256} * 1024; // bytes

// Failures: it is no Rich Text, or it ends in the middle.
[[nodiscard]] Result<QString> html_of_rtf(const std::string& bytes);

} // namespace tickervantage
