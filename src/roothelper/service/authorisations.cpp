#include "roothelper/service/authorisations.h"

#include "base/failure_codes.h"
#include "roothelper/grammar/helper_names.h"
#include "roothelper/service/boot_time.h"
#include "roothelper/service/bus_messages.h"
#include "roothelper/service/journal.h"
#include "roothelper/service/trusted_files.h"

#include <sys/random.h>

namespace tickervantage {
namespace {

constexpr std::size_t file_limit = std::size_t{1} << 20U;

bool make_token(helper::Token& token) {
    return ::getrandom(token.data(), token.size(), 0) == static_cast<ssize_t>(token.size());
}

} // namespace

void Authorisations::ask(sd_bus_message* message) {
    const std::string sender = sd_bus_message_get_sender(message);
    const Kept kept(sd_bus_message_ref(message), BusUnref());
    m_parts.callers.find(sender, [this, sender, kept](const std::optional<HelperCaller>& caller) {
        if (caller)
            decide(kept, *caller);
        else
            refuse(kept, sender, FailureCode::caller_unknown);
    });
}

void Authorisations::decide(const Kept& message, const HelperCaller& caller) {
    if (const auto held = m_tokens.token_of(caller, seconds_since_boot()))
        grant(message, caller, *held);
    else if (!m_quota.may_ask(caller.user))
        refuse(message, caller.name, FailureCode::refused_too_often);
    else if (!m_asking.insert(caller.user).second)
        refuse(message, caller.name, FailureCode::asked_already);
    else
        ask_polkit(message, caller);
}

void Authorisations::ask_polkit(const Kept& message, const HelperCaller& caller) {
    m_parts.polkit.ask({.sender = caller.name,
                        .action = helper::administer_action,
                        .message = {},
                        .may_ask = sd_bus_message_get_allow_interactive_authorization(message.get()) > 0},
                       [this, message, caller](PolkitAnswer given) {
                           m_asking.erase(caller.user);
                           answer(message, caller, given);
                       });
}

void Authorisations::answer(const Kept& message, const HelperCaller& caller, PolkitAnswer answer) {
    helper::Token token{};
    if (answer == PolkitAnswer::yes && make_token(token))
        return grant(message, caller, token);
    m_quota.note_refusal(caller.user);
    refuse(message, caller.name,
           answer == PolkitAnswer::unreachable ? FailureCode::polkit_silent : FailureCode::authorisation_refused);
}

void Authorisations::grant(const Kept& message, const HelperCaller& caller, const helper::Token& token) {
    m_tokens.put(caller, token, seconds_since_boot());
    keep(); // at once: a helper that is killed must not cost a password
    journal_decision(Decision::done, caller, "authorise", "");
    sd_bus_message* made = nullptr;
    if (sd_bus_message_new_method_return(message.get(), &made) < 0)
        return;
    const BusMessage reply(made);
    if (sd_bus_message_append_array(made, 'y', token.data(), token.size()) >= 0)
        (void)sd_bus_send(m_parts.bus, made, nullptr); // a caller that has gone: no harm
}

void Authorisations::refuse(const Kept& message, const std::string& sender, FailureCode why) {
    (void)send_error(message.get(), {.code = why}); // as above
    m_parts.refusals.add(sender, "authorise", {.code = why});
}

std::optional<HelperCaller> Authorisations::holder(const std::string& name, std::string_view bytes) {
    auto caller = m_tokens.caller_named(name);
    if (!caller)
        return std::nullopt;
    caller->process_start = start_of_process(caller->process);
    return m_tokens.accepts(*caller, bytes, seconds_since_boot()) ? caller : std::nullopt;
}

bool Authorisations::drop(const std::string& name) {
    if (!m_tokens.drop(name))
        return false;
    keep();
    return true;
}

void Authorisations::restore() {
    m_tokens.read(bytes_of_roots_file(m_file, file_limit));
    for (const auto& caller : m_tokens.callers())
        if (m_parts.callers.find_now(caller.name) != caller)
            (void)m_tokens.drop(caller.name);
}

void Authorisations::keep() const {
    if (write_new_file(m_file, m_tokens.written(), 0600) != 0)
        journal_note("The authorisations could not be kept: passwords will be asked for again.");
}

} // namespace tickervantage
