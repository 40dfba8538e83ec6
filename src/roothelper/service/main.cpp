// chronyhelper: what the application cannot do without root, asked for over the system bus.
//
//   chronyhelper              serves; started by the bus
//   chronyhelper --install    puts itself in place, as root
//   chronyhelper --uninstall  takes itself away, as root
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
    std::string text;
    std::string sentence;
    const int found = read_roots_file(rules_file, rules_limit, text, sentence);
    if (found < 0 || (found == 0 && add_rules(text, rules, sentence) != 0))
        journal_note(sentence + " The built-in rules are used alone.");
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
    ::sigprocmask(SIG_BLOCK, &set, nullptr);
    ::signal(SIGPIPE, SIG_IGN);
}

int on_end(sd_event_source*, const signalfd_siginfo*, void* service) {
    static_cast<HelperService*>(service)->end();
    return 0;
}

int serve(std::string& sentence) {
    block_signals();
    ::umask(022);
    (void)::mkdir(own_folder().c_str(), 0711); // there already when systemd started us
    sd_event* event = nullptr;
    sd_bus* bus = nullptr;
    if (sd_event_new(&event) < 0 || sd_bus_open_system_with_description(&bus, "chronyhelper") < 0) {
        sentence = "The helper cannot reach the system bus.";
        return -1;
    }
    const Event event_owner(event);
    const Bus bus_owner(bus);
    (void)sd_bus_set_exit_on_disconnect(bus, 1);
    if (sd_bus_attach_event(bus, event, SD_EVENT_PRIORITY_NORMAL) < 0) {
        sentence = "The helper cannot set itself up.";
        return -1;
    }
    HelperService service(bus, event, read_rules(), own_folder());
    (void)sd_event_add_signal(event, nullptr, SIGTERM, on_end, &service);
    (void)sd_event_add_signal(event, nullptr, SIGINT, on_end, &service);
    return service.run(sentence);
}

int run(std::string_view what, std::string& sentence) {
    if (::geteuid() != 0) {
        sentence = "This must run as root.";
        return -1;
    }
    if (what == "--install")
        return install_helper(own_bundle(), sentence);
    return what == "--uninstall" ? uninstall_helper(sentence) : serve(sentence);
}

} // namespace
} // namespace tickervantage

int main(int argc, char** argv) {
    const std::string_view what = argc > 1 ? argv[1] : "";
    if (argc > 2 || (!what.empty() && what != "--install" && what != "--uninstall")) {
        (void)std::fputs("usage: chronyhelper [--install | --uninstall]\n", stderr);
        return 2;
    }
    std::string sentence;
    if (tickervantage::run(what, sentence) == 0)
        return 0;
    (void)std::fprintf(stderr, "chronyhelper: %s\n", sentence.c_str());
    return 1;
}
