#include "chrony/reports/runchronyc.h"

#include "base/failure_codes.h"
#include "roothelper/client/privileged_actions.h"

#include <filesystem>
#include <utility>

namespace tickervantage {

std::string choose_program(const std::string& configured, const ChronyPrograms& programs,
                           std::string_view bundle_suffix) {
    std::error_code ignored; // a path that cannot be looked at counts as missing
    if (!configured.empty() && std::filesystem::exists(configured, ignored))
        return configured;
    return programs.bundle + std::string(bundle_suffix);
}

ExecuteResult version_query(Execute& execute, const ChronyPrograms& programs, std::string_view program) {
    if (program != bundle_chronyc && program != bundle_chronyd) {
        ExecuteResult unknown;
        unknown.output = "Unknown program: " + std::string(program);
        unknown.failure = said_by_others(unknown.output);
        return unknown;
    }
    const auto& configured = program == bundle_chronyc ? programs.chronyc : programs.chronyd;
    return execute.run({.program = choose_program(configured, programs, program), .arguments = {"-n", "-v"}});
}

Runchronyc::Runchronyc(Execute& execute, PrivilegedActions& privileged, ChronyPrograms programs, bool resolv,
                       bool original, std::vector<std::string> extra)
    : m_execute(execute), m_privileged(privileged), m_programs(std::move(programs)), m_resolv(resolv),
      m_original(original), m_extra(std::move(extra)) {
    if (!m_resolv)
        m_options.emplace_back("-n");
    if (m_original)
        m_options.emplace_back("-N");
    m_options.insert(m_options.end(), m_extra.begin(), m_extra.end());
}

ExecuteResult Runchronyc::run_with(std::vector<std::string> options, const std::string& command) const {
    options.push_back(command);
    return m_execute.run(
        {.program = choose_program(m_programs.chronyc, m_programs, bundle_chronyc), .arguments = std::move(options)});
}

ExecuteResult Runchronyc::run(const std::string& command) const {
    return run_with(m_options, command);
}

ExecuteResult Runchronyc::run_for_values(const std::string& command) const {
    auto options = m_options;
    options.emplace_back("-c");
    return run_with(std::move(options), command);
}

ExecuteResult Runchronyc::run_for_data(const std::vector<std::string>& commands, SourceNames names) const {
    std::vector<std::string> options = m_extra;
    options.emplace_back(names == SourceNames::addresses ? "-n" : "-N");
    options.insert(options.end(), {"-c", "-m"});
    options.insert(options.end(), commands.begin(), commands.end());
    return m_execute.run(
        {.program = choose_program(m_programs.chronyc, m_programs, bundle_chronyc), .arguments = std::move(options)});
}

std::string Runchronyc::run_privileged(bool resolve, bool original, const std::string& command,
                                       const std::string& extra) const {
    if (!m_extra.empty()) { // a daemon of the user's own
        std::vector<std::string> options = m_extra;
        if (!resolve)
            options.emplace_back("-n");
        if (original)
            options.emplace_back("-N");
        return run_with(std::move(options), command + (extra.empty() ? "" : " " + extra)).output;
    }
    if (!m_privileged.helper_ready())
        return {};
    std::string line = "/bin/sh -c '" + m_programs.chronyc;
    line += resolve ? "" : " -n ";
    line += original ? " -N" : "";
    line += " " + command;
    line += extra.empty() ? "" : " " + extra;
    return m_privileged.execute(line + "' 2>&1");
}

std::optional<ExecuteResult> Runchronyc::run_privileged_for_data() const {
    if (!m_privileged.helper_ready() || !m_extra.empty())
        return std::nullopt;
    HelperAnswer answer = m_privileged.data_reports(m_programs.chronyc);
    const bool is_chronycs = answer.is_done || !answer.failure || answer.failure->code == FailureCode::others_words;
    if (!is_chronycs)
        return ExecuteResult{.output = {}, .failure = std::move(answer.failure)};
    return ExecuteResult{.outcome = ExecuteOutcome::exited,
                         .exit_status = answer.is_done ? 0 : 1,
                         .output = std::move(answer.reply).value_or(""),
                         .failure = {}};
}

} // namespace tickervantage
