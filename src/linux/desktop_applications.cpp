#include "linux/desktop_applications.h"

#include "linux/environment.h"
#include "linux/file_descriptor.h"
#include "linux/small_file.h"

#include <fcntl.h>
#include <linux/close_range.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <map>
#include <system_error>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::size_t size_limit = 256U << 10U;

using Entry = std::map<std::string, std::string, std::less<>>;

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r");
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

std::string unescaped(std::string_view value) {
    std::string result;
    for (std::size_t i = 0; i < value.size(); ++i) {
        constexpr std::string_view codes = "sntr\\";
        constexpr std::string_view meanings = " \n\t\r\\";
        const auto code = value[i] == '\\' && i + 1 < value.size() ? codes.find(value[i + 1]) : std::string_view::npos;
        result += code == std::string_view::npos ? value[i] : meanings[code];
        if (code != std::string_view::npos)
            ++i;
    }
    return result;
}

// The keys of the group [Desktop Entry]; the first of two equal keys counts.
Entry read_entry(std::string_view text) {
    Entry entry;
    bool in_group = false;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        const auto line = trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        const auto equals = line.find('=');
        if (line.starts_with('['))
            in_group = line == "[Desktop Entry]";
        else if (in_group && !line.starts_with('#') && equals != std::string_view::npos)
            entry.emplace(trimmed(line.substr(0, equals)), unescaped(trimmed(line.substr(equals + 1))));
    }
    return entry;
}

std::string value_of(const Entry& entry, std::string_view key) {
    const auto found = entry.find(key);
    return found == entry.end() ? std::string() : found->second;
}

// Splits a command line into words. -1 at an open quote or a trailing backslash.
int split_exec(std::string_view line, std::vector<std::string>& words) {
    bool quoted = false;
    bool in_word = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        if (c == '"') {
            quoted = !quoted;
        } else if (!quoted && (c == ' ' || c == '\t' || c == '\n')) {
            in_word = false;
            continue;
        }
        if (!std::exchange(in_word, true))
            words.emplace_back();
        if (c == '\\' && quoted && ++i == line.size())
            return -1;
        if (c != '"')
            words.back() += line[i];
    }
    return quoted ? -1 : 0;
}

// Replaces the field codes of one word. -1 at an unknown one; `vanishes` when nothing but codes for files was there.
int expand(const std::string& word, const DesktopApplication& application, std::string& result, bool& vanishes) {
    constexpr std::string_view for_files = "fFuUdDnNvm"; // we hand over no files; the last six are out of use
    vanishes = false;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (word[i] != '%') {
            result += word[i];
            continue;
        }
        const char code = ++i < word.size() ? word[i] : '\0';
        if (code == '%')
            result += '%';
        else if (code == 'c')
            result += application.name;
        else if (code == 'k')
            result += application.desktop_file;
        else if (code == '\0' || for_files.find(code) == std::string_view::npos)
            return -1;
        else
            vanishes = true;
    }
    vanishes = vanishes && result.empty();
    return 0;
}

int make_argv(std::string_view exec, DesktopApplication& application) {
    std::vector<std::string> words;
    if (split_exec(exec, words) != 0)
        return -1;
    for (const auto& word : words) {
        std::string argument;
        bool vanishes = false;
        if (word == "%i") {
            if (!application.icon.empty())
                application.argv.insert(application.argv.end(), {"--icon", application.icon});
        } else if (expand(word, application, argument, vanishes) != 0) {
            return -1;
        } else if (!vanishes) {
            application.argv.push_back(argument);
        }
    }
    const auto& argv = application.argv;
    return argv.empty() || argv.front().empty() || argv.front().find('=') != std::string::npos ? -1 : 0;
}

bool is_program(const std::string& path) {
    struct stat info {};
    return stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode) && access(path.c_str(), X_OK) == 0;
}

