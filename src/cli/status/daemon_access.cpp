#include "cli/status/daemon_access.h"

#include "cli/terminal.h"
#include "linux/xdg_paths.h"
#include "settings/settings_catalogue.h"

namespace tickervantage {

// Only a job asks for rights, and it wants to hear why there are none.
DaemonAccess::DaemonAccess()
    : m_channel(m_execute, process_paths().bundle_program("chronyhelper")),
      m_actions(m_channel, {.logger = nullptr, .problem = [](PrivilegedProblem, const Failure& why) {
                                complain(english(why));
                            }}) {}

Result<> DaemonAccess::start_demonstration(const Paths& paths) {
    auto started = m_demonstration.start(paths.bundle_program("chronyd"), paths.temporary + "demonstration");
    host = m_demonstration.socket();
    return started;
}

Result<> DaemonAccess::wait_for_demonstration(const Paths& paths) {
    constexpr std::chrono::seconds limit{15};
    return m_demonstration.wait_until_synchronised(m_execute, paths.bundle_program("chronyc"), limit);
}

Runchronyc DaemonAccess::runner(const DefaultSettings& settings, const ChronyPrograms& programs, Execute& execute) {
    std::vector<std::string> extra;
    if (!host.empty())
        extra = {"-h", host};
    return {
        execute, m_actions, programs, !load(settings, settings::ip_address), load(settings, settings::original_name),
        extra};
}

} // namespace tickervantage
