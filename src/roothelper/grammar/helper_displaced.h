// Which configuration an installation of a moment ago put out of the way, and for whom.
//
// A daemon that does not start with a new configuration gets the former one back. That needs no second consent,
// whatever the former one says, as long as nothing but that installation is undone; an older file of the same name, or
// one that somebody else displaced, is a text like any other. Keep on one thread.
#pragma once

#include "roothelper/grammar/helper_tokens.h"

#include <cstdint>
#include <map>
#include <string>

namespace tickervantage {

struct ConfigurationExchange {
    std::string destination;
    std::string displaced; // bytes
    std::string installed;

    friend bool operator==(const ConfigurationExchange&, const ConfigurationExchange&) = default;
};

class DisplacedConfigurations {
public:
    static constexpr std::int64_t lifetime_seconds = 600; // a job, with a dialog in it

    // The latest exchange at its destination; what was remembered of that place is forgotten.
    void note(const HelperCaller& caller, ConfigurationExchange exchange, std::int64_t now);

    // Whether the same caller would undo just this exchange. It is forgotten either way: once is enough for a job.
    [[nodiscard]] bool take(const HelperCaller& caller, const ConfigurationExchange& exchange, std::int64_t now);

    void drop(const std::string& name); // of a connection that has gone

private:
    struct Entry {
        HelperCaller caller;
        ConfigurationExchange exchange;
        std::int64_t end = 0;
    };
    std::map<std::string, Entry> m_entries; // by destination
};

} // namespace tickervantage
