#include "cli/configuration/config_command.h"

#include "cli/json_text.h"
#include "cli/terminal.h"

#include <ostream>

namespace tickervantage {
namespace {

void print_json(const ConfigError& error, const std::vector<ConfigurationWarning>& warnings, std::ostream& out) {
    Json document{{"isok", error.m_isok}, {"msg", error.m_msg}, {"line", error.m_line}, {"warnings", Json::array()}};
    for (const auto& warning : warnings)
        document["warnings"].push_back({{"line", warning.line}, {"sentence", english(warning.what)}});
    out << json_text(document);
}

std::string words_of(const ConfigError& error) {
    if (error.passed())
        return "syntax OK";
    if (error.m_isok)
        return "not known to be right";
    return error.m_file.empty() ? error.m_msg : error.m_msg + " of " + error.m_file;
}

} // namespace

int print_configuration(const Configuration& configuration, const std::optional<std::string>& directive,
                        OutputForm form, std::ostream& out) {
    if (directive) {
        const auto value = configuration.value(*directive);
        if (form == OutputForm::json)
            out << json_text(value ? Json(*value) : Json(nullptr));
        else if (value)
            out << one_line(*value) << '\n';
        return value ? 0 : answer_is_no;
    }
    if (form == OutputForm::json)
        out << json_text(Json(configuration.all()));
    else
        for (const auto& [name, value] : configuration.all())
            out << one_line(name + ' ' + value) << '\n';
    return 0;
}

int print_check(const ConfigurationCheck& check, OutputForm form, std::ostream& out, std::ostream& err) {
    auto warnings = check.warnings;
    if (check.error.m_doubt && check.error.m_msg.empty())
        warnings.insert(warnings.begin(), {0, *check.error.m_doubt});
    if (form == OutputForm::json) {
        print_json(check.error, warnings, out);
    } else {
        out << one_line(words_of(check.error)) << '\n';
        for (const auto& warning : warnings) {
            const std::string place = warning.line == 0 ? "" : "line " + std::to_string(warning.line) + ": ";
            err << "tickerctl: " << one_line(place + english(warning.what)) << '\n';
        }
    }
    return check.error.passed() ? 0 : answer_is_no;
}

} // namespace tickervantage
