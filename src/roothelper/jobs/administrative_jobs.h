// Runs the administrative jobs for the windows: one at a time, off the main thread, each on its own queue.
//
// Main thread only. A job first makes sure of the administrator rights, on its queue, because a password takes its
// time; without them it ends before its first command. While one is under way the shared actions say so.
#pragma once

#include "base/background.h"
#include "roothelper/client/privileged_actions.h"
#include "roothelper/jobs/job_catalogue.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace tickervantage {

class JobQueues {
public:
    virtual ~JobQueues() = default;

    // The same one for the same label.
    [[nodiscard]] virtual DispatchQueueSerial& queue(std::string_view label) = 0;
};

// Whom the jobs are run for.
class JobsOwner {
public:
    virtual ~JobsOwner() = default;

    [[nodiscard]] virtual JobSetting job_setting() = 0; // as the preferences have it now
    // What is going on, whenever that changes; empty text: nothing is.
    virtual void show_progress(const std::string& text) = 0;
    // Of each job that began, before whoever asked for it hears of it.
    virtual void job_ended(AdminJob /*job*/, const JobResult& /*result*/) {}
};

// What the jobs work with; all of it outlives them and the queues.
struct AdministrativeJobsParts {
    std::shared_ptr<PrivilegedActions> actions;
    MainThread& main_thread;
    JobQueues& queues;
    JobMachine& machine; // used on the queues
    JobsOwner& owner;
};

class AdministrativeJobs {
public:
    using Done = std::function<void(const JobResult& result)>; // main thread

    explicit AdministrativeJobs(AdministrativeJobsParts parts);

    // `done` is called when the job has ended, unless this object has gone by then. While another job is under way the
    // new one is refused at once.
    void run(const AdminRequest& request, Done done);

    // Makes sure of the rights without doing anything with them; `granted` is called when they are there.
    void obtain_rights(std::function<void()> granted);

    [[nodiscard]] bool busy() const { return m_parts.actions->action_in_progress(); }

private:
    AdministrativeJobsParts m_parts;
    bool m_asking = false; // a request for rights is under way
    Background m_background;
};

} // namespace tickervantage
