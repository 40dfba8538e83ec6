#include "roothelper/jobs/administrative_jobs.h"

#include "base/failure_codes.h"
#include "roothelper/jobs/job_steps.h"

#include <utility>

namespace tickervantage {
namespace {

constexpr std::string_view rights_queue = "net.brisklane.authorise";

JobResult play_with_rights(const AdminRequest& request, const JobSetting& setting, PrivilegedActions& actions,
                           JobMachine& machine) {
    if (JobResult rehearsed = rehearse(request, setting, machine); !rehearsed.outcome)
        return rehearsed; // nobody types a password for that
    if (!actions.blessHelper())
        return {.outcome = failed(FailureCode::nothing_done)};
    SentSteps steps(actions, machine);
    return play(request, setting, machine, steps);
}

} // namespace

AdministrativeJobs::AdministrativeJobs(AdministrativeJobsParts parts)
    : m_parts(std::move(parts)), m_background(m_parts.main_thread) {}

void AdministrativeJobs::run(const AdminRequest& request, Done done) {
    if (busy()) {
        done({.outcome = failed(FailureCode::job_under_way)});
        return;
    }
    m_parts.actions->set_action_in_progress(true);
    const JobSetting setting = m_parts.owner.job_setting();
    m_parts.owner.show_progress(progress_text(request.job, setting));
    // The job goes on when this object goes: half a job would be worse than one whose end nobody hears of.
    m_background.start(
        m_parts.queues.queue(entry_of(request.job).queue),
        [request, setting, actions = m_parts.actions, &machine = m_parts.machine] {
            JobResult result = play_with_rights(request, setting, *actions, machine);
            actions->set_action_in_progress(false);
            return result;
        },
        [this, job = request.job, done = std::move(done)](const JobResult& result) {
            m_parts.owner.show_progress({});
            m_parts.owner.job_ended(job, result);
            done(result);
        });
}

void AdministrativeJobs::obtain_rights(std::function<void()> granted) {
    if (std::exchange(m_asking, true))
        return; // the user is being asked already
    m_background.start(
        m_parts.queues.queue(rights_queue), [actions = m_parts.actions] { return actions->blessHelper(); },
        [this, granted = std::move(granted)](bool is_granted) {
            m_asking = false;
            if (is_granted)
                granted();
        });
}

} // namespace tickervantage
