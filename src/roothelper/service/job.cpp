#include "roothelper/service/job.h"

#include "base/failure_codes.h"
#include "base/failure_line.h"
#include "chrony/services/points_table.h"
#include "roothelper/grammar/helper_includes.h"
#include "roothelper/grammar/helper_names.h"
#include "roothelper/grammar/helper_question.h"
#include "roothelper/service/boot_time.h"
#include "roothelper/service/caller_files.h"
#include "roothelper/service/commands.h"
#include "roothelper/service/trusted_files.h"

#include <unistd.h>

#include <utility>

namespace tickervantage {
namespace {

constexpr std::size_t text_limit = std::size_t{1} << 20U;
constexpr std::size_t program_limit = std::size_t{64} << 20U;

bool is_run(const Item& item) {
    return item.kind == ItemKind::program || item.kind == ItemKind::script;
}

std::string bundled(const Item& item, const HelperRules& rules) {
    return item.kind == ItemKind::program ? rules.bundle_program(item.name)
                                          : rules.bundle + "/Contents/Resources/" + item.name;
}

std::string text_at(const std::string& path) {
    return bytes_of_roots_file(path, text_limit);
}

class RootsFiles : public IncludedFiles {
public:
    [[nodiscard]] std::vector<std::string> matching(const std::string& pattern) const override {
        return matching_roots_files(pattern);
    }
    [[nodiscard]] std::string read(const std::string& path) const override { return text_at(path); }
};

} // namespace

Job::Job(const JobParts& parts, JobOrder order) : m_parts(parts), m_order(std::move(order)) {}

Job::~Job() {
    if (!m_staged.empty())
        ::unlink(m_staged.c_str());
}

void Job::start() {
    switch (m_order.request.verb) {
    case HelperVerb::install_item:
    case HelperVerb::check_item:
        return read_source();
    case HelperVerb::restore_former:
        return check_former();
    default:
        return do_it();
    }
}

void Job::run_child(ChildTask task, Next next) {
    m_child = std::make_unique<ChildProcess>(m_parts.event, std::move(task), [this, next](const ChildEnd& end) {
        const auto finished = std::move(m_child); // kept until its callback has returned
        (this->*next)(end);
    });
}

void Job::refuse(const Failure& why) {
    end({Decision::refused, english(why), why});
}

void Job::end(const JobEnd& end) {
    const auto done = std::move(m_order.done);
    done(end);
}

void Job::read_source() {
    const auto limit = is_run(m_order.request.item) ? program_limit : text_limit;
    run_child(read_source_task(m_order.request.source, user_identity(m_order.caller.user), limit),
              &Job::source_was_read);
}

void Job::source_was_read(const ChildEnd& result) {
    if (result.status == 0)
        check_content(result.output);
    else if (result.status == source_refused_status)
        refuse(failure_in(result.output).value_or(Failure{.code = FailureCode::source_not_opened}));
    else
        refuse({.code = FailureCode::source_not_read});
}

void Job::check_content(const std::string& bytes) {
    const auto& request = m_order.request;
    if (is_run(request.item))
        return check_program(bytes);
    if (request.item.kind == ItemKind::configuration)
        return check_configuration(bytes);
    if (request.item.kind == ItemKind::compensation)
        return check_points(bytes);
    if (const auto checked = check_service_definition(request.destination, bytes, m_parts.rules); !checked)
        return refuse(checked.error());
    if (stage(bytes))
        take_next_step();
}

// chronyd ends at points that it cannot read, and some make it compensate wrongly.
void Job::check_points(const std::string& bytes) {
    if (const auto points = read_points_for_kernel(bytes, m_order.request.destination); !points)
        return refuse(points.error());
    if (m_order.request.verb == HelperVerb::restore_former)
        return do_it();
    if (stage(bytes))
        take_next_step();
}

// What will run as root must be what root holds already.
void Job::check_program(const std::string& bytes) {
    const auto path = bundled(m_order.request.item, m_parts.rules);
    const auto own = read_roots_file(path, program_limit);
    if (!own)
        return refuse(own.error());
    if (!*own)
        return refuse({.code = FailureCode::program_missing, .arguments = {path}});
    if (*own != bytes)
        return refuse({.code = FailureCode::other_program});
    m_order.request.argv[2] = path;
    take_next_step();
}

// A former configuration is consent for what it says only while the caller takes back what it installed a moment ago.
void Job::check_former() {
    const auto& destination = m_order.request.destination;
    const auto former = read_roots_file(destination + ".former", text_limit);
    if (!former)
        return refuse(former.error());
    m_checked = former->value_or("");
    if (m_order.request.item.kind == ItemKind::compensation)
        return check_points(m_checked);
    const ConfigurationExchange exchange{destination, m_checked, text_at(destination)};
    if (*former && !m_parts.displaced.take(m_order.caller, exchange, seconds_since_boot()))
        return check_configuration(**former);
    do_it();
}

// Judges a text that is to become the configuration at the destination, wherever it comes from.
void Job::check_configuration(const std::string& bytes) {
    const auto& destination = m_order.request.destination;
    m_checked = bytes;
    m_displaced = text_at(destination);
    auto unsafe = find_unsafe_lines(bytes, m_displaced, m_parts.rules);
    if (!unsafe)
        return refuse(unsafe.error());
    m_unsafe_lines = *std::move(unsafe);
    if (const int line = line_that_includes_itself(bytes, destination, RootsFiles()); line > 0)
        return refuse({.code = FailureCode::includes_itself, .arguments = {std::to_string(line)}});
    if (!stage(bytes))
        return;
    auto task = syntax_check_task(m_staged, m_parts.rules);
    if (task.argv.empty())
        return ask_about_unsafe_lines(); // no chronyd is installed that could be stopped by it
    run_child(std::move(task), &Job::syntax_was_checked);
}

void Job::ask_about_unsafe_lines() {
    const auto agreed = m_parts.consents.find(m_order.caller.name);
    const bool is_agreed = agreed != m_parts.consents.end() && agreed->second == consent();
    if (is_agreed)
        m_parts.consents.erase(agreed); // to be installed once
    if (m_unsafe_lines.empty() || is_agreed)
        return take_next_step();
    const auto question = question_about(m_unsafe_lines);
    if (!question)
        return refuse(question.error());
    m_parts.polkit.ask({.sender = m_order.caller.name,
                        .action = helper::unsafe_config_action,
                        .message = *question,
                        .may_ask = m_order.may_ask},
                       [this, alive = std::weak_ptr(m_alive)](PolkitAnswer answer) {
                           if (alive.expired())
                               return;
                           if (answer == PolkitAnswer::yes)
                               take_next_step();
                           else
                               refuse(
                                   {.code = FailureCode::line_unauthorised,
                                    .arguments = {std::to_string(m_unsafe_lines[0].number), m_unsafe_lines[0].text}});
                       });
}

// False, and the job is over, when they cannot be written.
bool Job::stage(const std::string& bytes) {
    m_staged = stage_file(m_parts.folder, bytes);
    if (m_order.request.verb == HelperVerb::install_item)
        m_order.request.argv[2] = m_staged;
    if (!m_staged.empty())
        return true;
    const Failure why{.code = FailureCode::item_not_kept};
    end({Decision::failed, english(why), why});
    return false;
}

void Job::syntax_was_checked(const ChildEnd& result) {
    if (result.status == 0)
        return ask_about_unsafe_lines();
    refuse(chronyd_refusal(result.output, m_staged, m_checked));
}

// Somebody else may have installed one while a question stood open.
bool Job::former_is_unchanged() const {
    return m_order.request.verb != HelperVerb::restore_former ||
           text_at(m_order.request.destination + ".former") == m_checked;
}

std::string Job::changed_configuration() const {
    const auto& request = m_order.request;
    const bool changes = request.verb == HelperVerb::install_item || request.verb == HelperVerb::restore_former;
    return changes && request.item.kind == ItemKind::configuration ? request.destination : std::string();
}

// What was agreed to: this text at this place. In place of another one than then it would have other unsafe lines.
std::string Job::consent() const {
    return m_order.request.destination + '\n' + m_displaced + '\0' + m_checked;
}

// A judgement ends here; what it took a consent for may be installed next.
void Job::take_next_step() {
    if (m_order.request.verb != HelperVerb::check_item)
        return do_it();
    if (!m_unsafe_lines.empty())
        m_parts.consents[m_order.caller.name] = consent();
    end({Decision::done, "200 OK"});
}

void Job::do_it() {
    auto task = task_for(m_order.request, m_parts.rules);
    const auto& program = m_order.request.argv[0];
    if (!is_roots_own(task.argv[0]) || !is_roots_own(program))
        return refuse({.code = FailureCode::program_not_roots, .arguments = {program}});
    if (!former_is_unchanged())
        return refuse({.code = FailureCode::former_has_changed});
    if (const auto path = changed_configuration(); !path.empty())
        m_parts.history.before(path);
    run_child(std::move(task), &Job::was_done);
}

void Job::note_change(bool is_done) {
    const auto path = changed_configuration();
    if (path.empty())
        return;
    if (m_order.request.verb == HelperVerb::install_item) // whatever came of it: what is then found in place counts
        m_parts.displaced.note(m_order.caller, {path, m_displaced, m_checked}, seconds_since_boot());
    if (is_done)
        m_parts.history.after(path, m_order.caller.user);
}

void Job::was_done(const ChildEnd& result) {
    note_change(result.status == 0);
    const bool found_none = m_order.request.verb == HelperVerb::list_daemons && result.status == 1; // of pgrep
    const bool is_done = result.status == 0 || found_none;
    auto text = result.output;
    auto failure = result.failure;
    if (!is_done && !failure && speaks_of_failures(m_order.request, m_parts.rules))
        failure = take_failure(text);
    else if (failure)
        text += (text.empty() || text.back() == '\n' ? "" : "\n") + english(*failure);
    if (!is_done && text.empty()) {
        failure = Failure{.code = FailureCode::command_failed, .arguments = {std::to_string(result.status)}};
        text = english(*failure);
    }
    if (is_done)
        failure.reset();
    end({is_done ? Decision::done : Decision::failed, std::move(text), std::move(failure)});
}

} // namespace tickervantage
