// chronysupport: one piece of work of root for the application. Prints one line, and with the option --failure-line
// before the verb a second one that names what went wrong.
#include "base/failure_codes.h"
#include "base/failure_line.h"
#include "linux/posix_execute.h"
#include "roothelper/support/clock_step.h"
#include "roothelper/support/folders.h"
#include "roothelper/support/verbs.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace {

// .../Tickervantage.app/Contents/MacOS/chronysupport
std::string own_bundle() {
    std::error_code unknown; // then it is empty, and nothing is found in it
    return std::filesystem::read_symlink("/proc/self/exe", unknown).parent_path().parent_path().parent_path();
}

constexpr int has_failed = 1;
constexpr int usage = 2;

int status_of(const tickervantage::Failure& failure) {
    return failure.code == tickervantage::FailureCode::no_such_verb ? usage : has_failed;
}

} // namespace

int main(int argc, char** argv) {
    using namespace tickervantage;
    // Whatever the caller's surroundings, root works in its own.
    // NOLINTNEXTLINE(concurrency-mt-unsafe): one thread
    if (::clearenv() != 0 || ::setenv("PATH", "/usr/sbin:/usr/bin:/sbin:/bin", 1) != 0 || ::chdir("/") != 0)
        return has_failed;
    ::umask(022);
    std::vector<std::string> words(argv + std::min(argc, 1), argv + argc);
    const bool tells_failure = !words.empty() && words.front() == failure_option;
    if (tells_failure)
        words.erase(words.begin());
    PosixExecute execute;
    KernelClock clock;
    SleepingPause pause;
    const auto said = run_verb(words, {.rules = {.self = ::geteuid()},
                                       .units = {execute, pause},
                                       .clock = clock,
                                       .configurations = installed_configurations(),
                                       .root = {},
                                       .bundle = own_bundle()});
    // Whoever went away before the answer does not need it.
    (void)std::printf("%s\n", answer_line(said).c_str());
    if (!said && tells_failure)
        (void)std::fputs(marked_line(said.error()).c_str(), stdout);
    return said ? 0 : status_of(said.error());
}
