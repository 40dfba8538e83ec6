#include "roothelper/jobs/administrative_jobs.h"

#include <utility>

namespace tickervantage {
namespace {

constexpr std::string_view rights_queue = "net.brisklane.authorise";

JobResult play_with_rights(const AdminRequest& request, const JobSetting& setting,
                           const AdministrativeJobsParts& parts) {
    if (JobResult rehearsed = rehearse(request, setting, parts.probes); !rehearsed.done)
        return rehearsed; // nobody types a password for that
    if (!parts.actions->blessHelper())
        return {.done = false}; // the refusal was reported already
    SentSteps steps(*parts.actions, parts.steps);
    ChronyJobs jobs(setting, parts.probes, steps);
    return play(request, jobs);
}

} // namespace

AdministrativeJobs::AdministrativeJobs(AdministrativeJobsParts parts)
    : m_parts(std::move(parts)), m_background(m_parts.main_thread) {}

AdministrativeJobs::~AdministrativeJobs() = default;

void AdministrativeJobs::show(const std::string& text) const {
    if (m_progress)
        m_progress(text);
}

void AdministrativeJobs::run(const AdminRequest& request, Done done) {
    if (busy()) {
        done({.done = false, .sentence = "Another administrative job is under way."});
        return;
    }
    m_parts.actions->set_action_in_progress(true);
    const JobSetting setting = m_parts.setting();
    show(progress_text(request.job, setting));
    // The job goes on when this object goes: half a job would be worse than one whose end nobody hears of.
    m_background.start(
        m_parts.queue(entry_of(request.job).queue),
        [request, setting, parts = m_parts] {
            JobResult result = play_with_rights(request, setting, parts);
            parts.actions->set_action_in_progress(false);
            return result;
        },
        [this, done = std::move(done)](const JobResult& result) { end(result, done); });
}

void AdministrativeJobs::end(const JobResult& result, const Done& done) {
    show({});
    done(result);
}

void AdministrativeJobs::obtain_rights(std::function<void(bool granted)> done) {
    if (std::exchange(m_asking, true))
        return; // the user is being asked already
    m_background.start(
        m_parts.queue(rights_queue), [actions = m_parts.actions] { return actions->blessHelper(); },
        [this, done = std::move(done)](bool granted) {
            m_asking = false;
            done(granted);
        });
}

} // namespace tickervantage