// The path of a program given by path or by name; empty when there is none.
std::string find_program(const std::string& name) {
    if (name.find('/') != std::string::npos)
        return is_program(name) ? name : std::string();
    const std::string list = process_environment("PATH").value_or("/usr/local/bin:/usr/bin:/bin");
    std::string_view rest = list;
    while (!rest.empty()) {
        const auto end = std::min(rest.find(':'), rest.size());
        auto candidate = std::string(rest.substr(0, end)) + "/" + name;
        if (end > 0 && is_program(candidate))
            return candidate;
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return {};
}

std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> result;
    result.reserve(texts.size() + 1);
    for (auto& text : texts)
        result.push_back(text.data());
    result.push_back(nullptr);
    return result;
}

std::vector<std::string> environment_without_temporary() {
    std::vector<std::string> result;
    for (char** entry = environ; *entry != nullptr; ++entry)
        if (!std::string_view(*entry).starts_with("TMPDIR="))
            result.emplace_back(*entry);
    return result;
}

// Runs in the child of a process that may have threads: system calls only, no memory, no locks.
[[noreturn]] void become(const char* program, char* const* arguments, char* const* environment, int report) {
    setsid();
    const pid_t second = fork(); // the first child ends at once, so that the program is nobody's to wait for
    if (second > 0)
        _exit(0);
    if (second == 0) {
        for (int signal = 1; signal < NSIG; ++signal)
            (void)std::signal(signal, SIG_DFL); // NOLINT(concurrency-mt-unsafe): one thread here
        sigset_t none;
        sigemptyset(&none);
        (void)sigprocmask(SIG_SETMASK, &none, nullptr);
        const int null = open("/dev/null", O_RDWR); // NOLINT(android-cloexec-open): closed below
        for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            (void)dup2(null, standard);
        (void)close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC);
        (void)execve(program, arguments, environment);
    }
    const int error = errno;
    (void)!::write(report, &error, sizeof error); // nobody is left to tell when even this fails
    _exit(127);
}

} // namespace

std::optional<DesktopApplication> parse_desktop_file(std::string_view text, const std::string& path) {
    const auto entry = read_entry(text);
    DesktopApplication result{path, value_of(entry, "Name"), value_of(entry, "Icon"), {}};
    const auto needed = value_of(entry, "TryExec");
    const bool present = value_of(entry, "Type") == "Application" && value_of(entry, "Hidden") != "true" &&
                         !result.name.empty() && (needed.empty() || !find_program(needed).empty());
    if (!present || make_argv(value_of(entry, "Exec"), result) != 0)
        return std::nullopt;
    return result;
}

std::optional<DesktopApplication> find_application(const std::string& folders, const std::string& id) {
    if (id.empty() || id.find('/') != std::string::npos)
        return std::nullopt;
    std::string_view rest = folders;
    while (!rest.empty()) {
        const auto end = std::min(rest.find(':'), rest.size());
        const auto path = std::string(rest.substr(0, end)) + "/" + id + ".desktop";
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (access(path.c_str(), F_OK) != 0)
            continue;
        const auto file = read_small_file(path, size_limit);
        return file.outcome == SmallFile::Outcome::read ? parse_desktop_file(file.bytes, path) : std::nullopt;
    }
    return std::nullopt;
}

int launch(const std::vector<std::string>& argv, std::string& sentence) {
    const auto program = argv.empty() ? std::string() : find_program(argv.front());
    std::array<int, 2> ends{};
    if (program.empty() || pipe2(ends.data(), O_CLOEXEC) != 0) {
        sentence = (argv.empty() ? std::string("The program") : argv.front()) + " cannot be found.";
        return -1;
    }
    const FileDescriptor read_end(ends[0]);
    FileDescriptor write_end(ends[1]);
    auto words = argv;
    auto variables = environment_without_temporary();
    const auto arguments = pointers(words);
    const auto environment = pointers(variables);

    const pid_t first = fork();
    if (first == 0)
        become(program.c_str(), arguments.data(), environment.data(), write_end.get());
    int error = errno;
    write_end.reset();
    if (first > 0) {
        while (waitpid(first, nullptr, 0) < 0 && errno == EINTR) {
        }
        if (::read(read_end.get(), &error, sizeof error) != sizeof error)
            return 0; // the pipe was closed by the start of the program
    }
    sentence = program + " cannot be started: " + std::generic_category().message(error) + ".";
    return -1;
}

} // namespace tickervantage
