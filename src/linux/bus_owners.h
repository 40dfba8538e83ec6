// Owners of what sd-bus and sd-event hand out.
#pragma once

#include <systemd/sd-bus.h>
#include <systemd/sd-event.h>

#include <memory>

namespace tickervantage {

struct BusUnref {
    void operator()(sd_bus* bus) const { sd_bus_flush_close_unref(bus); }
    void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }
    void operator()(sd_bus_slot* slot) const { sd_bus_slot_unref(slot); }
    void operator()(sd_bus_creds* creds) const { sd_bus_creds_unref(creds); }
    void operator()(sd_event* event) const { sd_event_unref(event); }
    void operator()(sd_event_source* source) const { sd_event_source_disable_unref(source); }
};

using Bus = std::unique_ptr<sd_bus, BusUnref>;
using BusMessage = std::unique_ptr<sd_bus_message, BusUnref>;
using BusSlot = std::unique_ptr<sd_bus_slot, BusUnref>;
using BusCreds = std::unique_ptr<sd_bus_creds, BusUnref>;
using Event = std::unique_ptr<sd_event, BusUnref>;
using EventSource = std::unique_ptr<sd_event_source, BusUnref>;

} // namespace tickervantage
