#include "cli/kept_command.h"

#include "base/text_difference.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <ostream>

namespace tickervantage {
namespace {

using Json = nlohmann::ordered_json;

std::string document(const Json& json) {
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

} // namespace

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
        out << document(array);
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
    out << document(array);
}

} // namespace tickervantage
