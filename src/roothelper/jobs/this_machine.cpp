#include "roothelper/jobs/this_machine.h"

#include "linux/posix_user_files.h"
#include "linux/small_file.h"
#include "linux/user_name.h"
#include "roothelper/jobs/daemon_watch.h"

#include <chrono>
#include <filesystem>
#include <system_error>
#include <thread>
#include <utility>

namespace tickervantage {

ThisMachine::ThisMachine(Execute& execute, Paths paths, std::string search_path, ServiceForm form)
    : m_execute(execute), m_paths(std::move(paths)), m_search_path(std::move(search_path)), m_form(form) {}

bool ThisMachine::file_exists(const std::string& path) const {
    std::error_code ignored; // what cannot be looked at counts as missing
    return std::filesystem::exists(path, ignored);
}

std::optional<std::string> ThisMachine::read_file(const std::string& path) const {
    constexpr std::size_t largest = 1U << 20U; // bytes
    FileReading file = read_small_file(path, largest);
    return file.outcome == FileReading::Outcome::read ? std::optional(std::move(file.bytes)) : std::nullopt;
}

std::vector<std::string> ThisMachine::file_names(const std::string& folder) const {
    std::vector<std::string> names;
    std::error_code error; // a folder that cannot be read holds nothing for us
    for (std::filesystem::directory_iterator file(folder, error), end; !error && file != end; file.increment(error))
        names.push_back(file->path().filename().string());
    return names;
}

std::string ThisMachine::user_name(std::uint32_t user) const {
    return tickervantage::user_name(user);
}

// The bundle's chronyd comes last: it is the one that no security policy confines.
ConfigError ThisMachine::check_syntax(const std::string& text) const {
    const auto chronyds = [this] {
        auto found = executables("chronyd", m_search_path);
        found.push_back(m_paths.bundle_program("chronyd"));
        return found;
    };
    PosixFiles files;
    return checkSyntax({.execute = m_execute, .chronyds = chronyds, .files = files, .temporary = m_paths.temporary},
                       text);
}

std::string ThisMachine::find_chronywake() const {
    const auto found = executables("chronywake", m_search_path);
    return found.empty() ? std::string() : found.front();
}

bool ThisMachine::daemon_survives(const std::string& unit) const {
    return DaemonWatch{m_execute, *this, m_form}.daemon_survives(unit);
}

std::optional<StartedDaemon> ThisMachine::started_daemon(const std::string& unit) const {
    return StartedDaemonLook{m_execute, *this}.started_daemon(unit);
}

bool ThisMachine::filters_calls() const {
    const auto said = m_execute.run({.program = m_paths.bundle_program("chronyd"), .arguments = {"-v"}});
    return said.output.find("+SCFILTER") != std::string::npos;
}

Result<> ThisMachine::replace_file(const std::string& path, std::string_view bytes) {
    return replace_small_file(path, bytes);
}

void ThisMachine::pause(int seconds) const {
    std::this_thread::sleep_for(std::chrono::seconds(seconds));
}

} // namespace tickervantage
