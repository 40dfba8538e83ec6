#include "chrony/configuration/server_list.h"

#include "base/number_text.h"
#include "base/text_lines.h"
#include "base/translatable.h"
#include "chrony/configuration/local_host.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace tickervantage {
namespace {

constexpr std::int64_t chrony_smallest = -7;
constexpr std::int64_t chrony_largest = 24;
constexpr std::string_view pool_word = "pool";
constexpr std::string_view pool_field = ":pool"; // as it stands behind the five fields

// Cuts the text up to the next separator off its front.
std::string_view take_until(std::string_view& rest, char separator) {
    const auto end = std::min(rest.find(separator), rest.size());
    const auto piece = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return piece;
}

bool read_poll(std::string_view text, std::int64_t& poll) {
    const auto number = poll_in(text);
    poll = number.value_or(poll);
    return number.has_value();
}

bool read_flag(std::string_view text, bool& flag) {
    flag = text == "true";
    return flag || text == "false";
}

std::string format_server(const server_data& server) {
    if (!server.garbled.empty())
        return server.garbled;
    return server.title + ":" + server.address + ":" + std::to_string(server.maxpoll) + ":" +
           std::to_string(server.minpoll) + (server.iburst ? ":true" : ":false") + server.more;
}

bool chrony_takes(std::int64_t poll) {
    return poll >= chrony_smallest && poll <= chrony_largest;
}

server_data imported(const std::vector<std::string_view>& line) {
    server_data server{.title = std::string(line[1]),
                       .address = std::string(line[1]),
                       .maxpoll = *CHRONY_POLLS.maxpoll,
                       .minpoll = *CHRONY_POLLS.minpoll};
    set_pool(server, is_word(line[0], pool_word));
    for (std::size_t i = 2; i < line.size(); ++i) {
        const bool has_value = i + 1 < line.size();
        if (is_word(line[i], "iburst"))
            server.iburst = true;
        else if (has_value && is_word(line[i], "minpoll"))
            (void)read_poll(line[++i], server.minpoll); // chrony would have refused anything but a number
        else if (has_value && is_word(line[i], "maxpoll"))
            (void)read_poll(line[++i], server.maxpoll);
    }
    server.minpoll = std::min(server.minpoll, LARGEST_POLL);
    server.maxpoll = std::clamp(server.maxpoll, server.minpoll, LARGEST_POLL); // as chrony raises it
    return server;
}

bool has_address(const std::vector<server_data>& servers, const std::string& address) {
    return std::ranges::find(servers, address, &server_data::address) != servers.end();
}

} // namespace

bool is_word(std::string_view text, std::string_view word) {
    return std::ranges::equal(text, word, [](unsigned char a, unsigned char b) { return std::tolower(a) == b; });
}

bool is_pool(const server_data& server) {
    return server.more == pool_field || server.more.starts_with(std::string(pool_field) + ':');
}

void set_pool(server_data& server, bool pool) {
    if (is_pool(server) == pool)
        return;
    if (pool)
        server.more.insert(0, pool_field);
    else
        server.more.erase(0, pool_field.size());
}

std::optional<std::int64_t> poll_in(std::string_view text) {
    text = trimmed(text);
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    return number_from_text<std::int64_t>(text);
}

server_data parse_server(std::string_view line) {
    constexpr std::size_t known_fields = 5;
    std::vector<std::string_view> fields;
    std::size_t start = 0;
    while (start <= line.size() && fields.size() < known_fields) {
        fields.push_back(line.substr(start, line.find(':', start) - start));
        start += fields.back().size() + 1;
    }
    server_data server;
    server.title = fields[0];
    if (fields.size() > 1)
        server.address = fields[1];
    bool clear = fields.size() < 3 || read_poll(fields[2], server.maxpoll);
    clear = (fields.size() < 4 || read_poll(fields[3], server.minpoll)) && clear;
    clear = (fields.size() < 5 || read_flag(fields[4], server.iburst)) && clear;
    if (start <= line.size())
        server.more = line.substr(start - 1);
    if (!clear)
        server.garbled = line;
    return server;
}

std::vector<server_data> parse_servers(std::string_view text) {
    std::vector<server_data> servers;
    while (!text.empty()) {
        auto line = take_until(text, '\n');
        while (line.ends_with('\r'))
            line.remove_suffix(1);
        if (!line.empty())
            servers.push_back(parse_server(line));
    }
    return servers;
}

std::string format_servers(const std::vector<server_data>& servers) {
    std::string text;
    for (const auto& server : servers)
        text += format_server(server) + "\n";
    return text;
}

