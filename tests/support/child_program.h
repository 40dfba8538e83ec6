// Real programs under test: started in a home of their own, watched with deadlines, ended by us when they overstay.
#pragma once

#include "linux/file_descriptor.h"
#include "support/test.h"

#include <poll.h>
#include <spawn.h>
#include <sys/syscall.h>

namespace tickervantage::testing {

using Environment = std::map<std::string, std::string>;

// Whether the condition comes true before the deadline.
template <class Condition>
[[nodiscard]] bool eventually(std::chrono::milliseconds limit, Condition condition) {
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(5)); // between two looks
    }
    return true;
}

[[nodiscard]] inline std::string contents(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void write_file(const std::string& path, const std::string& text, mode_t mode = 0600) {
    std::ofstream(path, std::ios::binary) << text;
    chmod(path.c_str(), mode);
}

// The permissions of what lies there, of a link its own; 0: nothing.
[[nodiscard]] inline mode_t mode_of(const std::string& path) {
    struct stat status {};
    return lstat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
}

// Width and height of a PNG picture by its first bytes; none when it is none.
[[nodiscard]] inline std::optional<std::pair<unsigned, unsigned>> png_size(const std::string& bytes) {
    if (bytes.size() < 24 || !bytes.starts_with("\x89PNG\r\n\x1a\n") || bytes.compare(12, 4, "IHDR") != 0)
        return std::nullopt;
    const auto number = [&](std::size_t at) {
        unsigned result = 0;
        for (std::size_t i = at; i < at + 4; ++i)
            result = result << 8U | static_cast<unsigned char>(bytes[i]);
        return result;
    };
    return std::pair(number(16), number(20));
}

// A home folder with everything that the base-directory variables name, gone with the object.
class PrivateHome {
public:
    PrivateHome() {
        if (mkdtemp(m_path.data()) == nullptr)
            std::abort();
        for (const auto* folder : {"/config", "/data", "/state", "/run"})
            mkdir((m_path + folder).c_str(), 0700);
        environment = {{"HOME", m_path},
                       {"XDG_CONFIG_HOME", m_path + "/config"},
                       {"XDG_DATA_HOME", m_path + "/data"},
                       {"XDG_STATE_HOME", m_path + "/state"},
                       {"XDG_RUNTIME_DIR", m_path + "/run"},
                       {"PATH", "/usr/bin:/bin:/usr/sbin:/sbin"}};
        for (const auto* name : {"ASAN_OPTIONS", "LSAN_OPTIONS", "TSAN_OPTIONS", "UBSAN_OPTIONS"})
            if (const char* value = std::getenv(name); value != nullptr) // NOLINT(concurrency-mt-unsafe): one thread
                environment[name] = value;
    }
    ~PrivateHome() { std::filesystem::remove_all(m_path); }
    PrivateHome(const PrivateHome&) = delete;
    PrivateHome& operator=(const PrivateHome&) = delete;

    [[nodiscard]] std::string path(const std::string& name = {}) const {
        return name.empty() ? m_path : m_path + "/" + name;
    }
    [[nodiscard]] std::string settings_file() const { return path("config/Tickervantage/Tickervantage.ini"); }

    // Names of what lies in a folder below, however deep.
    [[nodiscard]] std::vector<std::string> found_in(const std::string& name) const {
        std::vector<std::string> found;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(path(name)))
            found.push_back(entry.path());
        return found;
    }

    Environment environment;

private:
    std::string m_path = "/tmp/tv-XXXXXX"; // short: a socket's path has little room
};

[[nodiscard]] inline pid_t parent_of(pid_t pid) {
    std::ifstream status("/proc/" + std::to_string(pid) + "/status");
    for (std::string word; status >> word;)
        if (pid_t parent = -1; word == "PPid:" && status >> parent)
            return parent;
    return -1;
}

// A process that is not ours to wait for.
class Watched {
public:
    explicit Watched(pid_t pid) : m_descriptor(static_cast<int>(syscall(SYS_pidfd_open, pid, 0))) {}
    [[nodiscard]] bool ends_within(std::chrono::milliseconds limit) const {
        pollfd wanted{m_descriptor.get(), POLLIN, 0};
        return m_descriptor.valid() && poll(&wanted, 1, static_cast<int>(limit.count())) == 1;
    }
    [[nodiscard]] bool runs() const { return m_descriptor.valid() && !ends_within({}); }

private:
    FileDescriptor m_descriptor;
};

class ChildProgram {
public:
    // What the program prints goes to files in the folder.
    ChildProgram(std::vector<std::string> argv, const Environment& environment, const std::string& folder,
                 const std::string& input = "/dev/null") {
        static int count = 0;
        m_files = folder + "/child" + std::to_string(++count);
        m_pid = spawn(argv, environment, input);
        m_descriptor.reset(m_pid > 0 ? static_cast<int>(syscall(SYS_pidfd_open, m_pid, 0)) : -1);
    }
    ~ChildProgram() {
        if (m_pid > 0) {
            signal(SIGKILL);
            waitpid(m_pid, nullptr, 0);
        }
    }
    ChildProgram(const ChildProgram&) = delete;
    ChildProgram& operator=(const ChildProgram&) = delete;

    [[nodiscard]] pid_t pid() const { return m_pid; }
    [[nodiscard]] std::string out() const { return contents(m_files + ".out"); }
    [[nodiscard]] std::string err() const { return contents(m_files + ".err"); }
    void signal(int number) const {
        if (m_pid > 0)
            ::kill(m_pid, number);
    }

    // The exit status, 128 and the signal's number for one that was ended by a signal, none when it still runs.
    [[nodiscard]] std::optional<int> ends_within(std::chrono::milliseconds limit) {
        pollfd wanted{m_descriptor.get(), POLLIN, 0};
        if (!m_descriptor.valid() || poll(&wanted, 1, static_cast<int>(limit.count())) != 1)
            return std::nullopt;
        int status = 0;
        waitpid(m_pid, &status, 0);
        m_pid = -1;
        m_descriptor.reset();
        return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }

private:
    pid_t spawn(std::vector<std::string>& argv, const Environment& environment, const std::string& input) {
        std::vector<std::string> variables;
        for (const auto& [name, value] : environment)
            variables.push_back(name + "=" + value);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, input.c_str(), O_RDONLY, 0);
        posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, (m_files + ".out").c_str(), O_WRONLY | O_CREAT, 0600);
        posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, (m_files + ".err").c_str(), O_WRONLY | O_CREAT, 0600);
        pid_t pid = -1;
        const int error = posix_spawn(&pid, argv.front().c_str(), &actions, nullptr, pointers(argv).data(),
                                      pointers(variables).data());
        posix_spawn_file_actions_destroy(&actions);
        return error == 0 ? pid : -1;
    }

    static std::vector<char*> pointers(std::vector<std::string>& texts) {
        std::vector<char*> result;
        for (auto& text : texts)
            result.push_back(text.data());
        result.push_back(nullptr);
        return result;
    }

    std::string m_files;
    pid_t m_pid = -1;
    FileDescriptor m_descriptor; // of the process
};

} // namespace tickervantage::testing
