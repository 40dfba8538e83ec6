// The program's one hand on the root side: the authorisation, the helper, and whether an administrative job is under
// way.
//
// One instance for the whole run, shared, so that background jobs can hold it weakly. Every function may be called from
// any thread, but those that block never from the main one: authorise and blessHelper may wait for a password, execute
// and quit for the helper.
#pragma once

#include "base/logger.h"
#include "roothelper/client/privileged_channel.h"

#include <atomic>
#include <functional>
#include <mutex>
#include <optional>
#include <string>

namespace tickervantage {

// The connection to the root helper and the authorisation that goes with every message.
//
// Every function blocks until the helper answers and may be called from any thread but the main one. Messages of
// several threads do not wait for each other: a report comes while a long job is under way.
class ChronyHelper {
public:
    // The channel, and the log where there is one, outlive the helper.
    explicit ChronyHelper(PrivilegedChannel& xpc, Logger* logger = nullptr) : m_xpc(xpc), m_logger(logger) {}

    // Asks for administrator rights; once they are given, every message carries them.
    [[nodiscard]] Result<> authorise();

    // One message. A reply without a text is logged and taken as the empty text. What was not done has a failure.
    HelperAnswer send(const std::string& request);

    // Says farewell, closes the connection and forgets the authorisation.
    void quit();

    PrivilegedChannel& m_xpc;

private:
    [[nodiscard]] std::optional<HelperToken> authorisation() const;

    Logger* m_logger;
    mutable std::mutex m_mutex; // guards m_auth
    std::optional<HelperToken> m_auth;
};

// Why a job that needs administrator rights could not begin.
enum class PrivilegedProblem : unsigned char {
    refused,       // the user did not give the rights
    not_installed, // there is no helper, and it could not be installed
};

struct PrivilegedReports {
    Logger* logger = nullptr;
    // Told of a problem. Called on the thread that asked for the rights.
    std::function<void(PrivilegedProblem problem, const Failure& why)> problem;
};

class PrivilegedActions {
public:
    static constexpr const char* m_chrony_right = "net.brisklane.tickervantage";

    explicit PrivilegedActions(PrivilegedChannel& channel, PrivilegedReports reports = {});

    // Whether the helper is there and carries the authorisation. Does not block.
    [[nodiscard]] bool helper_ready() const { return m_blessed; }

    // Asks for administrator rights, of the helper, which is installed first where it is missing: only the helper can
    // ask. A problem is reported.
    [[nodiscard]] bool authorise();

    // Makes sure that the helper is there and carries the authorisation; asks at most once a run.
    [[nodiscard]] bool blessHelper();

    // Runs one command line as root and returns what it printed. When the authorisation has lapsed the helper is no
    // longer ready.
    std::string execute(const std::string& command);

    // The reports that need root, as data in one run of this chronyc: "selectdata -a", "authdata -a", "ntpdata" and
    // "serverstats". Refusals of chronyc stand in the reply as they came; what the helper itself refused is a failure
    // of its own.
    [[nodiscard]] HelperAnswer data_reports(const std::string& chronyc);

    // As execute, for a job that somebody waits for: when the authorisation has lapsed the user is asked again.
    HelperAnswer execute_in_job(const std::string& command);

    // Says farewell to the helper and gives the authorisation back. While a job is under way it keeps both: the job
    // would be cut in two.
    void quit();

    [[nodiscard]] bool action_in_progress() const;
    void set_action_in_progress(bool in_progress);

private:
    [[nodiscard]] bool ask();
    HelperAnswer ask_helper(const std::string& command);
    bool report(PrivilegedProblem problem, const Failure& why) const; // false, for the callers to return

    PrivilegedReports m_reports;
    std::mutex m_asking; // held while the user is asked, so that two jobs do not ask at once
    std::atomic<bool> m_blessed = false;
    ChronyHelper m_helper;
    mutable std::mutex m_mutex; // guards m_installer_busy: jobs end on their queues, menus ask on the main thread
    bool m_installer_busy = false;
};

} // namespace tickervantage
