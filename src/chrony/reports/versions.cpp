#include "chrony/reports/versions.h"

#include "base/text_lines.h"

namespace tickervantage {

ProgramVersion read_version(const ExecuteResult& answer) {
    constexpr std::size_t label_words = 4;
    ProgramVersion version;
    version.text = answer.output;
    if (answer.outcome != ExecuteOutcome::exited) {
        version.failure = answer.failure;
        return version;
    }
    version.label = first_words(answer.output, label_words);
    version.meaningless = words(answer.output).size() < label_words;
    return version;
}

bool knows_original_names(const std::string& chronyc_label) {
    return chronyc_label.find("3.5") == std::string::npos;
}

std::string version_text(const std::string& chronyd_text, const std::string& chronyc_text) {
    return chronyd_text + "\n" + chronyc_text +
           "\nStatic libraries"
           "\n================"
           "\ngmp-6.3.0"
           "\ngnutls-3.8.3"
           "\nnettle-3.9"
           "\nlibtasn1-4.19.0";
}

} // namespace tickervantage
