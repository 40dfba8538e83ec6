#include "cli/configuration/config_command.h"

#include "cli/json_text.h"
#include "cli/terminal.h"

#include <ostream>

namespace tickervantage {

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

} // namespace tickervantage
