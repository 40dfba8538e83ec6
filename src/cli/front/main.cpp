// tickerctl, as it is started: a small program in front of the large one. A monitoring system asks for the clock's
// health once a minute on thousands of machines, and starting the large one takes ten times as long as asking chronyd.
// What this one does not understand at once it hands on, so that there is one place where it is told what is wrong.
// Under the name check_tickervantage it is the plugin of a monitoring system, and only asked for that.
#include "base/number_text.h"
#include "chrony/reports/runchronyc.h"
#include "cli/watch/health_command.h"
#include "linux/posix_execute.h"
#include "roothelper/client/no_privileged_channel.h"
#include "roothelper/client/privileged_actions.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <climits>
#include <cstdlib>
#include <span>
#include <string_view>
#include <vector>

namespace tickervantage {
namespace {

constexpr const char* system_chronyc = "/usr/bin/chronyc";
constexpr std::string_view large_program = "tickercommands"; // beside this one

struct Question {
    std::vector<std::string> daemon; // for chronyc
    HealthLimits limits;
    double time_limit = 10;
};

// Another chronyc may have been chosen; who reads settings is the large program.
bool has_settings() {
    const auto variable = [](const char* name) {
        const char* const value = std::getenv(name); // NOLINT(concurrency-mt-unsafe): one thread
        return std::string(value == nullptr ? "" : value);
    };
    const std::string chosen = variable("XDG_CONFIG_HOME");
    const std::string folder = chosen.starts_with('/') ? chosen : variable("HOME") + "/.config";
    return !folder.starts_with('/') || ::access((folder + "/Tickervantage/Tickervantage.ini").c_str(), F_OK) == 0;
}

bool read_seconds(const std::string& text, double least, std::optional<double>& seconds) {
    seconds = number_from_text<double>(text);
    return seconds && *seconds >= least && *seconds <= 3600;
}

bool read_option(std::string_view name, const std::string& value, HealthArguments& arguments, Question& question) {
    std::optional<double> seconds;
    if (name == "-H" || name == "--host")
        question.daemon = {"-h", value};
    else if (name == "-w" || name == "--warning")
        arguments.warning = value;
    else if (name == "-c" || name == "--critical")
        arguments.critical = value;
    else if (name == "--sources-warning")
        arguments.sources_warning = value;
    else if (name == "--sources-critical")
        arguments.sources_critical = value;
    else if (name == "-t" || name == "--timeout")
        return read_seconds(value, 0.1, seconds) && (question.time_limit = *seconds, true);
    else
        return false;
    return true;
}

// None: not a question that can be answered here.
std::optional<Question> question_in(std::span<char* const> words) {
    Question question;
    std::size_t at = 1;
    if (words.size() > at + 1 && words[at] == std::string_view("--host")) {
        question.daemon = {"-h", words[at + 1]};
        at += 2;
    }
    if (words.size() <= at || words[at] != std::string_view("health") || (words.size() - at) % 2 == 0)
        return std::nullopt;
    HealthArguments arguments;
    for (++at; at < words.size(); at += 2)
        if (!read_option(words[at], words[at + 1], arguments, question))
            return std::nullopt;
    std::string complaint;
    const auto limits = limits_of(arguments, complaint);
    if (!limits || has_settings() || ::access(system_chronyc, X_OK) != 0)
        return std::nullopt;
    question.limits = *limits;
    return question;
}

int answer(const Question& question) {
    PosixExecute execute;
    TimedExecute timed(execute, question.time_limit);
    NoPrivilegedChannel channel;
    PrivilegedActions actions{channel};
    const Runchronyc chronyc(timed, actions, {.bundle = {}, .chronyc = system_chronyc, .chronyd = {}}, false, false,
                             question.daemon);
    const HealthAnswer health = live_health(chronyc, question.limits);
    const std::string line = health.line + '\n';
    return ::write(STDOUT_FILENO, line.data(), line.size()) < 0 ? static_cast<int>(HealthState::unknown)
                                                                : static_cast<int>(health.state);
}

// With the command that the plugin's name stands for.
std::vector<char*> words_of(int count, char** words) {
    static std::array<char, sizeof "health"> command{"health"};
    std::vector<char*> all(words, words + count);
    const std::string_view name = all.empty() ? "" : all.front();
    if (name.substr(name.rfind('/') + 1) == "check_tickervantage")
        all.insert(all.begin() + 1, command.data());
    return all;
}

int hand_on(std::vector<char*> words) {
    std::array<char, PATH_MAX> own{};
    const ssize_t length = ::readlink("/proc/self/exe", own.data(), own.size() - 1);
    const std::string path(own.data(), static_cast<std::size_t>(length < 0 ? 0 : length));
    const std::string large = path.substr(0, path.rfind('/') + 1) + std::string(large_program);
    words.push_back(nullptr);
    ::execv(large.c_str(), words.data());
    const std::string complaint = "tickerctl: " + large + " cannot be started.\n";
    (void)!::write(STDERR_FILENO, complaint.data(), complaint.size()); // there is nobody else to tell
    return 2;
}

} // namespace
} // namespace tickervantage

int main(int argc, char** argv) {
    using namespace tickervantage;
    const std::vector<char*> words = words_of(argc, argv);
    const auto question = question_in(words);
    return question ? answer(*question) : hand_on(words);
}
