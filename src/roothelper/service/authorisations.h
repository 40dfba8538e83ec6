// Who has been authorised by an administrator: asks polkit, gives out tokens, remembers them on the disk.
//
// A message is judged by the token that its connection holds, without asking anybody; only Authorise has the bus asked
// who is there. One question a user is open at a time.
#pragma once

#include "roothelper/grammar/helper_quota.h"
#include "roothelper/grammar/helper_tokens.h"
#include "roothelper/service/callers.h"
#include "roothelper/service/polkit.h"
#include "roothelper/service/refusals.h"

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace tickervantage {

struct AuthorisationParts {
    sd_bus* bus;
    Polkit& polkit;
    Callers& callers;
    Refusals& refusals;
};

class Authorisations {
public:
    // The parts outlive it. `file` is one that only root can read.
    Authorisations(const AuthorisationParts& parts, std::string file) : m_parts(parts), m_file(std::move(file)) {}

    // Answers Authorise, now or when a person has.
    void ask(sd_bus_message* message);

    // Who the connection is, when these are the bytes that were given to it.
    [[nodiscard]] std::optional<HelperCaller> holder(const std::string& name, std::string_view bytes);

    // Whether the connection has one, good or lapsed.
    [[nodiscard]] bool knows(const std::string& name) const { return m_tokens.caller_named(name).has_value(); }

    // The connection's token is worth nothing any more. Whether there was one.
    bool drop(const std::string& name);

    // The tokens of an earlier run, as far as their owners are still there: they were not looked after meanwhile. Waits
    // for the bus.
    void restore();
    void keep() const;

    void new_minute() { m_quota.new_minute(); }
    [[nodiscard]] bool empty() const { return m_tokens.empty(); }
    [[nodiscard]] bool is_asking() const { return !m_asking.empty(); }

private:
    using Kept = std::shared_ptr<sd_bus_message>;

    void decide(const Kept& message, const HelperCaller& caller);
    void ask_polkit(const Kept& message, const HelperCaller& caller);
    void answer(const Kept& message, const HelperCaller& caller, PolkitAnswer answer);
    void grant(const Kept& message, const HelperCaller& caller, const helper::Token& token);
    void refuse(const Kept& message, const std::string& sender, FailureCode why);

    AuthorisationParts m_parts;
    std::string m_file;
    HelperTokens m_tokens;
    AskQuota m_quota;
    std::set<std::uint32_t> m_asking; // users who are looking at a password dialog
};

} // namespace tickervantage
