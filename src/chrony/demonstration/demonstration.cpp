#include "chrony/demonstration/demonstration.h"

#include "base/failure_codes.h"
#include "chrony/demonstration/demonstration_supervisor.h"
#include "chrony/demonstration/recorded_day.h"
#include "linux/small_file.h"

#include <fcntl.h>
#include <poll.h>
#include <pwd.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <ctime>
#include <filesystem>
#include <system_error>
#include <vector>

#include <fmt/format.h>

namespace tickervantage {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t largest_configuration = 1U << 20U;

struct User {
    std::string name;
    gid_t group = 0;
};

Result<User> current_user() {
    passwd entry{};
    passwd* found = nullptr;
    std::array<char, 16384> texts{};
    if (getpwuid_r(getuid(), &entry, texts.data(), texts.size(), &found) != 0 || found == nullptr)
        return failed(FailureCode::demonstration_without_name, {std::to_string(getuid())});
    return User{found->pw_name, found->pw_gid};
}

// chronyc puts a socket of its own beside that of the daemon, under a longer name.
bool leaves_room_for_sockets(const std::string& folder) {
    constexpr std::size_t longest_name = sizeof "/client/" + 40;
    return folder.size() + longest_name < sizeof(sockaddr_un::sun_path);
}

Result<> make_outer_folder(std::string& folder) {
    if (leaves_room_for_sockets(folder) && mkdir(folder.c_str(), 0700) == 0)
        return {};
    if (!leaves_room_for_sockets(folder)) {
        folder = "/tmp/tv-demo-XXXXXX"; // not a name that PrivateTemporary sweeps: nothing here holds its lock
        if (mkdtemp(folder.data()) != nullptr)
            return {};
    }
    return failed(FailureCode::demonstration_without_folder, {folder}, errno);
}

void remove_folder(const std::string& folder) {
    std::error_code ignored; // the folder lies among temporary files
    (void)std::filesystem::remove_all(folder, ignored);
}

// chronyd insists that the folder of its socket belongs to its user and to that user's main group.
Result<> make_folders(std::string& folder, gid_t group) {
    if (auto made = make_outer_folder(folder); !made)
        return made;
    std::vector<std::string> paths{folder, folder + "/client"};
    for (std::size_t at = 0; at < demonstration_servers.size(); ++at)
        paths.push_back(demonstration_server_folder(folder, at));
    for (const auto& path : paths) {
        if ((path != folder && mkdir(path.c_str(), 0700) != 0) || chmod(path.c_str(), 0700) != 0 ||
            chown(path.c_str(), getuid(), group) != 0) {
            auto failure = failed(FailureCode::demonstration_without_folder, {path}, errno);
            remove_folder(folder);
            return failure;
        }
    }
    return {};
}

// What is sent comes as it was sent, a message at a time.
struct OrderSockets {
    FileDescriptor ours;
    FileDescriptor supervisors;

    OrderSockets() {
        std::array<int, 2> ends{};
        if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()) != 0)
            return;
        ours.reset(ends[0]);
        supervisors.reset(ends[1]);
    }
};

struct Pipe {
    FileDescriptor read_end;
    FileDescriptor write_end;

    Pipe() {
        std::array<int, 2> ends{};
        if (pipe2(ends.data(), O_CLOEXEC) != 0)
            return;
        read_end.reset(ends[0]);
        write_end.reset(ends[1]);
    }
};

// The supervisor reports "ok" or what the daemons said, and closes its end.
Result<> await_report(int news) {
    const auto deadline = Clock::now() + demonstration_start_limit + std::chrono::seconds(1);
    std::string report;
    while (true) {
        pollfd wanted{news, POLLIN, 0};
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
        const int ready = left <= 0 ? 0 : poll(&wanted, 1, static_cast<int>(left));
        std::array<char, 512> buffer{};
        const ssize_t count = ready > 0 ? ::read(news, buffer.data(), buffer.size()) : ready;
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            break;
        report.append(buffer.data(), static_cast<std::size_t>(count));
    }
    if (report == "ok")
        return {};
    return report.empty() ? failed(FailureCode::demonstration_too_slow) : tl::unexpected(said_by_others(report));
}

} // namespace

