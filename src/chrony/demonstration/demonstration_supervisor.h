// The process that looks after the daemons of a demonstration. For Demonstration only.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tickervantage {

inline constexpr std::chrono::seconds demonstration_start_limit{5}; // for all daemons together

// What the supervisor is told, a message each; the last two with the number of a server behind them. It answers "ok" or
// what went wrong.
inline constexpr const char* restart_order = "restart";
inline constexpr std::string_view pull_out_order = "pull out ";
inline constexpr std::string_view put_back_order = "put back ";

[[nodiscard]] std::string demonstration_server_folder(const std::string& folder, std::size_t server);

struct DemonstrationTask {
    std::string chronyd;
    std::string user;   // the name of the user who runs all this
    std::string folder; // has the folders of the servers and "client"; removed at the end
    std::int64_t begun; // s since 1970: where the recorded day ends
    int hold;           // a socket that takes orders; its end means: clean up
    int news;           // a pipe; takes "ok" or what the daemons said, once
};

// To be called in a freshly forked child of a process with one thread. Ends the process.
[[noreturn]] void supervise_demonstration(const DemonstrationTask& task);

} // namespace tickervantage
