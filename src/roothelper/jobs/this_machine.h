// The machine that the program runs on, for its jobs.
#pragma once

#include "base/execute.h"
#include "base/paths.h"
#include "chrony/services/service_definitions.h"
#include "roothelper/jobs/job_machine.h"

namespace tickervantage {

class ThisMachine : public JobMachine {
public:
    // The search path is that of programs, "a:b". The execute outlives the machine.
    ThisMachine(Execute& execute, Paths paths, std::string search_path, ServiceForm form = native_service_form);

    [[nodiscard]] bool file_exists(const std::string& path) const override;
    [[nodiscard]] std::optional<std::string> read_file(const std::string& path) const override; // of 1 MiB at most
    [[nodiscard]] std::vector<std::string> file_names(const std::string& folder) const override;
    [[nodiscard]] std::string user_name(std::uint32_t user) const override;
    [[nodiscard]] ConfigError check_syntax(const std::string& text) const override;
    [[nodiscard]] std::string find_chronywake() const override;
    [[nodiscard]] bool daemon_survives(const std::string& unit) const override;
    [[nodiscard]] std::optional<StartedDaemon> started_daemon(const std::string& unit) const override;
    [[nodiscard]] bool filters_calls() const override;
    [[nodiscard]] Result<> replace_file(const std::string& path, std::string_view bytes) override;
    void pause(int seconds) const override;

private:
    Execute& m_execute;
    Paths m_paths;
    std::string m_search_path;
    ServiceForm m_form;
};

} // namespace tickervantage