ServerProblem check_server(const server_data& server) {
    const auto parts = words(server.address).size();
    if (parts == 0)
        return ServerProblem::address_missing;
    if (server.address.find(':') != std::string::npos)
        return ServerProblem::address_has_colon;
    if (parts > 1)
        return ServerProblem::address_has_blanks;
    if (server.maxpoll > LARGEST_POLL)
        return ServerProblem::maxpoll_too_large;
    if (server.minpoll > LARGEST_POLL)
        return ServerProblem::minpoll_too_large;
    return server.maxpoll < server.minpoll ? ServerProblem::maxpoll_below_minpoll : ServerProblem::none;
}

ServerProblem check_title(std::string_view title) {
    if (trimmed(title).empty())
        return ServerProblem::title_missing;
    return title.find_first_of(":\r\n") == std::string_view::npos ? ServerProblem::none
                                                                  : ServerProblem::title_has_colon;
}

ServerField field_of(ServerProblem problem) {
    using enum ServerProblem;
    switch (problem) {
    case none:
        return ServerField::none;
    case address_missing:
    case address_has_colon:
    case address_has_blanks:
        return ServerField::address;
    case maxpoll_no_number:
    case maxpoll_too_large:
        return ServerField::maxpoll;
    case minpoll_no_number:
    case minpoll_too_large:
    case maxpoll_below_minpoll:
        return ServerField::minpoll;
    default:
        return ServerField::title;
    }
}

const char* sentence_of(ServerProblem problem) {
    static constexpr std::array sentences{
        "",
        //: server window: said below a field whose value is not valid
        TV_TEXT("servers", "A server needs a name or an address."),
        //: server window: said below a field whose value is not valid
        TV_TEXT("servers", "An IPv6 address has no place in the list's file; use a name."),
        //: server window: said below a field whose value is not valid
        TV_TEXT("servers", "A name or an address has no blanks."),
        //: server window: said below a field whose value is not valid
        TV_TEXT("servers", "The longest interval is not a whole number."),
        //: server window: said below a field whose value is not valid
        TV_TEXT("servers", "The shortest interval is not a whole number."),
        //: server window: said below a field whose value is not valid
        TV_TEXT("servers", "The longest interval is at most 16 (18 hours)."),
        //: server window: said below a field whose value is not valid
        TV_TEXT("servers", "The shortest interval is at most 16 (18 hours)."),
        //: server window: said below a field whose value is not valid
        TV_TEXT("servers", "The shortest interval is longer than the longest."),
        //: server window: said below a field whose value is not valid
        TV_TEXT("servers", "A title needs a letter or two."),
        //: server window: said below a field whose value is not valid
        TV_TEXT("servers", "The list's file cannot hold a colon, so a title has none."),
    };
    return sentences.at(static_cast<std::size_t>(problem));
}

LinePolls polls_of_line(const server_data& server) {
    const server_data fresh;
    // Where the smallest exceeds chrony's own largest, chrony would not go beyond it.
    const bool maxpoll_typed = server.maxpoll != fresh.maxpoll || server.minpoll > *CHRONY_POLLS.maxpoll;
    const bool minpoll_typed = server.minpoll != fresh.minpoll || (maxpoll_typed && is_local_host(server.address));
    LinePolls polls;
    if (minpoll_typed && chrony_takes(server.minpoll) && server.minpoll != CHRONY_POLLS.minpoll)
        polls.minpoll = server.minpoll;
    if (maxpoll_typed && chrony_takes(server.maxpoll) && server.maxpoll != CHRONY_POLLS.maxpoll)
        polls.maxpoll = server.maxpoll;
    return polls;
}

bool asks_too_often(const server_data& server) {
    return asks_too_often(server.address, polls_of_line(server).minpoll.value_or(*CHRONY_POLLS.minpoll));
}

std::string chrony_line(const server_data& server) {
    const LinePolls polls = polls_of_line(server);
    std::string line = (is_pool(server) ? "pool " : "server ") + server.address;
    if (polls.minpoll)
        line += " minpoll " + std::to_string(*polls.minpoll);
    if (polls.maxpoll)
        line += " maxpoll " + std::to_string(*polls.maxpoll);
    return server.iburst ? line + " iburst" : line;
}

std::string chrony_lines(const std::vector<server_data>& servers) {
    std::string text;
    for (const auto& server : servers) {
        const auto problem = check_server(server);
        text +=
            problem == ServerProblem::none ? chrony_line(server) : "# " + server.title + ": " + sentence_of(problem);
        text += '\n';
    }
    return text;
}

ImportedServers import_servers(std::string_view configuration, const std::vector<server_data>& present) {
    ImportedServers result;
    for (const auto line : non_empty_lines(configuration)) {
        const auto parts = words(line);
        if (parts.size() < 2 || !(is_word(parts[0], "server") || is_word(parts[0], pool_word)))
            continue;
        server_data server = imported(parts);
        if (server.address.find(':') != std::string::npos)
            ++result.colons;
        else if (has_address(present, server.address) || has_address(result.servers, server.address))
            ++result.known;
        else
            result.servers.push_back(std::move(server));
    }
    return result;
}

} // namespace tickervantage
