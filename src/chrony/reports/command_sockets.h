// Where chronyc asks, and which sockets of this machine lie there. Sources: chronyc(1) options -h and -p, proc(5),
// proc_pid_net(5).
#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

struct CommandSocket {
    std::string inode; // as /proc/PID/fd names it in "socket:[INODE]"
    uid_t maker = 0;   // who made it: root, where chronyd gave its rights up only later
    std::string path;  // of a Unix socket; empty: UDP
    friend bool operator==(const CommandSocket&, const CommandSocket&) = default;
};

// The sockets that chronyc reaches first when it is run with these arguments before its command; several where more
// than one bears the same name. Empty: nobody listens there. None: they are another machine's, or cannot be found out.
// `root` is the folder that this machine's files lie in. Costs one or two files of the kernel; any thread.
[[nodiscard]] std::optional<std::vector<CommandSocket>>
command_sockets(const std::vector<std::string>& chronyc_arguments, const std::string& root = {});

// The same out of the kernel's tables: /proc/net/udp (an address as it is written there, "0100007F:0143") and
// /proc/net/unix. Lines of another form are passed over.
[[nodiscard]] std::vector<CommandSocket> sockets_at(std::string_view udp_table, std::string_view address);
[[nodiscard]] std::vector<CommandSocket> sockets_named(std::string_view unix_table, const std::string& path);

} // namespace tickervantage
