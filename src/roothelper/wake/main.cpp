// chronywake: asks chronyd to correct the clock after the machine slept; once, or after each wake-up.
#include "linux/posix_execute.h"
#include "roothelper/grammar/wake_arguments.h"
#include "roothelper/wake/logind_signals.h"
#include "roothelper/wake/wake_correction.h"
#include "roothelper/wake/wake_keeper.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

namespace {

using namespace tickervantage;

constexpr int usage_error = 2;

class StandardOutput : public Logger {
public:
    void log(LogLevel, std::string_view line) override {
        // A journal that is gone leaves nobody to tell.
        (void)std::printf("%.*s\n", static_cast<int>(line.size()), line.data());
        (void)std::fflush(stdout);
    }
};

std::string find_chronyc(const WakeArguments& arguments) {
    if (!arguments.chronyc.empty())
        return arguments.chronyc;
    std::error_code error;
    const auto beside = std::filesystem::read_symlink("/proc/self/exe", error).replace_filename("chronyc");
    return !error && ::access(beside.c_str(), X_OK) == 0 ? beside.string() : "/usr/bin/chronyc";
}

} // namespace

int main(int argc, char** argv) {
    const auto arguments = parse_wake_arguments({argv + std::min(argc, 1), argv + argc});
    if (!arguments) {
        (void)std::fprintf(stderr, "chronywake: %s\n", english(arguments.error()).c_str());
        return usage_error;
    }
    StandardOutput output;
    PosixExecute execute;
    const WakeCorrection correction(execute, find_chronyc(*arguments), *arguments);
    if (!arguments->stays) {
        const auto done = correction.correct();
        output.log(LogLevel::info, done ? "200 OK" : english(done.error()));
        return done ? 0 : 1;
    }
    LogindSignals signals;
    SleepingPause pause;
    WakeKeeper keeper({.signals = signals, .correction = correction, .pause = pause, .log = output});
    while (true)
        keeper.turn();
}
