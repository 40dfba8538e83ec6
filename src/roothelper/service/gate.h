// Keeps the way out of the helper free for answers that somebody has a right to.
//
// The bus takes a little from each connection in turn, so that a helper which answers a thousand useless messages has
// its one useful answer wait behind all of them. Connections that hold no authorisation are answered at once as long as
// the bus keeps up; while it does not, each has a few messages a minute, enough to ask for the version and to become
// authorised, and is not heard beyond that.
#pragma once

#include "linux/bus_owners.h"
#include "roothelper/service/authorisations.h"

#include <map>
#include <string>

namespace tickervantage {

class Gate {
public:
    // The authorisations outlive the gate.
    Gate(sd_bus* bus, const Authorisations& authorisations);

    void new_minute() { m_heard.clear(); }
    void forget(const std::string& name) { m_heard.erase(name); }

private:
    static int on_message(sd_bus_message* message, void* self, sd_bus_error* error);
    [[nodiscard]] bool lets_in(const std::string& sender);
    [[nodiscard]] bool is_jammed() const;

    sd_bus* m_bus;
    const Authorisations& m_authorisations;
    std::map<std::string, unsigned> m_heard; // messages of each connection while the way was jammed, in this minute
    BusSlot m_slot;
};

} // namespace tickervantage
