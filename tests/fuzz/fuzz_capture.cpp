// Any bytes as a capture: what is read survives being written, and whatever a server calls itself, what is said of it
// is short and has no control characters.
#include "chrony/truth/explain.h"
#include "chrony/truth/headline.h"
#include "fuzz/require.h"

#include <algorithm>
#include <cmath>

using namespace tickervantage;

namespace {

void check_sentence(const Sentence& sentence) {
    constexpr std::size_t longest = 400;
    const std::string text = english(sentence);
    require(!text.empty() && text.size() <= longest);
    require(
        std::ranges::none_of(text, [](char sign) { return static_cast<unsigned char>(sign) < ' ' || sign == '\x7f'; }));
}

void check_answers(const Capture& capture) {
    const ChronyReports reports = reports_in(capture);
    for (const Explanation& explanation : explain(reports, capture.configuration)) {
        require(!explanation.sentences.empty());
        std::ranges::for_each(explanation.sentences, check_sentence);
        std::ranges::for_each(explanation.remedies, check_sentence);
    }
    const auto budget = error_budget(reports);
    require(!budget || (!std::isnan(budget->bound) && budget->bound >= 0));
    check_sentence(headline(reports, budget, expected_error(reports)).error);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string text(data, data + size);
    std::erase(text, '\r'); // a line's end is read with one and written without
    auto capture = parse_capture(text);
    if (!capture) {
        require(english(capture.error()).ends_with('.'));
        return 0;
    }
    require(is_capture(text));
    const std::string written = to_text(*capture);
    const auto again = parse_capture(written);
    require(again && to_text(*again) == written);
    check_answers(*capture);
    return 0;
}