Result<> Demonstration::start(const std::string& chronyd, const std::string& folder) {
    auto started = begin(chronyd, folder);
    if (!started)
        return started; // one that runs already runs on
    started = await_start();
    if (!started)
        stop();
    return started;
}

Result<> Demonstration::begin(const std::string& chronyd, const std::string& folder) {
    if (is_running())
        return failed(FailureCode::demonstration_runs);
    if (access(chronyd.c_str(), X_OK) != 0)
        return failed(FailureCode::demonstration_without_chronyd, {chronyd}, errno);
    auto place = folder;
    const auto user = current_user();
    if (auto made = user.and_then([&](const User& one) { return make_folders(place, one.group); }); !made)
        return made;

    OrderSockets hold;
    Pipe news;
    const std::int64_t now = std::time(nullptr);
    const pid_t pid = news.write_end.valid() && hold.ours.valid() ? fork() : -1;
    if (pid == 0)
        supervise_demonstration({chronyd, user->name, place, now, hold.supervisors.get(), news.write_end.get()});
    if (pid < 0) {
        auto failure = failed(FailureCode::demonstration_not_started, {}, errno);
        remove_folder(place);
        return failure;
    }
    m_supervisor = pid;
    m_begun = now;
    m_hold = std::move(hold.ours);
    m_folder = place;
    m_news = std::move(news.read_end);
    return {};
}

Result<> Demonstration::await_start() {
    return await_report(FileDescriptor(std::move(m_news)).get());
}

void Demonstration::stop() {
    if (!is_running())
        return;
    m_hold.reset();
    while (waitpid(m_supervisor, nullptr, 0) < 0 && errno == EINTR) {
    }
    m_supervisor = -1;
    remove_folder(m_folder); // there still when the supervisor was killed
    m_folder.clear();
}

Result<> Demonstration::ask(const std::string& order) {
    const std::lock_guard lock(m_asking);
    std::array<char, 1024> answer{};
    const bool was_sent = is_running() && ::send(m_hold.get(), order.data(), order.size(), MSG_NOSIGNAL) >= 0;
    ssize_t count = -1;
    do // the supervisor answers within its own limits, or has gone
        count = was_sent ? ::recv(m_hold.get(), answer.data(), answer.size(), 0) : 0;
    while (count < 0 && errno == EINTR);
    const std::string said(answer.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    if (said == "ok")
        return {};
    return said.empty() ? failed(FailureCode::demonstration_has_ended) : tl::unexpected(said_by_others(said));
}

Result<> Demonstration::install(const std::string& text) {
    const std::string path = client_config();
    const FileReading former = read_small_file(path, largest_configuration);
    auto done = replace_small_file(path, text).and_then([this] { return ask(restart_order); });
    if (done || former.outcome != FileReading::Outcome::read)
        return done;
    const auto back = replace_small_file(path, former.bytes).and_then([this] { return ask(restart_order); });
    return failed(back ? FailureCode::demonstration_keeps_former : FailureCode::demonstration_lost_former, {},
                  done.error());
}

Result<> Demonstration::pull_out(std::size_t server, bool out) {
    return ask(std::string(out ? pull_out_order : put_back_order) + std::to_string(server));
}

std::string Demonstration::client_file(const std::string& name) const {
    return m_folder.empty() ? std::string() : m_folder + "/client/" + name;
}

Result<> Demonstration::wait_until_synchronised(Execute& execute, const std::string& chronyc,
                                                std::chrono::milliseconds time_limit) const {
    constexpr std::chrono::milliseconds pause(100);
    // chronyc asks by itself, so often and with such pauses, whatever the remaining correction and skew.
    const auto tries = std::to_string(time_limit / pause + 1);
    const auto result = execute.run(
        {chronyc, {"-h", socket(), "waitsync", tries, "0", "0", "0.1"}, time_limit + std::chrono::seconds(1)});
    if (result.outcome == ExecuteOutcome::exited && result.exit_status == 0)
        return {};
    if (result.outcome != ExecuteOutcome::exited)
        return tl::unexpected(result.failure.value_or(Failure()));
    return failed(FailureCode::demonstration_not_synchronised,
                  {fmt::format("{:.3g}", std::chrono::duration<double>(time_limit).count())});
}

} // namespace tickervantage
