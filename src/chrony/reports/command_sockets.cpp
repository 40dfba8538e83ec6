#include "chrony/reports/command_sockets.h"

#include "base/number_text.h"
#include "base/text_lines.h"

#include <arpa/inet.h>
#include <fmt/format.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace tickervantage {
namespace {

namespace fs = std::filesystem;
using Sockets = std::optional<std::vector<CommandSocket>>;

const std::string own_socket = "/run/chrony/chronyd.sock";

struct Asked {
    std::vector<std::string> hosts{own_socket, "127.0.0.1", "::1"};
    std::uint16_t port = 323;
};

// Any other option makes no difference here.
std::optional<Asked> asked_by(const std::vector<std::string>& arguments) {
    Asked asked;
    for (std::size_t at = 0; at + 1 < arguments.size(); ++at) {
        const std::string& value = arguments[at + 1];
        if (arguments[at] == "-h") {
            asked.hosts.clear();
            for (std::size_t from = 0; from <= value.size(); from = std::min(value.find(',', from), value.size()) + 1)
                asked.hosts.push_back(value.substr(from, std::min(value.find(',', from), value.size()) - from));
        }
        if (arguments[at] == "-p" && !read_number(value, asked.port))
            return std::nullopt;
    }
    return asked;
}

std::optional<std::string> contents_of(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(file), {});
}

// chronyc puts its own socket beside the one that it asks.
bool is_in_reach(const fs::path& path) {
    return ::access(path.parent_path().c_str(), W_OK | X_OK) == 0;
}

// A daemon that was killed leaves its socket's file.
bool has_listener(const std::string& path) {
    sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
    if (path.copy(address.sun_path, sizeof address.sun_path) == sizeof address.sun_path)
        return false; // too long to be one
    const int socket = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    const bool is_heard = ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    ::close(socket);
    return is_heard;
}

Sockets unix_sockets(const std::string& path, const std::string& root) {
    struct stat there {};
    if (!is_in_reach(root + path) || ::stat((root + path).c_str(), &there) != 0 || !has_listener(root + path))
        return std::vector<CommandSocket>();
    const auto table = contents_of(root + "/proc/net/unix");
    if (!table)
        return std::nullopt;
    auto sockets = sockets_named(*table, path);
    for (CommandSocket& socket : sockets)
        socket.maker = there.st_uid;
    return sockets.empty() ? Sockets() : sockets; // empty: whoever listens does so in another network
}

// As the kernel's table writes an address: its 32-bit words as this machine reads them.
template <std::size_t Words>
std::string in_table(const void* address, std::uint16_t port) {
    std::array<std::uint32_t, Words> words{};
    std::memcpy(words.data(), address, sizeof words);
    std::string text;
    for (const std::uint32_t word : words)
        text += fmt::format("{:08X}", word);
    return text + fmt::format(":{:04X}", port);
}

struct UdpPlace {
    const char* table;
    std::string address;
    std::string any; // bound to every address
    bool is_loopback;
};

std::optional<UdpPlace> udp_place(const std::string& host, std::uint16_t port) {
    in_addr four{};
    if (::inet_pton(AF_INET, host.c_str(), &four) == 1)
        return UdpPlace{"/proc/net/udp", in_table<1>(&four, port), fmt::format("{:08X}:{:04X}", 0, port),
                        host.starts_with("127.")};
    in6_addr six{};
    if (::inet_pton(AF_INET6, host.c_str(), &six) == 1)
        return UdpPlace{"/proc/net/udp6", in_table<4>(&six, port), fmt::format("{:032X}:{:04X}", 0, port),
                        IN6_IS_ADDR_LOOPBACK(&six)};
    return std::nullopt;
}

Sockets udp_sockets(const std::string& host, std::uint16_t port, const std::string& root) {
    const auto place = udp_place(host, port);
    const auto table = place ? contents_of(root + place->table) : std::nullopt;
    if (!table)
        return place && host.find(':') != std::string::npos ? std::vector<CommandSocket>() : Sockets(); // without IPv6
    auto sockets = sockets_at(*table, place->address);
    if (sockets.empty() && place->is_loopback)
        return sockets_at(*table, place->any);
    return sockets.empty() ? Sockets() : sockets; // another machine's address
}

} // namespace

std::vector<CommandSocket> sockets_at(std::string_view udp_table, std::string_view address) {
    std::vector<CommandSocket> sockets;
    for (const std::string_view line : non_empty_lines(udp_table)) {
        const auto columns = words(line);
        CommandSocket socket;
        if (columns.size() < 10 || columns[1] != address || !read_number(columns[7], socket.maker))
            continue;
        socket.inode = columns[9];
        sockets.push_back(std::move(socket));
    }
    return sockets;
}

std::vector<CommandSocket> sockets_named(std::string_view unix_table, const std::string& path) {
    constexpr std::string_view datagrams = "0002";
    std::error_code ignored;
    const fs::path wanted = fs::weakly_canonical(path, ignored);
    std::vector<CommandSocket> sockets;
    for (const std::string_view line : non_empty_lines(unix_table)) {
        const auto columns = words(line);
        if (columns.size() < 8 || columns[4] != datagrams || !columns[7].starts_with('/'))
            continue;
        const fs::path bound =
            line.substr(static_cast<std::size_t>(columns[7].data() - line.data())); // with its blanks
        if (bound.filename() == wanted.filename() && fs::weakly_canonical(bound, ignored) == wanted)
            sockets.push_back({.inode = std::string(columns[6]), .path = path});
    }
    return sockets;
}

std::optional<std::vector<CommandSocket>> command_sockets(const std::vector<std::string>& chronyc_arguments,
                                                          const std::string& root) {
    const auto asked = asked_by(chronyc_arguments);
    if (!asked)
        return std::nullopt;
    for (const std::string& host : asked->hosts) {
        auto sockets = host.starts_with('/') ? unix_sockets(host, root) : udp_sockets(host, asked->port, root);
        if (!sockets || !sockets->empty())
            return sockets;
    }
    return std::vector<CommandSocket>();
}

} // namespace tickervantage
