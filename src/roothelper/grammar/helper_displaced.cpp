#include "roothelper/grammar/helper_displaced.h"

#include <utility>

namespace tickervantage {

void DisplacedConfigurations::note(const HelperCaller& caller, ConfigurationExchange exchange, std::int64_t now) {
    auto place = exchange.destination;
    m_entries.insert_or_assign(std::move(place), Entry{caller, std::move(exchange), now + lifetime_seconds});
}

bool DisplacedConfigurations::take(const HelperCaller& caller, const ConfigurationExchange& exchange,
                                   std::int64_t now) {
    const auto found = m_entries.extract(exchange.destination);
    if (found.empty())
        return false;
    const auto& entry = found.mapped();
    return now < entry.end && entry.caller == caller && entry.exchange == exchange;
}

void DisplacedConfigurations::drop(const std::string& name) {
    std::erase_if(m_entries, [&name](const auto& entry) { return entry.second.caller.name == name; });
}

} // namespace tickervantage
