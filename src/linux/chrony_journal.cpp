#include "linux/chrony_journal.h"

#include "base/failure_codes.h"

#include <systemd/sd-journal.h>

#include <array>
#include <memory>

namespace tickervantage {
namespace {

struct CloseJournal {
    void operator()(sd_journal* journal) const { sd_journal_close(journal); }
};
using Journal = std::unique_ptr<sd_journal, CloseJournal>;

constexpr std::uint64_t microseconds = 1000000;
constexpr std::size_t longest_message = 4096; // bytes

// "MESSAGE=…" without its name; empty where there is no such field.
std::string field_of(sd_journal* journal, const char* name) {
    const void* data = nullptr;
    std::size_t length = 0;
    if (sd_journal_get_data(journal, name, &data, &length) < 0)
        return {};
    const std::string_view text(static_cast<const char*>(data), length);
    return std::string(text.substr(text.find('=') + 1));
}

// Debian's unit, and the one of other distributions: either of them.
int add_matches(sd_journal* journal) {
    for (const std::string_view unit : {"_SYSTEMD_UNIT=chrony.service", "_SYSTEMD_UNIT=chronyd.service"})
        if (const int result = sd_journal_add_match(journal, unit.data(), unit.size()); result < 0)
            return result;
    return 0;
}

bool read_entry(sd_journal* journal, std::uint64_t end, const std::function<void(const JournalEntry&)>& take) {
    std::uint64_t time = 0;
    if (sd_journal_get_realtime_usec(journal, &time) < 0)
        return true; // damaged: the next one may be whole
    if (time >= end)
        return false;
    const std::string writer = field_of(journal, "SYSLOG_IDENTIFIER");
    const std::string message = field_of(journal, "MESSAGE");
    sd_id128_t boot{};
    std::array<char, SD_ID128_STRING_MAX> boot_text{};
    if (sd_journal_get_monotonic_usec(journal, nullptr, &boot) >= 0)
        sd_id128_to_string(boot, boot_text.data());
    take({static_cast<double>(time) / static_cast<double>(microseconds), boot_text.data(), writer, message});
    return true;
}

} // namespace

Result<> read_chrony_journal(std::int64_t from, std::int64_t to, const std::function<void(const JournalEntry&)>& take) {
    sd_journal* opened = nullptr;
    const int error = sd_journal_open(&opened, SD_JOURNAL_LOCAL_ONLY);
    const Journal journal(opened);
    if (error < 0)
        return failed(FailureCode::journal_unreadable, {}, -error);
    (void)sd_journal_set_data_threshold(opened, longest_message);
    int result = add_matches(opened);
    if (result >= 0)
        result = sd_journal_seek_realtime_usec(opened, static_cast<std::uint64_t>(from) * microseconds);
    const auto end = static_cast<std::uint64_t>(to) * microseconds;
    while (result >= 0 && (result = sd_journal_next(opened)) > 0)
        if (!read_entry(opened, end, take))
            break;
    if (result < 0)
        return failed(FailureCode::journal_unreadable, {}, -result);
    return {};
}

} // namespace tickervantage
