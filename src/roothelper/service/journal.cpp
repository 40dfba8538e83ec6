#include "roothelper/service/journal.h"

#include <syslog.h>
#include <systemd/sd-journal.h>

namespace tickervantage {
namespace {

const char* word(Decision decision) {
    switch (decision) {
    case Decision::done:
        return "done";
    case Decision::refused:
        return "refused";
    case Decision::failed:
        return "failed";
    }
    return "";
}

std::string user_of(const HelperCaller& caller) {
    return caller.user == unknown_user ? "an unknown user" : "user " + std::to_string(caller.user);
}

// A journal that takes nothing must not stop the work.
void send(const std::string& sentence, Decision decision, const HelperCaller& caller, const std::string& field) {
    const auto user = caller.user == unknown_user ? std::string() : std::to_string(caller.user);
    (void)sd_journal_send(
        "MESSAGE=%s", sentence.c_str(), "PRIORITY=%i", decision == Decision::done ? LOG_INFO : LOG_NOTICE, "RESULT=%s",
        word(decision), "CALLER_UID=%s", user.c_str(), "SENDER=%s", caller.name.c_str(), "%s", field.c_str(), nullptr);
}

} // namespace

void journal_decision(Decision decision, const HelperCaller& caller, std::string_view verb,
                      const std::string& sentence) {
    const std::string name(verb);
    send(name + " for " + user_of(caller) + ": " + word(decision) + (sentence.empty() ? "" : ": " + sentence), decision,
         caller, "VERB=" + name);
}

void journal_more_refusals(const HelperCaller& caller, std::uint64_t count) {
    const auto number = std::to_string(count);
    send(number + " more refusals for " + user_of(caller) + " in a minute", Decision::refused, caller,
         "COUNT=" + number);
}

void journal_note(const std::string& sentence) {
    (void)sd_journal_send("MESSAGE=%s", sentence.c_str(), "PRIORITY=%i", LOG_NOTICE, nullptr);
}

} // namespace tickervantage
