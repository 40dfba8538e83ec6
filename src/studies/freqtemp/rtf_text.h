// Short texts in the Rich Text Format: paragraphs of plain, bold, italic, raised and lowered text.
//
// Everything else that such a file may hold (fonts, colours, pictures, fields) is passed over. Texts come out as UTF-8.
// Control words as in Microsoft's Rich Text Format, version 1.9.1. Pure functions, any thread.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

enum class RtfScript : unsigned char { normal, superscript, subscript };

struct RtfStyle {
    bool bold = false;
    bool italic = false;
    RtfScript script = RtfScript::normal;
    friend bool operator==(const RtfStyle&, const RtfStyle&) = default;
};

struct RtfRun {
    std::string text; // not empty; a line break within the paragraph is a line feed
    RtfStyle style;
    friend bool operator==(const RtfRun&, const RtfRun&) = default;
};

using RtfParagraph = std::vector<RtfRun>; // empty: an empty line

inline constexpr std::size_t LARGEST_RTF = std::size_t{256} * 1024; // bytes
inline constexpr std::size_t DEEPEST_RTF = 100;                     // groups within each other

// 0; or -1 and a sentence: too large, no Rich Text, groups that do not close or lie too deep.
[[nodiscard]] int read_rtf(std::string_view bytes, std::vector<RtfParagraph>& paragraphs, std::string& sentence);

} // namespace tickervantage
