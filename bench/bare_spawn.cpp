#include "bench/bare_spawn.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>

namespace tickervantage::bench {
namespace {

[[noreturn]] void give_up(const char* what) {
    std::perror(what);
    std::exit(1);
}

} // namespace

std::string bare_spawn(const std::vector<std::string>& words) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        give_up("pipe");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    std::vector<char*> arguments;
    for (const auto& word : words)
        arguments.push_back(const_cast<char*>(word.c_str())); // posix_spawn's signature; it does not write
    arguments.push_back(nullptr);
    pid_t pid = -1;
    if (posix_spawn(&pid, arguments[0], &actions, nullptr, arguments.data(), environ) != 0)
        give_up(arguments[0]);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);

    std::string output;
    std::array<char, 65536> buffer; // NOLINT(cppcoreguidelines-pro-type-member-init): filled by read
    for (ssize_t count = 0; (count = read(ends[0], buffer.data(), buffer.size())) > 0;)
        output.append(buffer.data(), static_cast<std::size_t>(count));
    close(ends[0]);
    int status = 0;
    waitpid(pid, &status, 0);
    if (status != 0)
        give_up("a program that should succeed failed");
    return output;
}

} // namespace tickervantage::bench
