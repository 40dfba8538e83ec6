#include "programs/chronyhelper/journal.h"

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

} // namespace

void journal_decision(Decision decision, const HelperCaller& caller, std::string_view verb,
                      const std::string& sentence) {
    const std::string name(verb);
    (void)sd_journal_send("MESSAGE=%s for user %u: %s%s%s", name.c_str(), caller.user, word(decision),
                          sentence.empty() ? "" : ": ", sentence.c_str(), "PRIORITY=%i",
                          decision == Decision::done ? LOG_INFO : LOG_NOTICE, "RESULT=%s", word(decision),
                          "CALLER_UID=%u", caller.user, "VERB=%s", name.c_str(), "SENDER=%s", caller.name.c_str(),
                          nullptr); // a journal that takes nothing must not stop the work
}

void journal_note(const std::string& sentence) {
    (void)sd_journal_send("MESSAGE=%s", sentence.c_str(), "PRIORITY=%i", LOG_NOTICE, nullptr);
}

} // namespace tickervantage
