// The helper on the bus: takes messages, decides, has the work done, and ends when nothing came for a while.
//
// Interface net.brisklane.chronyhelper: Request(a{sv}) -> a{sv}, Authorise() -> ay, Withdraw(), property Version. One
// thread. A message that brings no authorisation is answered out of what is in memory: nobody is asked about it, and it
// costs no line in the journal of its own.
#pragma once

#include "linux/bus_owners.h"
#include "roothelper/grammar/helper_displaced.h"
#include "roothelper/grammar/helper_interruptions.h"
#include "roothelper/grammar/helper_rules.h"
#include "roothelper/service/authorisations.h"
#include "roothelper/service/callers.h"
#include "roothelper/service/gate.h"
#include "roothelper/service/job_lines.h"
#include "roothelper/service/polkit.h"
#include "roothelper/service/refusals.h"

#include <map>
#include <string>
#include <string_view>

namespace tickervantage {

class HelperService {
public:
    // `folder` is the helper's own, for what outlives a run and for files on their way.
    HelperService(sd_bus* bus, sd_event* event, HelperRules rules, std::string folder);

    // Takes the name and works until there is nothing to do any more.
    [[nodiscard]] Result<> run();

    // Makes `run` finish what is under way and return.
    void end() { m_ends = true; }

private:
    static int on_request(sd_bus_message* message, void* self, sd_bus_error* error);
    static int on_authorise(sd_bus_message* message, void* self, sd_bus_error* error);
    static int on_withdraw(sd_bus_message* message, void* self, sd_bus_error* error);
    static int on_version(sd_bus* bus, const char* path, const char* interface, const char* property,
                          sd_bus_message* reply, void* self, sd_bus_error* error);
    static int on_protocol(sd_bus* bus, const char* path, const char* interface, const char* property,
                           sd_bus_message* reply, void* self, sd_bus_error* error);
    static int on_name_gone(sd_bus_message* message, void* self, sd_bus_error* error);
    static int on_idle(sd_event_source* source, std::uint64_t time, void* data);
    static int on_minute(sd_event_source* source, std::uint64_t time, void* data);
    static const sd_bus_vtable vtable[]; // NOLINT(modernize-avoid-c-arrays): what sd-bus takes

    [[nodiscard]] int set_up();
    int request(sd_bus_message* message);
    int refuse(sd_bus_message* message, std::string_view verb, const Failure& why);
    int quit(sd_bus_message* message);
    int execute(sd_bus_message* message, const HelperCaller& caller, HelperRequest request);
    int do_request(sd_bus_message* message, const HelperCaller& caller, HelperRequest request);
    int resume(sd_bus_message* message, const HelperCaller& caller);
    void start_again(const std::string& name, const HelperInterruptions::Units& units);
    void connection_gone(const std::string& name);
    [[nodiscard]] bool has_work() const {
        return !m_jobs.empty() || m_authorisations.is_asking() || m_callers.is_asking();
    }
    void note_activity();
    Result<> drain();

    sd_bus* m_bus;
    sd_event* m_event;
    HelperRules m_rules;
    std::string m_folder;
    Polkit m_polkit;
    Callers m_callers;
    Refusals m_refusals;
    Authorisations m_authorisations;
    Gate m_gate;
    DisplacedConfigurations m_displaced;
    std::map<std::string, std::string> m_consents; // by connection
    JobLines m_jobs;
    HelperInterruptions m_interruptions;
    std::uint64_t m_last_activity = 0; // microseconds, CLOCK_MONOTONIC
    bool m_ends = false;
    BusSlot m_names;
    EventSource m_idle;
    EventSource m_minute;
    BusSlot m_slot;
};

} // namespace tickervantage
