// The user's own list of NTP servers: its text form, its rules, and its way to and from chrony's configuration.
//
// The text has one server a line: title, address, maxpoll, minpoll, iburst ("true" or "false"), joined by ":", and for
// a pool the word "pool" behind them. So no field can hold a colon, and IPv6 addresses have no place in the list. Polls
// are exponents of two, in seconds; chrony knows -7 to 24. Reading never fails: what a line lacks or has garbled stands
// at the defaults of a new server. Sources: chrony.conf(5), "server" and "pool". Any thread.
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

// Whether the name stands for several servers, of which chrony takes some. Kept in what stands behind the fields.
[[nodiscard]] bool is_pool(const server_data& server);
void set_pool(server_data& server, bool pool);

inline constexpr std::int64_t LARGEST_POLL = 16; // that the list takes

// Empty lines are passed over; a line may end in CR LF.
[[nodiscard]] std::vector<server_data> parse_servers(std::string_view text);
[[nodiscard]] server_data parse_server(std::string_view line);
[[nodiscard]] std::string format_servers(const std::vector<server_data>& servers);

enum class ServerProblem : unsigned char {
    none,
    address_missing,
    address_has_colon,
    address_has_blanks,
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

// Whether the text is the word, whatever its letters' case; `word` has small ones.
[[nodiscard]] bool is_word(std::string_view text, std::string_view word);

// A decimal integer, white space around it allowed.
[[nodiscard]] std::optional<std::int64_t> poll_in(std::string_view text);

// What the server's line says of its polls; none: they are left to chrony, whose own are CHRONY_POLLS. So is what
// chrony would take anyway or would not take, and what nobody typed: the polls of a new server, which would ask once a
// second. A smallest poll of 0 counts as typed for a host of the local network whose largest was typed.
struct LinePolls {
    std::optional<std::int64_t> minpoll = {};
    std::optional<std::int64_t> maxpoll = {};
};
[[nodiscard]] LinePolls polls_of_line(const server_data& server);
inline constexpr LinePolls CHRONY_POLLS{6, 10};

// Whether the line would ask a server of others more often than they like.
[[nodiscard]] bool asks_too_often(const server_data& server);

// "server ADDRESS minpoll N maxpoll M iburst", or "pool" in place of "server".
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
