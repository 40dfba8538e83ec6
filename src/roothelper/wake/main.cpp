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
#include <thread>

namespace {

using namespace tickervantage;

constexpr int usage_error = 2;

void say(const std::string& line) {
    (void)std::printf("%s\n", line.c_str()); // a journal that is gone leaves nobody to tell
    (void)std::fflush(stdout);
}

std::string find_chronyc(const WakeArguments& arguments) {
    if (!arguments.chronyc.empty())
        return arguments.chronyc;
    std::error_code error;
    const auto beside = std::filesystem::read_symlink("/proc/self/exe", error).replace_filename("chronyc");
    return !error && ::access(beside.c_str(), X_OK) == 0 ? beside.string() : "/usr/bin/chronyc";
}

} // namespace

int main(int argc, char** argv) {
    WakeArguments arguments;
    std::string sentence;
    if (parse_wake_arguments({argv + std::min(argc, 1), argv + argc}, arguments, sentence) != 0) {
        (void)std::fprintf(stderr, "chronywake: %s\n", sentence.c_str());
        return usage_error;
    }
    PosixExecute execute;
    const WakeCorrection correction(execute, find_chronyc(arguments), arguments);
    if (!arguments.stays) {
        const int result = correction.correct(sentence);
        say(sentence);
        return result == 0 ? 0 : 1;
    }
    LogindSignals signals;
    WakeKeeper keeper({.signals = signals,
                       .correct = [&](std::string& answer) { return correction.correct(answer); },
                       .pause = [](auto time) { std::this_thread::sleep_for(time); },
                       .report = say});
    while (true)
        keeper.turn();
}
