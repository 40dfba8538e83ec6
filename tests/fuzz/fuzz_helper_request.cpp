// Any bytes as a request to the root helper: what is admitted names only programs and places of ours, and says the same
// when it is parsed again. Then the same bytes as a configuration and as a service definition.
#include "fuzz/require.h"
#include "roothelper/grammar/helper_content.h"
#include "roothelper/grammar/helper_names.h"
#include "roothelper/grammar/helper_request.h"
#include "roothelper/grammar/helper_words.h"

#include <algorithm>

namespace {

bool is_ours(const std::string& program, const HelperRules& rules) {
    const std::vector<std::string> plain{"/bin/launchctl", "/bin/systemctl", "/bin/rm", "/bin/chmod", "/usr/bin/pgrep"};
    return program == rules.tool() || holds_path(rules.chronyc, program) || holds_path(rules.chronyd, program) ||
           holds_path(rules.chronywake, program) || holds_path(plain, program);
}

void check_request(const std::string& line) {
    const HelperRules rules;
    const auto parsed = parse_helper_request(line, rules);
    if (!parsed) {
        require(english(parsed.error()).ends_with('.'));
        return;
    }
    const HelperRequest& request = *parsed;
    const auto again = parse_helper_request(line, rules);
    require(again && again->argv == request.argv);
    require(request.argv.empty() == (request.verb == HelperVerb::quit));
    if (request.argv.empty())
        return;
    require(is_ours(request.argv[0], rules));
    for (const auto& word : request.argv)
        require(is_printable(word) && word.find("/../") == std::string::npos && !word.ends_with("/.."));
    require(request.argv[0] != rules.tool() || request.argv.size() > 1);
    const bool has_several = std::ranges::find(request.argv, "-m") != request.argv.end(); // of chronyc's reports
    require(!has_several || line.find(helper::data_reports) != std::string::npos);
}

} // namespace

FUZZED(text) {
    check_request(text);
    check_request("EXECUTE " + text);
    check_request("EXECUTE \"" + HelperRules().tool() + "\" " + text);

    if (find_unsafe_lines(text, "", {})) {
        const auto lines = find_unsafe_lines(text, text, {});
        require(lines && lines->empty());
    }
    (void)check_service_definition("/etc/systemd/system/org.chrony-project.chronyd.service", text, {});
    const auto fit = as_valid_text(text, 100);
    require(fit.size() <= 100 && fit == as_valid_text(fit, 100));
}
