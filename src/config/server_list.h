// The user's own list of NTP servers: its text form, its rules, and its way to and from chrony's configuration.
//
// The text has one server a line: title, address, maxpoll, minpoll, iburst ("true" or "false"), joined by ":". So no
// field can hold a colon, and IPv6 addresses have no place in the list. Polls are exponents of two, in seconds; chrony
// knows -7 to 24. Reading never fails: what a line lacks or has garbled stands at the defaults of a new server.
// Sources: chrony.conf(5), "server" and "pool". Any thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

struct server_data {
    std::string title = "New Server";
    std::string address = "0.0.0.0";
    std::int64_t maxpoll = 16;
    std::int64_t minpoll = 0;
    bool iburst = false;

    std::string more = {};    // what the line has behind these, with its colon; kept when the list is saved
    std::string garbled = {}; // the line as it came when a field of it could not be read; saved until it is cleared

    bool operator==(const server_data&) const = default;
};

inline constexpr std::int64_t LARGEST_POLL = 16; // that the list takes

// Empty lines are passed over; a line may end in CR LF.
[[nodiscard]] std::vector<server_data> parse_servers(std::string_view text);
[[nodiscard]] server_data parse_server(std::string_view line);
[[nodiscard]] std::string format_servers(const std::vector<server_data>& servers);

enum class ServerProblem : unsigned char {
    none,
    address_missing,
    address_has_colon,
    maxpoll_no_number,
    minpoll_no_number,
    maxpoll_too_large,
    minpoll_too_large,
    maxpoll_below_minpoll,
    title_missing,
    title_has_colon,
};
enum class ServerField : unsigned char { none, title, address, maxpoll, minpoll };

// The first rule that the server breaks; negative polls pass. The title is not looked at.
[[nodiscard]] ServerProblem check_server(const server_data& server);
[[nodiscard]] ServerProblem check_title(std::string_view title);
[[nodiscard]] ServerField field_of(ServerProblem problem);    // that has to change
[[nodiscard]] const char* sentence_of(ServerProblem problem); // for people, to be looked up in the context "servers"

// A decimal integer, white space around it allowed.
[[nodiscard]] std::optional<std::int64_t> poll_in(std::string_view text);

// "server ADDRESS minpoll N maxpoll M iburst". What chrony takes anyway, or would not take, is left out.
[[nodiscard]] std::string chrony_line(const server_data& server);

// One line a server; one that breaks a rule becomes a comment that says why.
[[nodiscard]] std::string chrony_lines(const std::vector<server_data>& servers);

struct ImportedServers {
    std::vector<server_data> servers;
    std::size_t known = 0;  // in the list already
    std::size_t colons = 0; // IPv6 addresses
};

// The servers and pools that a configuration names directly, each address once; files that it includes are not read.
// The address becomes the title; an option that is not given stands at chrony's default.
[[nodiscard]] ImportedServers import_servers(std::string_view configuration, const std::vector<server_data>& present);

} // namespace tickervantage
