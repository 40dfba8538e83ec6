// chronyhelper: what the application cannot do without root, asked for over the system bus.
//
//   chronyhelper              serves; started by the bus
//   chronyhelper --install    puts itself in place, as root
//   chronyhelper --uninstall  takes itself away, as root
// With --failure-line behind either, a second line names what went wrong.
#include "base/failure_codes.h"
#include "base/failure_line.h"
#include "roothelper/service/helper_service.h"
#include "roothelper/service/journal.h"
#include "roothelper/service/self_install.h"
#include "roothelper/service/trusted_files.h"

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace tickervantage {
namespace {

constexpr std::size_t rules_limit = 65536;

std::string own_bundle() {
    std::array<char, PATH_MAX> program{};
    (void)::realpath("/proc/self/exe", program.data());
    return parent_folder(parent_folder(parent_folder(program.data())));
}

HelperRules read_rules() {
    HelperRules rules;
    rules.bundle = own_bundle();
    const auto added = read_roots_file(rules_file, rules_limit).and_then([&](const FileBytes& text) {
        return add_rules(text.value_or(""), rules);
    });
    if (!added)
        journal_note(english(added.error()) + " The built-in rules are used alone.");
    return rules;
}

std::string own_folder() {
    const char* given = ::getenv("RUNTIME_DIRECTORY"); // NOLINT(concurrency-mt-unsafe): the helper has one thread
    return given != nullptr && *given == '/' ? given : "/run/chronyhelper";
}

void block_signals() {
    sigset_t set;
    sigemptyset(&set);
    for (const int number : {SIGCHLD, SIGTERM, SIGINT})
        sigaddset(&set, number);
    ::sigprocmask(SIG_BLOCK, &set, nullptr); // NOLINT(concurrency-mt-unsafe): one thread here
    ::signal(SIGPIPE, SIG_IGN);
}

int on_end(sd_event_source*, const signalfd_siginfo*, void* service) {
    static_cast<HelperService*>(service)->end();
    return 0;
}

Result<> serve() {
    block_signals();
    ::umask(022);
    (void)::mkdir(own_folder().c_str(), 0711); // there already when systemd started us
    sd_event* event = nullptr;
    sd_bus* bus = nullptr;
    if (sd_event_new(&event) < 0 || sd_bus_open_system_with_description(&bus, "chronyhelper") < 0)
        return failed(FailureCode::helper_without_bus);
    const Event event_owner(event);
    const Bus bus_owner(bus);
    (void)sd_bus_set_exit_on_disconnect(bus, 1);
    if (sd_bus_attach_event(bus, event, SD_EVENT_PRIORITY_NORMAL) < 0)
        return failed(FailureCode::helper_not_set_up);
    HelperService service(bus, event, read_rules(), own_folder());
    (void)sd_event_add_signal(event, nullptr, SIGTERM, on_end, &service);
    (void)sd_event_add_signal(event, nullptr, SIGINT, on_end, &service);
    return service.run();
}

Result<> run(std::string_view what) {
    if (::geteuid() != 0)
        return failed(FailureCode::not_root);
    if (what == "--install")
        return install_helper(own_bundle());
    return what == "--uninstall" ? uninstall_helper() : serve();
}

bool is_usage(int count, std::string_view what, std::string_view second) {
    const bool installs = what == "--install" || what == "--uninstall";
    return count == 1 || (installs && (count == 2 || (count == 3 && second == failure_option)));
}

} // namespace
} // namespace tickervantage

int main(int argc, char** argv) {
    using namespace tickervantage;
    const std::string_view what = argc > 1 ? argv[1] : "";
    if (!is_usage(argc, what, argc > 2 ? argv[2] : "")) {
        (void)std::fputs("usage: chronyhelper [--install | --uninstall]\n", stderr);
        return 2;
    }
    const auto done = run(what);
    if (done)
        return 0;
    (void)std::fprintf(stderr, "chronyhelper: %s\n%s", english(done.error()).c_str(),
                       argc > 2 ? marked_line(done.error()).c_str() : "");
    return 1;
}
