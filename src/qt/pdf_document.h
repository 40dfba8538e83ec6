// Rich text as a PDF. Needs a QGuiApplication for its fonts. Main thread.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tickervantage {

[[nodiscard]] bool is_pdf(std::string_view path); // by its suffix

// Pages of A4. The moment, in seconds since 1970, stands in the document as that of its making, so that the same text
// gives the same bytes.
[[nodiscard]] std::string pdf_of_html(const std::string& html, std::int64_t moment);

} // namespace tickervantage
