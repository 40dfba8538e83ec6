// Who is behind a name on the bus, and when the name goes.
#pragma once

#include "platform/linux/bus_owners.h"
#include "privileged/helper_tokens.h"

#include <functional>
#include <map>
#include <optional>
#include <string>

namespace tickervantage {

class Callers {
public:
    // `gone` is told of every connection that leaves the bus.
    Callers(sd_bus* bus, std::function<void(const std::string& name)> gone);

    // Nothing when the connection has left already.
    [[nodiscard]] std::optional<HelperCaller> find(const std::string& name);

private:
    static int on_change(sd_bus_message* message, void* self, sd_bus_error* error);

    sd_bus* m_bus;
    std::function<void(const std::string& name)> m_gone;
    std::map<std::string, HelperCaller> m_known; // a name belongs to one connection for good
    BusSlot m_slot;
};

} // namespace tickervantage
