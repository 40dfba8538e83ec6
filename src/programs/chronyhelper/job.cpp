#include "programs/chronyhelper/job.h"

#include "platform/helper_names.h"
#include "programs/chronyhelper/commands.h"
#include "programs/chronyhelper/source_file.h"
#include "programs/chronyhelper/trusted_files.h"

#include <unistd.h>

#include <algorithm>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::size_t text_limit = std::size_t{1} << 20U;
constexpr std::size_t program_limit = std::size_t{64} << 20U;
constexpr std::size_t shown_lines = 12; // in a dialog
constexpr std::size_t shown_bytes = 240;

bool is_run(const Item& item) {
    return item.kind == ItemKind::program || item.kind == ItemKind::script;
}

std::string bundled(const Item& item, const HelperRules& rules) {
    return item.kind == ItemKind::program ? rules.bundle_program(item.name)
                                          : rules.bundle + "/Contents/Resources/" + item.name;
}

// What may stand in a configuration without being asked for again: what is installed, and what was before it.
std::string known_configuration(const std::string& path) {
    std::string known;
    for (const auto& file : {path, path + ".former"}) {
        std::string bytes;
        std::string ignored; // one that others can change counts as none
        if (read_roots_file(file, text_limit, bytes, ignored) == 0)
            known += bytes + '\n';
    }
    return known;
}

// Nobody can agree to what a dialog leaves out.
bool can_be_shown(const std::vector<ConfigurationLine>& lines) {
    return lines.size() <= shown_lines &&
           std::ranges::all_of(lines, [](const auto& line) { return line.text.size() <= shown_bytes; });
}

std::string dialog_text(const std::vector<ConfigurationLine>& lines) {
    std::string text = "This configuration lets chronyd, which starts as root, do more than usual:";
    for (const auto& line : lines)
        text += "\nline " + std::to_string(line.number) + ": " + line.text;
    return text;
}

} // namespace

Job::Job(const JobParts& parts, JobOrder order) : m_parts(parts), m_order(std::move(order)) {}

Job::~Job() {
    if (!m_staged.empty())
        ::unlink(m_staged.c_str());
}

void Job::start() {
    if (m_order.request.verb == HelperVerb::install_item || m_order.request.verb == HelperVerb::check_item)
        read_source();
    else
        do_it();
}

void Job::run_child(ChildTask task, Next next) {
    m_child = std::make_unique<ChildProcess>(m_parts.event, std::move(task), [this, next](ChildEnd end) {
        const auto finished = std::move(m_child); // kept until its callback has returned
        (this->*next)(std::move(end));
    });
}

void Job::end(Decision decision, std::string text) {
    const auto done = std::move(m_order.done);
    done(decision, std::move(text));
}

void Job::read_source() {
    const auto limit = is_run(m_order.request.item) ? program_limit : text_limit;
    run_child(read_source_task(m_order.request.source, user_identity(m_order.caller.user), limit),
              &Job::source_was_read);
}

void Job::source_was_read(ChildEnd result) {
    if (result.status == 0)
        check_content(result.output);
    else if (result.status == source_refused_status)
        end(Decision::refused, result.output);
    else
        end(Decision::refused, "The file to be installed could not be read in time.");
}

void Job::check_content(const std::string& bytes) {
    const auto& request = m_order.request;
    if (is_run(request.item))
        return check_program(bytes);
    if (request.item.kind == ItemKind::configuration)
        return check_configuration(bytes);
    std::string sentence;
    if (check_service_definition(request.destination, bytes, m_parts.rules, sentence) != 0)
        return end(Decision::refused, sentence);
    if (stage(bytes))
        take_next_step();
}

// What will run as root must be what root holds already.
void Job::check_program(const std::string& bytes) {
    const auto path = bundled(m_order.request.item, m_parts.rules);
    std::string own;
    std::string sentence;
    const int found = read_roots_file(path, program_limit, own, sentence);
    if (found != 0)
        return end(Decision::refused, found > 0 ? path + " is missing." : sentence);
    if (own != bytes)
        return end(Decision::refused, "The program is another one than the helper was installed with: install the "
                                      "helper again.");
    m_order.request.argv[2] = path;
    take_next_step();
}

