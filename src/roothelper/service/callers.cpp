#include "roothelper/service/callers.h"

#include "roothelper/service/trusted_files.h"

#include <charconv>
#include <string_view>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::size_t most_questions = 256;
constexpr std::size_t most_waiting = 16; // for one answer

constexpr const char* daemon_name = "org.freedesktop.DBus";
constexpr const char* daemon_path = "/org/freedesktop/DBus";
constexpr const char* credentials_method = "GetConnectionCredentials"; // "s" in, "a{sv}" out

bool read_entry(sd_bus_message* answer, HelperCaller& caller) {
    const char* key = nullptr;
    if (sd_bus_message_read(answer, "s", &key) < 0)
        return false;
    std::uint32_t value = 0;
    const std::string_view name = key;
    if (name != "UnixUserID" && name != "ProcessID")
        return sd_bus_message_skip(answer, "v") >= 0;
    if (sd_bus_message_read(answer, "v", "u", &value) < 0)
        return false;
    if (name == "UnixUserID")
        caller.user = value;
    else
        caller.process = static_cast<std::int32_t>(value);
    return true;
}

bool read_credentials(sd_bus_message* answer, HelperCaller& caller) {
    caller.user = unknown_user;
    if (sd_bus_message_is_method_error(answer, nullptr) != 0 || sd_bus_message_enter_container(answer, 'a', "{sv}") < 0)
        return false;
    while (sd_bus_message_enter_container(answer, 'e', "sv") > 0)
        if (!read_entry(answer, caller) || sd_bus_message_exit_container(answer) < 0)
            return false;
    return caller.user != unknown_user && caller.process > 0;
}

} // namespace

// Source: proc(5), field 22 of stat.
std::uint64_t start_of_process(std::int32_t process) {
    constexpr std::size_t longest = 4096;
    const auto text =
        read_file("/proc/" + std::to_string(process) + "/stat", longest).value_or(FileBytes()).value_or("");
    auto at = text.rfind(')'); // the program's name may hold anything
    for (int field = 2; field < 22 && at != std::string::npos; ++field)
        at = text.find(' ', at + 1);
    std::uint64_t ticks = 0;
    if (at != std::string::npos)
        std::from_chars(text.data() + at + 1, text.data() + text.size(), ticks);
    return ticks;
}

Callers::~Callers() = default;

void Callers::forget(const std::string& name) {
    m_known.erase(name);
    cancel(name);
}

std::optional<HelperCaller> Callers::known(const std::string& name) const {
    const auto found = m_known.find(name);
    if (found == m_known.end())
        return std::nullopt;
    auto caller = found->second;
    caller.process_start = start_of_process(caller.process);
    return caller;
}

void Callers::find(const std::string& name, const Done& done) {
    if (const auto caller = known(name); caller || !ask(name, done))
        done(caller);
}

bool Callers::ask(const std::string& name, const Done& done) {
    auto& question = m_questions[name];
    if (!question) {
        question = std::make_unique<Question>(Question{this, name, {}, nullptr});
        sd_bus_slot* slot = nullptr;
        if (m_questions.size() > most_questions ||
            sd_bus_call_method_async(m_bus, &slot, daemon_name, daemon_path, daemon_name, credentials_method, on_answer,
                                     question.get(), "s", name.c_str()) < 0) {
            m_questions.erase(name);
            return false;
        }
        question->slot.reset(slot);
    }
    if (question->waiting.size() >= most_waiting)
        return false;
    question->waiting.push_back(done);
    return true;
}

int Callers::on_answer(sd_bus_message* answer, void* data, sd_bus_error*) {
    auto* asked = static_cast<Question*>(data);
    auto* callers = asked->owner;
    const auto question = std::move(callers->m_questions.extract(asked->name).mapped());
    const auto caller = callers->keep(question->name, answer);
    for (const auto& done : question->waiting)
        done(caller);
    return 0;
}

std::optional<HelperCaller> Callers::keep(const std::string& name, sd_bus_message* answer) {
    HelperCaller caller;
    caller.name = name;
    if (!read_credentials(answer, caller))
        return std::nullopt;
    m_known.insert_or_assign(name, std::move(caller));
    return known(name);
}

void Callers::cancel(const std::string& name) {
    const auto node = m_questions.extract(name);
    if (!node.empty())
        for (const auto& done : node.mapped()->waiting)
            done(std::nullopt);
}

std::optional<HelperCaller> Callers::find_now(const std::string& name) {
    sd_bus_message* answer = nullptr;
    if (sd_bus_call_method(m_bus, daemon_name, daemon_path, daemon_name, credentials_method, nullptr, &answer, "s",
                           name.c_str()) < 0)
        return std::nullopt;
    const BusMessage owner(answer);
    return keep(name, answer);
}

} // namespace tickervantage
