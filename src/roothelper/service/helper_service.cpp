#include "roothelper/service/helper_service.h"

#include "base/failure_codes.h"
#include "roothelper/grammar/helper_names.h"
#include "roothelper/service/bus_messages.h"
#include "roothelper/service/caller_files.h"
#include "roothelper/service/journal.h"

#include <systemd/sd-daemon.h>

#include <utility>

namespace tickervantage {
namespace {

constexpr const char* token_file = "/tokens";
constexpr std::chrono::seconds minute{60};

std::uint64_t microseconds(std::chrono::seconds time) {
    return static_cast<std::uint64_t>(std::chrono::microseconds(time).count());
}

HelperRequest start_request(const HelperInterruptions::Units& units) {
    HelperRequest request;
    request.verb = HelperVerb::service_manager;
    request.argv = {"/bin/systemctl", "start"};
    request.argv.insert(request.argv.end(), units.begin(), units.end());
    return request;
}

// Calls again after some time.
void repeat(sd_event_source* source, std::uint64_t time) {
    (void)sd_event_source_set_time_relative(source, time);
    (void)sd_event_source_set_enabled(source, SD_EVENT_ONESHOT);
}

} // namespace

// NOLINTNEXTLINE(modernize-avoid-c-arrays): what sd-bus takes
const sd_bus_vtable HelperService::vtable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD(helper::request_method, "a{sv}", "a{sv}", HelperService::on_request, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD(helper::authorise_method, "", "ay", HelperService::on_authorise, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD(helper::withdraw_method, "", "", HelperService::on_withdraw, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_PROPERTY(helper::version_property, "s", HelperService::on_version, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY(helper::protocol_property, "u", HelperService::on_protocol, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_VTABLE_END};

HelperService::HelperService(sd_bus* bus, sd_event* event, HelperRules rules, std::string folder)
    : m_bus(bus), m_event(event), m_rules(std::move(rules)), m_folder(std::move(folder)), m_polkit(bus), m_callers(bus),
      m_refusals(m_callers), m_authorisations({bus, m_polkit, m_callers, m_refusals}, m_folder + token_file),
      m_gate(bus, m_authorisations), m_jobs({event, m_polkit, m_displaced, m_rules, m_folder, m_consents}) {}

int HelperService::set_up() {
    sd_bus_slot* slot = nullptr;
    sd_event_source* idle = nullptr;
    sd_event_source* timer = nullptr;
    if (sd_bus_add_object_vtable(m_bus, &slot, helper::object_path, helper::interface_name, vtable, this) < 0)
        return -1;
    m_slot.reset(slot);
    slot = nullptr;
    (void)sd_bus_add_match(m_bus, &slot,
                           "type='signal',sender='org.freedesktop.DBus',interface='org.freedesktop.DBus',"
                           "member='NameOwnerChanged',arg2=''",
                           on_name_gone, this); // without it tokens still fail by the process that is not there
    m_names.reset(slot);
    if (sd_event_add_time_relative(m_event, &idle, CLOCK_MONOTONIC, microseconds(m_rules.idle), 0, on_idle, this) < 0)
        return -1;
    m_idle.reset(idle);
    if (sd_event_add_time_relative(m_event, &timer, CLOCK_MONOTONIC, microseconds(minute), 0, on_minute, this) < 0)
        return -1;
    m_minute.reset(timer);
    return 0;
}

Result<> HelperService::run() {
    if (set_up() != 0)
        return failed(FailureCode::helper_not_set_up);
    m_authorisations.restore();
    if (sd_bus_request_name(m_bus, helper::bus_name, 0) < 0)
        return failed(FailureCode::helper_without_name);
    remove_staged_files(m_folder); // of a helper that was killed: now that the name is ours, none is at work
    (void)sd_notify(0, "READY=1");
    while (!m_ends)
        if (sd_event_run(m_event, UINT64_MAX) < 0)
            return failed(FailureCode::helper_lost_bus);
    return drain();
}

// From the moment the name is given back the bus starts another helper for new messages; those that it had sent us
// before still have to be answered here.
Result<> HelperService::drain() {
    if (sd_bus_release_name(m_bus, helper::bus_name) < 0)
        return failed(FailureCode::helper_keeps_name);
    (void)sd_notify(0, "STOPPING=1");
    while (sd_bus_process(m_bus, nullptr) > 0 || has_work())
        if (has_work() && sd_event_run(m_event, UINT64_MAX) < 0)
            break;
    m_refusals.tell();
    m_authorisations.keep();
    return {};
}

int HelperService::on_name_gone(sd_bus_message* message, void* self, sd_bus_error*) {
    const char* name = nullptr;
    if (sd_bus_message_read(message, "s", &name) < 0 || name == nullptr || *name != ':')
        return 0;
    auto* service = static_cast<HelperService*>(self);
    service->m_callers.forget(name);
    service->connection_gone(name);
    return 0;
}

// The time of the last message is compared only here: moving a timer for each would cost more than its answer.
int HelperService::on_idle(sd_event_source* source, std::uint64_t, void* data) {
    auto* self = static_cast<HelperService*>(data);
    if (self->has_work() || !self->m_interruptions.empty())
        self->note_activity();
    std::uint64_t now = 0;
    (void)sd_event_now(self->m_event, CLOCK_MONOTONIC, &now); // a loop that runs knows its time
    const auto patience = microseconds(self->m_rules.idle);
    const auto quiet = now - self->m_last_activity;
    if (quiet >= patience)
        self->m_ends = true;
    else
        repeat(source, patience - quiet);
    return 0;
}

int HelperService::on_minute(sd_event_source* source, std::uint64_t, void* data) {
    auto* self = static_cast<HelperService*>(data);
    self->m_refusals.tell();
    self->m_authorisations.new_minute();
    self->m_gate.new_minute();
    repeat(source, microseconds(minute));
    return 0;
}

void HelperService::note_activity() {
    (void)sd_event_now(m_event, CLOCK_MONOTONIC, &m_last_activity); // as above
}

int HelperService::on_version(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void*,
                              sd_bus_error*) {
    return sd_bus_message_append(reply, "s", TICKERVANTAGE_VERSION);
}

int HelperService::on_protocol(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void*,
                               sd_bus_error*) {
    return sd_bus_message_append(reply, "u", helper::protocol);
}

int HelperService::on_request(sd_bus_message* message, void* self, sd_bus_error*) {
    static_cast<HelperService*>(self)->note_activity();
    return static_cast<HelperService*>(self)->request(message);
}

int HelperService::on_authorise(sd_bus_message* message, void* self, sd_bus_error*) {
    static_cast<HelperService*>(self)->note_activity();
    static_cast<HelperService*>(self)->m_authorisations.ask(message);
    return 1;
}

// Each dialog that is open for this connection ends as a refusal.
int HelperService::on_withdraw(sd_bus_message* message, void* self, sd_bus_error*) {
    auto* service = static_cast<HelperService*>(self);
    const auto* sender = sd_bus_message_get_sender(message);
    service->note_activity();
    service->m_callers.cancel(sender);
    service->m_polkit.cancel(sender);
    return sd_bus_reply_method_return(message, "");
}

int HelperService::refuse(sd_bus_message* message, std::string_view verb, const Failure& why) {
    const int sent = send_reply(message, english(why), false, why); // first: the journal may be slow
    m_refusals.add(sd_bus_message_get_sender(message), verb, why);
    return sent;
}

int HelperService::request(sd_bus_message* message) {
    RequestMessage words;
    if (!read_request(message, words))
        return refuse(message, "unknown", {.code = FailureCode::request_missing});
    if (words.request == "QUIT")
        return quit(message);
    if (!words.auth)
        return refuse(message, "unknown", {.code = FailureCode::authorisation_needed});
    const auto caller = m_authorisations.holder(sd_bus_message_get_sender(message), *words.auth);
    if (!caller)
        return refuse(message, "unknown", {.code = FailureCode::authorisation_lapsed});
    auto parsed = parse_helper_request(words.request, m_rules);
    return parsed ? do_request(message, *caller, *std::move(parsed)) : refuse(message, "unknown", parsed.error());
}

int HelperService::do_request(sd_bus_message* message, const HelperCaller& caller, HelperRequest request) {
    switch (request.verb) {
    case HelperVerb::guard_chrony:
        m_interruptions.guard(caller.name);
        return send_reply(message, "200 OK", true);
    case HelperVerb::resume_chrony:
        return resume(message, caller);
    default:
        return execute(message, caller, std::move(request));
    }
}

int HelperService::resume(sd_bus_message* message, const HelperCaller& caller) {
    const auto units = m_interruptions.resume(caller.name);
    return units.empty() ? send_reply(message, "200 OK", true) : execute(message, caller, start_request(units));
}

// For a caller that went away in the middle, who hears nothing of it any more.
void HelperService::start_again(const std::string& name, const HelperInterruptions::Units& units) {
    if (units.empty())
        return;
    HelperCaller caller;
    caller.name = name;
    JobOrder order{.request = start_request(units), .caller = caller, .may_ask = false, .done = {}};
    order.done = [caller](const JobEnd& end) {
        journal_decision(end.decision, caller, helper_verb_name(HelperVerb::resume_chrony), end.text);
    };
    if (const auto added = m_jobs.add(std::move(order)); !added)
        journal_note(english(added.error()));
}

// Ends the caller's authorisation, and the helper where no other caller is left.
int HelperService::quit(sd_bus_message* message) {
    const std::string sender = sd_bus_message_get_sender(message);
    const bool was_authorised = m_authorisations.drop(sender);
    m_interruptions.forget(sender); // it ends its work of its own accord
    connection_gone(sender);
    const int sent = send_reply(message, "quit", true);
    if (!was_authorised)
        return sent;
    if (const auto caller = m_callers.known(sender))
        journal_decision(Decision::done, *caller, "quit", "");
    if (m_authorisations.empty() && !has_work())
        m_ends = true;
    return sent;
}

int HelperService::execute(sd_bus_message* message, const HelperCaller& caller, HelperRequest request) {
    const auto verb = helper_verb_name(request.verb);
    JobOrder order{.request = std::move(request),
                   .caller = caller,
                   .may_ask = sd_bus_message_get_allow_interactive_authorization(message) > 0,
                   .done = {}};
    order.done = [this, caller, verb, asked = order.request,
                  kept = std::shared_ptr<sd_bus_message>(sd_bus_message_ref(message), BusUnref())](const JobEnd& end) {
        const bool is_done = end.decision == Decision::done;
        (void)send_reply(kept.get(), end.text, is_done, end.failure); // a caller that has gone does not need it
        journal_decision(end.decision, caller, verb, end.decision == Decision::refused ? end.text : std::string());
        start_again(caller.name, m_interruptions.end(caller.name, asked, is_done, end.text));
        note_activity();
    };
    m_interruptions.begin(caller.name); // first: it may be over at once
    const auto added = m_jobs.add(std::move(order));
    if (added)
        return 1;
    start_again(caller.name, m_interruptions.end(caller.name, {}, false, {}));
    return refuse(message, verb, added.error());
}

void HelperService::connection_gone(const std::string& name) {
    (void)m_authorisations.drop(name); // most never had one
    m_displaced.drop(name);
    m_gate.forget(name);
    m_polkit.cancel(name);
    m_consents.erase(name);
    start_again(name, m_interruptions.gone(name));
}

} // namespace tickervantage
