#include "programs/chronyhelper/callers.h"

#include "programs/chronyhelper/trusted_files.h"

#include <charconv>
#include <utility>

namespace tickervantage {
namespace {

// When a process was started, in clock ticks; 0 when it is not there. Source: proc(5), field 22 of stat.
std::uint64_t start_of(std::int32_t process) {
    constexpr std::size_t longest = 4096;
    std::string text;
    std::string ignored;
    if (read_file("/proc/" + std::to_string(process) + "/stat", longest, text, ignored) != 0)
        return 0;
    auto at = text.rfind(')'); // the program's name may hold anything
    for (int field = 2; field < 22 && at != std::string::npos; ++field)
        at = text.find(' ', at + 1);
    std::uint64_t ticks = 0;
    if (at != std::string::npos)
        std::from_chars(text.data() + at + 1, text.data() + text.size(), ticks);
    return ticks;
}

} // namespace

Callers::Callers(sd_bus* bus, std::function<void(const std::string& name)> gone) : m_bus(bus), m_gone(std::move(gone)) {
    sd_bus_slot* slot = nullptr;
    (void)sd_bus_add_match(bus, &slot,
                           "type='signal',sender='org.freedesktop.DBus',interface='org.freedesktop.DBus',"
                           "member='NameOwnerChanged',arg2=''",
                           on_change, this); // without it tokens still fail by the process that is not there
    m_slot.reset(slot);
}

int Callers::on_change(sd_bus_message* message, void* self, sd_bus_error*) {
    const char* name = nullptr;
    if (sd_bus_message_read(message, "s", &name) < 0 || name == nullptr || *name != ':')
        return 0;
    auto* callers = static_cast<Callers*>(self);
    callers->m_known.erase(name);
    callers->m_gone(name);
    return 0;
}

std::optional<HelperCaller> Callers::find(const std::string& name) {
    auto known = m_known.find(name);
    if (known == m_known.end()) {
        sd_bus_creds* found = nullptr;
        if (sd_bus_get_name_creds(m_bus, name.c_str(), SD_BUS_CREDS_EUID | SD_BUS_CREDS_PID, &found) < 0)
            return std::nullopt;
        const BusCreds creds(found);
        HelperCaller caller;
        caller.name = name;
        uid_t user = 0;
        pid_t process = 0;
        if (sd_bus_creds_get_euid(found, &user) < 0 || sd_bus_creds_get_pid(found, &process) < 0)
            return std::nullopt;
        caller.user = user;
        caller.process = process;
        known = m_known.emplace(name, std::move(caller)).first;
    }
    auto caller = known->second;
    caller.process_start = start_of(caller.process);
    return caller;
}

} // namespace tickervantage
