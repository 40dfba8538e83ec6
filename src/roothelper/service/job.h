// One admitted request on its way: from the caller's file to the child that does the work, step by step, never waiting.
#pragma once

#include "roothelper/grammar/helper_content.h"
#include "roothelper/grammar/helper_displaced.h"
#include "roothelper/grammar/helper_request.h"
#include "roothelper/grammar/helper_tokens.h"
#include "roothelper/service/child_process.h"
#include "roothelper/service/history.h"
#include "roothelper/service/journal.h"
#include "roothelper/service/polkit.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

struct JobParts {
    sd_event* event;
    Polkit& polkit;
    DisplacedConfigurations& displaced;
    const HelperRules& rules;
    std::string folder; // of the helper's own, for files on their way
    // What each connection was asked about and agreed to, when only judging: installing it does not ask again.
    std::map<std::string, std::string>& consents;
    History history = History();
};

struct JobEnd {
    Decision decision = Decision::failed;
    std::string text;                    // what the command printed; what was not done, in English
    std::optional<Failure> failure = {}; // what was not done, where it has a name
};

struct JobOrder {
    HelperRequest request;
    HelperCaller caller;
    bool may_ask = false; // a password dialog may be shown
    std::function<void(const JobEnd& end)> done;
};

class Job {
public:
    // `order.done` is called once, from the event loop; it may destroy the job.
    Job(const JobParts& parts, JobOrder order);
    ~Job();
    Job(const Job&) = delete;
    Job& operator=(const Job&) = delete;

    void start();
    [[nodiscard]] const std::string& sender() const { return m_order.caller.name; }

private:
    using Next = void (Job::*)(const ChildEnd&);

    void run_child(ChildTask task, Next next);
    void read_source();
    void source_was_read(const ChildEnd& result);
    void check_content(const std::string& bytes);
    void check_program(const std::string& bytes);
    void check_points(const std::string& bytes);
    void check_former();
    void check_configuration(const std::string& bytes);
    void syntax_was_checked(const ChildEnd& result);
    void ask_about_unsafe_lines();
    [[nodiscard]] bool stage(const std::string& bytes);
    [[nodiscard]] std::string consent() const;
    void take_next_step();
    [[nodiscard]] bool former_is_unchanged() const;
    [[nodiscard]] std::string changed_configuration() const; // empty: none is
    void do_it();
    void note_change(bool is_done);
    void was_done(const ChildEnd& result);
    void refuse(const Failure& why);
    void end(const JobEnd& end);

    const JobParts& m_parts;
    JobOrder m_order;
    std::vector<ConfigurationLine> m_unsafe_lines;
    std::string m_staged;    // the caller's bytes, in the helper's folder
    std::string m_checked;   // the configuration that was judged
    std::string m_displaced; // the one that was installed then
    std::unique_ptr<ChildProcess> m_child;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true); // for answers that come after the job has gone
};

} // namespace tickervantage