void Job::check_configuration(const std::string& bytes) {
    std::string sentence;
    const auto known = known_configuration(m_order.request.destination);
    if (find_unsafe_lines(bytes, known, m_parts.rules, m_unsafe_lines, sentence) != 0)
        return end(Decision::refused, sentence);
    if (!stage(bytes))
        return;
    m_consent = m_order.request.destination + '\n' + bytes;
    auto task = syntax_check_task(m_staged, m_parts.rules);
    if (task.argv.empty())
        return ask_about_unsafe_lines(); // no chronyd is installed that could be stopped by it
    run_child(std::move(task), &Job::syntax_was_checked);
}

void Job::ask_about_unsafe_lines() {
    const auto agreed = m_parts.consents.find(m_order.caller.name);
    const bool is_agreed = agreed != m_parts.consents.end() && agreed->second == m_consent;
    if (is_agreed)
        m_parts.consents.erase(agreed); // to be installed once
    if (m_unsafe_lines.empty() || is_agreed)
        return take_next_step();
    if (!can_be_shown(m_unsafe_lines))
        return end(Decision::refused, "The configuration was not installed: it has more or longer unusual lines than "
                                      "a question can show.");
    const auto first = "line " + std::to_string(m_unsafe_lines[0].number) + " (" + m_unsafe_lines[0].text + ")";
    m_parts.polkit.ask({.sender = m_order.caller.name,
                        .action = helper::unsafe_config_action,
                        .message = dialog_text(m_unsafe_lines),
                        .may_ask = m_order.may_ask},
                       [this, alive = std::weak_ptr(m_alive), first](PolkitAnswer answer) {
                           if (alive.expired())
                               return;
                           if (answer == PolkitAnswer::yes)
                               take_next_step();
                           else
                               end(Decision::refused, "The configuration was not installed: " + first +
                                                          " needs an authorisation of its own.");
                       });
}

// False, and the job is over, when they cannot be written: half a file must not be installed.
bool Job::stage(const std::string& bytes) {
    static unsigned count = 0;
    m_staged = m_parts.folder + "/item-" + std::to_string(++count);
    m_order.request.argv[2] = m_staged;
    if (write_new_file(m_staged, bytes, 0644) == 0) // readable for the daemon's user, who checks a configuration
        return true;
    end(Decision::failed, "The helper cannot keep the file to be installed.");
    return false;
}

void Job::syntax_was_checked(ChildEnd result) {
    if (result.status == 0)
        return ask_about_unsafe_lines();
    const auto fault = result.output.rfind("Fatal error");
    auto text = fault == std::string::npos ? result.output : result.output.substr(fault);
    if (const auto file = text.find(" in file "); file != std::string::npos)
        text.resize(file); // the name of the file on its way says nothing
    while (!text.empty() && text.back() == '\n')
        text.pop_back();
    end(Decision::refused, "chronyd does not accept this configuration: " + text + ".");
}

// A judgement ends here; what it took a consent for may be installed next.
void Job::take_next_step() {
    if (m_order.request.verb != HelperVerb::check_item)
        return do_it();
    if (!m_unsafe_lines.empty())
        m_parts.consents[m_order.caller.name] = std::move(m_consent);
    end(Decision::done, "200 OK");
}

void Job::do_it() {
    auto task = task_for(m_order.request, m_parts.rules);
    if (!is_roots_own(task.argv[0]) || !is_roots_own(m_order.request.argv[0]))
        return end(Decision::refused, m_order.request.argv[0] + " is missing, or others than root can change it.");
    if (const auto path = changed_configuration(); !path.empty())
        m_parts.history.before(path);
    run_child(std::move(task), &Job::was_done);
}

std::string Job::changed_configuration() const {
    const auto& request = m_order.request;
    if (request.verb == HelperVerb::restore_former)
        return request.argv.back();
    const bool installs = request.verb == HelperVerb::install_item && request.item.kind == ItemKind::configuration;
    return installs ? request.destination : std::string();
}

void Job::was_done(ChildEnd result) {
    if (const auto path = changed_configuration(); !path.empty() && result.status == 0)
        m_parts.history.after(path, m_order.caller.user);
    const bool found_none = m_order.request.verb == HelperVerb::list_daemons && result.status == 1; // of pgrep
    if (found_none)
        return end(Decision::done, std::move(result.output));
    auto text = std::move(result.output);
    if (!result.sentence.empty())
        text += (text.empty() || text.back() == '\n' ? "" : "\n") + result.sentence;
    else if (result.status != 0 && text.empty())
        text = "The command ended with status " + std::to_string(result.status) + ".";
    end(result.status == 0 ? Decision::done : Decision::failed, std::move(text));
}

} // namespace tickervantage
