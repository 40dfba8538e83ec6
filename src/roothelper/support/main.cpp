// chronysupport: one piece of work of root for the application. Prints one line.
#include "linux/posix_execute.h"
#include "roothelper/support/folders.h"
#include "roothelper/support/kernel_clock.h"
#include "roothelper/support/verbs.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>

namespace {

// .../Tickervantage.app/Contents/MacOS/chronysupport
std::string own_bundle() {
    std::error_code unknown; // then it is empty, and nothing is found in it
    return std::filesystem::read_symlink("/proc/self/exe", unknown).parent_path().parent_path().parent_path();
}

} // namespace

int main(int argc, char** argv) {
    using namespace tickervantage;
    // Whatever the caller's surroundings, root works in its own.
    if (::clearenv() != 0 || ::setenv("PATH", "/usr/sbin:/usr/bin:/sbin:/bin", 1) != 0 || ::chdir("/") != 0)
        return static_cast<int>(VerbResult::failed);
    ::umask(022);
    PosixExecute execute;
    KernelClock clock;
    const SupportParts parts{.rules = {.self = ::geteuid()},
                             .units = {execute,
                                       [](auto time) {
                                           std::this_thread::sleep_for(time);
                                       }},
                             .clock = clock,
                             .configurations = installed_configurations,
                             .root = {},
                             .bundle = own_bundle()};
    std::string line;
    const auto result = run_verb({argv + std::min(argc, 1), argv + argc}, parts, line);
    (void)std::printf("%s\n", line.c_str()); // whoever went away before the answer does not need it
    return static_cast<int>(result);
}
