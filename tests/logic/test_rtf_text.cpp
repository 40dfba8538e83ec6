#include "studies/freqtemp/rtf_text.h"

#include <gtest/gtest.h>

#include <string>

namespace tickervantage {
namespace {

// Paragraphs in brackets; bold, italic, raised and lowered text behind a sign of its own.
std::string plain(std::string_view bytes) {
    std::vector<RtfParagraph> paragraphs;
    std::string text;
    if (read_rtf(bytes, paragraphs, text) != 0)
        return "failed: " + text;
    for (const auto& paragraph : paragraphs) {
        text += '[';
        for (const auto& run : paragraph) {
            text += run.style.bold ? "*" : "";
            text += run.style.italic ? "/" : "";
            text += run.style.script == RtfScript::superscript ? "^"
                    : run.style.script == RtfScript::subscript ? "_"
                                                               : "";
            text += run.text;
        }
        text += ']';
    }
    return text;
}

TEST(RtfText, IsReadWithItsStyles) {
    for (const auto& [rtf, expected] : {
             std::pair{R"({\rtf1\ansi one\par two})", "[one][two]"},
             {R"({\rtf1{\fonttbl{\f0 Helvetica;}}{\*\generator X;}{\info{\title T}}\f0 shown\par})", "[shown]"},
             {R"({\rtf1 a{\b b{\i c}d}e\b f\b0 g\plain h})", "[a*b*/c*de*fgh]"},
             {R"({\rtf1 T\super 2\nosupersub  x{\sub i}\par\par y})", "[T^2 x_i][][y]"},
             {R"({\rtf1 \'b0C \'80 \~ \{\}\\ \emdash\bullet})", "[°C € \u00a0 {}\\ —•]"},
             {R"({\rtf1 \u183 ?\u176?C \u-10179 ?\u-8704 ?.})", "[·°C 😀.]"},
             {R"({\rtf1\uc2 \u955 ab{\uc0\u955 c}\u955\'41\'42d})", "[λλcλd]"},
             {R"({\rtf1 \u-8704 ?\bin3 }}}x})", "[\ufffdx]"},
             {"{\\rtf1 split\r\n line\\line next}", "[split line\nnext]"},
             {"{\\rtf1}", ""},
             {"", "failed: it is not in the Rich Text Format"},
             {"{\\rtf1 open", "failed: it ends in the middle"},
             {"{\\rtf1 \\", "failed: it ends in the middle"},
         })
        EXPECT_EQ(plain(rtf), expected) << rtf;
    EXPECT_EQ(plain("{\\rtf1" + std::string(100'000, '{')), "failed: its groups lie too deep within each other");
    EXPECT_EQ(plain("{\\rtf1 " + std::string(300'000, 'x') + "}"), "failed: it is too large");
}

} // namespace
} // namespace tickervantage
