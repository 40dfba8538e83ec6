// Any bytes as a request to the root helper: what is admitted names only programs and places of ours, and says the same
// when it is parsed again. Then the same bytes as a configuration and as a service definition.
#include "fuzz/require.h"
#include "roothelper/grammar/helper_content.h"
#include "roothelper/grammar/helper_request.h"
#include "roothelper/grammar/helper_words.h"

#include <algorithm>

using namespace tickervantage;

namespace {

bool is_ours(const std::string& program, const HelperRules& rules) {
    const std::vector<std::string> plain{"/bin/launchctl", "/bin/systemctl", "/bin/rm", "/bin/chmod", "/usr/bin/pgrep"};
    return program == rules.tool() || holds_path(rules.chronyc, program) || holds_path(rules.chronyd, program) ||
           holds_path(rules.chronywake, program) || holds_path(plain, program);
}

void check_request(const std::string& line) {
    const HelperRules rules;
    HelperRequest request;
    std::string sentence;
    if (parse_helper_request(line, rules, request, sentence) != 0) {
        require(sentence.ends_with('.') && request.argv.empty());
        return;
    }
    HelperRequest again;
    require(parse_helper_request(line, rules, again, sentence) == 0 && again.argv == request.argv);
    require(request.argv.empty() == (request.verb == HelperVerb::quit));
    if (request.argv.empty())
        return;
    require(is_ours(request.argv[0], rules));
    for (const auto& word : request.argv)
        require(is_printable(word) && word.find("/../") == std::string::npos && !word.ends_with("/.."));
    require(request.argv[0] != rules.tool() || request.argv.size() > 1);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    check_request(text);
    check_request("EXECUTE " + text);
    check_request("EXECUTE \"" + HelperRules().tool() + "\" " + text);

    std::vector<ConfigurationLine> lines;
    std::string sentence;
    if (find_unsafe_lines(text, "", {}, lines, sentence) == 0)
        require(find_unsafe_lines(text, text, {}, lines, sentence) == 0 && lines.empty());
    (void)check_service_definition("/etc/systemd/system/org.chrony-project.chronyd.service", text, {}, sentence);
    const auto fit = as_valid_text(text, 100);
    require(fit.size() <= 100 && fit == as_valid_text(fit, 100));
    return 0;
}
