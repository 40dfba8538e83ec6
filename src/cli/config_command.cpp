#include "cli/config_command.h"

#include "cli/terminal.h"

#include <nlohmann/json.hpp>

#include <ostream>

namespace tickervantage {
namespace {

using Json = nlohmann::ordered_json;

std::string document_of(const Json& value) {
    return value.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

} // namespace

int print_configuration(const Configuration& configuration, const std::optional<std::string>& directive,
                        OutputForm form, std::ostream& out) {
    if (directive) {
        const auto value = configuration.value(*directive);
        if (form == OutputForm::json)
            out << document_of(value ? Json(*value) : Json(nullptr));
        else if (value)
            out << one_line(*value) << '\n';
        return value ? 0 : answer_is_no;
    }
    if (form == OutputForm::json)
        out << document_of(Json(configuration.all()));
    else
        for (const auto& [name, value] : configuration.all())
            out << one_line(name + ' ' + value) << '\n';
    return 0;
}

} // namespace tickervantage
