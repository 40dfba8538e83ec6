#include "cli/configuration/kept_command.h"

#include "base/text_difference.h"
#include "cli/json_text.h"

#include <fmt/format.h>

#include <ostream>

namespace tickervantage {

void KeptCommand::list() const {
    Json array = Json::array();
    for (const auto& [entry, text, user, is_installed] : kept) {
        const auto date = local_date_text(entry.seconds);
        array.push_back({{"number", entry.number},
                         {"date", date},
                         {"user", user},
                         {"reason", reason_text(entry.reason)},
                         {"installed", is_installed}});
        if (form == OutputForm::text)
            out << fmt::format("{:>4}  {}  {:<16} {}{}\n", entry.number, date, user, reason_text(entry.reason),
                               is_installed ? " (in use)" : "");
    }
    if (form == OutputForm::json)
        out << json_text(array);
    else if (kept.empty())
        out << "No configuration has been kept yet.\n";
}

void KeptCommand::difference(const KeptConfiguration& one) const {
    const auto lines = text_difference(installed, one.text);
    if (form == OutputForm::text) {
        out << difference_text(lines);
        return;
    }
    Json array = Json::array();
    for (const auto& line : lines)
        if (line.sign != '@')
            array.push_back(line.sign + line.text);
    out << json_text(array);
}

} // namespace tickervantage
