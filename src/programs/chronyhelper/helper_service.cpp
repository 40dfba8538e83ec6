#include "programs/chronyhelper/helper_service.h"

#include "platform/helper_names.h"
#include "programs/chronyhelper/bus_messages.h"
#include "programs/chronyhelper/journal.h"
#include "programs/chronyhelper/trusted_files.h"

#include <sys/random.h>
#include <systemd/sd-daemon.h>

#include <ctime>
#include <utility>

namespace tickervantage {
namespace {

constexpr const char* token_file = "/tokens";
constexpr std::size_t token_file_limit = std::size_t{1} << 20U;

std::int64_t seconds_since_boot() {
    timespec now{};
    ::clock_gettime(CLOCK_BOOTTIME, &now);
    return now.tv_sec;
}

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

bool make_token(helper::Token& token) {
    return ::getrandom(token.data(), token.size(), 0) == static_cast<ssize_t>(token.size());
}

} // namespace

const sd_bus_vtable HelperService::vtable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD(helper::request_method, "a{sv}", "a{sv}", HelperService::on_request, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD(helper::authorise_method, "", "ay", HelperService::on_authorise, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD(helper::withdraw_method, "", "", HelperService::on_withdraw, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_PROPERTY(helper::version_property, "s", HelperService::on_version, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY(helper::protocol_property, "u", HelperService::on_protocol, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_VTABLE_END};

HelperService::HelperService(sd_bus* bus, sd_event* event, HelperRules rules, std::string folder)
    : m_bus(bus), m_event(event), m_rules(std::move(rules)), m_folder(std::move(folder)), m_polkit(bus),
      m_callers(bus, [this](const std::string& name) { connection_gone(name); }),
      m_jobs({event, m_polkit, m_rules, m_folder, m_consents}) {}

int HelperService::run(std::string& sentence) {
    restore_tokens();
    sd_bus_slot* slot = nullptr;
    sd_event_source* idle = nullptr;
    if (sd_bus_add_object_vtable(m_bus, &slot, helper::object_path, helper::interface_name, vtable, this) < 0 ||
        sd_event_add_time_relative(m_event, &idle, CLOCK_MONOTONIC, microseconds(m_rules.idle), 0, on_idle, this) < 0) {
        sentence = "The helper cannot set itself up.";
        return -1;
    }
    m_slot.reset(slot);
    m_idle.reset(idle);
    if (sd_bus_request_name(m_bus, helper::bus_name, 0) < 0) {
        sentence = "The helper cannot take its name on the bus: another one runs, or its bus policy is not installed.";
        return -1;
    }
    (void)sd_notify(0, "READY=1");
    while (!m_ends)
        if (sd_event_run(m_event, UINT64_MAX) < 0) {
            sentence = "The helper lost the bus.";
            return -1;
        }
    return drain(sentence);
}

// From the moment the name is given back the bus starts another helper for new messages; those that it had sent us
// before still have to be answered here.
int HelperService::drain(std::string& sentence) {
    if (sd_bus_release_name(m_bus, helper::bus_name) < 0) {
        sentence = "The helper cannot give its name back.";
        return -1;
    }
    (void)sd_notify(0, "STOPPING=1");
    while (sd_bus_process(m_bus, nullptr) > 0 || has_work())
        if (has_work() && sd_event_run(m_event, UINT64_MAX) < 0)
            break;
    keep_tokens();
    return 0;
}

int HelperService::on_idle(sd_event_source*, std::uint64_t, void* data) {
    auto* self = static_cast<HelperService*>(data);
    if (self->has_work() || !self->m_interruptions.empty())
        self->note_activity();
    else
        self->m_ends = true;
    return 0;
}

void HelperService::note_activity() {
    if (!m_idle)
        return;
    (void)sd_event_source_set_time_relative(m_idle.get(), microseconds(m_rules.idle));
    (void)sd_event_source_set_enabled(m_idle.get(), SD_EVENT_ONESHOT);
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
    return static_cast<HelperService*>(self)->request(message);
}

int HelperService::on_authorise(sd_bus_message* message, void* self, sd_bus_error*) {
    return static_cast<HelperService*>(self)->authorise(message);
}

// Each dialog that is open for this connection ends as a refusal.
int HelperService::on_withdraw(sd_bus_message* message, void* self, sd_bus_error*) {
    auto* service = static_cast<HelperService*>(self);
    service->note_activity();
    service->m_polkit.cancel(sd_bus_message_get_sender(message));
    return sd_bus_reply_method_return(message, "");
}

int HelperService::refuse(sd_bus_message* message, const HelperCaller& caller, std::string_view verb,
                          const std::string& sentence) {
    const int sent = send_reply(message, sentence, false); // first: the journal may be slow
    journal_decision(Decision::refused, caller, verb, sentence);
    return sent;
}

int HelperService::request(sd_bus_message* message) {
    note_activity();
    const auto caller = m_callers.find(sd_bus_message_get_sender(message));
    if (!caller)
        return -ENOTCONN; // nobody is there to be answered
    RequestMessage words;
    if (!read_request(message, words))
        return refuse(message, *caller, "unknown", "The message holds no request.");
    HelperRequest parsed;
    std::string sentence;
    const bool is_authorised = words.auth && m_tokens.accepts(*caller, *words.auth, seconds_since_boot());
    if (!is_authorised && words.request != "QUIT")
        return refuse(message, *caller, "unknown",
                      words.auth ? helper::lapsed_reply : "This needs an administrator's authorisation.");
    if (parse_helper_request(words.request, m_rules, parsed, sentence) != 0)
        return refuse(message, *caller, "unknown", sentence);
    switch (parsed.verb) {
    case HelperVerb::quit:
        return quit(message, *caller);
    case HelperVerb::guard_chrony:
        m_interruptions.guard(caller->name);
        return send_reply(message, "200 OK", true);
    case HelperVerb::resume_chrony:
        return resume(message, *caller);
    default:
        return execute(message, *caller, std::move(parsed));
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
    order.done = [caller](Decision decision, const std::string& text) {
        journal_decision(decision, caller, helper_verb_name(HelperVerb::resume_chrony), text);
    };
    std::string sentence;
    if (m_jobs.add(std::move(order), sentence) != 0)
        journal_note(sentence);
}

// Ends the caller's authorisation, and the helper where no other caller is left.
int HelperService::quit(sd_bus_message* message, const HelperCaller& caller) {
    journal_decision(Decision::done, caller, "quit", "");
    const bool was_authorised = m_tokens.token_of(caller, seconds_since_boot()).has_value();
    m_interruptions.forget(caller.name); // it ends its work of its own accord
    connection_gone(caller.name);
    const int sent = send_reply(message, "quit", true);
    if (was_authorised && m_tokens.empty() && !has_work())
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
                  kept = std::shared_ptr<sd_bus_message>(sd_bus_message_ref(message), BusUnref())](
                     Decision decision, const std::string& text) {
        const bool is_done = decision == Decision::done;
        (void)send_reply(kept.get(), text, is_done); // a caller that has gone does not need it
        journal_decision(decision, caller, verb, decision == Decision::refused ? text : std::string());
        start_again(caller.name, m_interruptions.end(caller.name, asked, is_done, text));
        note_activity();
    };
    std::string sentence;
    m_interruptions.begin(caller.name); // first: it may be over at once
    if (m_jobs.add(std::move(order), sentence) == 0)
        return 1;
    start_again(caller.name, m_interruptions.end(caller.name, {}, false, {}));
    return refuse(message, caller, verb, sentence);
}

int HelperService::authorise(sd_bus_message* message) {
    note_activity();
    const std::string sender = sd_bus_message_get_sender(message);
    const auto caller = m_callers.find(sender);
    if (!caller)
        return -ENOTCONN;
    if (const auto held = m_tokens.token_of(*caller, seconds_since_boot())) {
        answer_authorise(message, sender, PolkitAnswer::yes);
        return 1;
    }
    if (!m_asking.insert(caller->user).second) {
        journal_decision(Decision::refused, *caller, "authorise", "another dialog is open");
        return sd_bus_reply_method_errorf(message, helper::refused_error,
                                          "This user is being asked for a password already.");
    }
    m_polkit.ask(
        {.sender = sender,
         .action = helper::administer_action,
         .message = {},
         .may_ask = sd_bus_message_get_allow_interactive_authorization(message) > 0},
        [this, sender, user = caller->user,
         kept = std::shared_ptr<sd_bus_message>(sd_bus_message_ref(message), BusUnref())](PolkitAnswer answer) {
            m_asking.erase(user);
            note_activity();
            answer_authorise(kept.get(), sender, answer);
        });
    return 1;
}

void HelperService::answer_authorise(sd_bus_message* message, const std::string& sender, PolkitAnswer answer) {
    const auto caller = m_callers.find(sender);
    if (!caller)
        return;
    const auto held = m_tokens.token_of(*caller, seconds_since_boot());
    helper::Token token = held.value_or(helper::Token{});
    if (answer != PolkitAnswer::yes || (!held && !make_token(token))) {
        const char* why = answer == PolkitAnswer::unreachable ? "The authorisation service (polkit) does not answer."
                                                              : "The authorisation was not given.";
        journal_decision(Decision::refused, *caller, "authorise", why);
        (void)sd_bus_reply_method_errorf(message, helper::refused_error, "%s", why); // a caller that has gone: no harm
        return;
    }
    m_tokens.put(*caller, token, seconds_since_boot());
    keep_tokens(); // at once: a helper that is killed must not cost a password
    journal_decision(Decision::done, *caller, "authorise", "");
    sd_bus_message* made = nullptr;
    if (sd_bus_message_new_method_return(message, &made) < 0)
        return;
    const BusMessage reply(made);
    if (sd_bus_message_append_array(made, 'y', token.data(), token.size()) >= 0)
        (void)sd_bus_send(m_bus, made, nullptr); // as above
}

void HelperService::connection_gone(const std::string& name) {
    if (m_tokens.drop(name))
        keep_tokens();
    m_polkit.cancel(name);
    m_consents.erase(name);
    start_again(name, m_interruptions.gone(name));
}

// The tokens of an earlier run, as far as their owners are still there: they were not looked after meanwhile.
void HelperService::restore_tokens() {
    std::string text;
    std::string sentence;
    if (read_roots_file(m_folder + token_file, token_file_limit, text, sentence) != 0)
        return;
    m_tokens.read(text);
    for (const auto& caller : m_tokens.callers())
        if (m_callers.find(caller.name) != caller)
            (void)m_tokens.drop(caller.name);
}

void HelperService::keep_tokens() const {
    if (write_new_file(m_folder + token_file, m_tokens.written(), 0600) != 0)
        journal_note("The authorisations could not be kept: passwords will be asked for again.");
}

} // namespace tickervantage
