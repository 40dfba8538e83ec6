// Runs the administrative jobs for the windows: one at a time, off the main thread, each on its own queue.
//
// Main thread only. A job first makes sure of the administrator rights, on its queue, because a password takes its
// time; without them it ends before its first command. While one is under way the shared actions say so.
#pragma once

#include "base/background.h"
#include "roothelper/client/privileged_actions.h"
#include "roothelper/jobs/job_catalogue.h"
#include "roothelper/jobs/sent_steps.h"

#include <functional>
#include <memory>
#include <string>

namespace tickervantage {

// What the jobs work with; all of it outlives them and the queues.
struct AdministrativeJobsParts {
    std::shared_ptr<PrivilegedActions> actions;
    MainThread& main_thread;
    std::function<DispatchQueueSerial&(std::string_view label)> queue; // the same one for the same label
    std::function<JobSetting()> setting;                               // as the preferences have it now
    JobProbes probes;                                                  // used on the queues
    SentStepsParts steps;                                              // likewise
};

class AdministrativeJobs {
public:
    using Done = std::function<void(const JobResult& result)>; // main thread

    explicit AdministrativeJobs(AdministrativeJobsParts parts);
    ~AdministrativeJobs();
    AdministrativeJobs(const AdministrativeJobs&) = delete;
    AdministrativeJobs& operator=(const AdministrativeJobs&) = delete;

    // `done` is called when the job has ended, unless this object has gone by then. While another job is under way the
    // new one is refused at once.
    void run(const AdminRequest& request, Done done);

    // Makes sure of the rights without doing anything with them; `done` hears whether they are there.
    void obtain_rights(std::function<void(bool granted)> done);

    [[nodiscard]] bool busy() const { return m_parts.actions->action_in_progress(); }

    // Told what is going on whenever that changes; empty text: nothing is.
    void on_progress(std::function<void(const std::string& text)> handler) { m_progress = std::move(handler); }

private:
    void end(const JobResult& result, const Done& done);
    void show(const std::string& text) const;

    AdministrativeJobsParts m_parts;
    std::function<void(const std::string& text)> m_progress;
    bool m_asking = false; // a request for rights is under way
    Background m_background;
};

} // namespace tickervantage
