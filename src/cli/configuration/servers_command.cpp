#include "cli/configuration/servers_command.h"

#include "cli/json_text.h"
#include "cli/terminal.h"

#include <algorithm>
#include <ostream>

namespace tickervantage {
namespace {

bool is_valid(const server_data& server) {
    return check_server(server) == ServerProblem::none;
}

Json json_of(const std::vector<server_data>& servers) {
    Json document = Json::array();
    for (const auto& server : servers)
        document.push_back({{"title", server.title},
                            {"address", server.address},
                            {"maxpoll", server.maxpoll},
                            {"minpoll", server.minpoll},
                            {"iburst", server.iburst},
                            {"pool", is_pool(server)},
                            {"valid", is_valid(server)}});
    return document;
}

void print_line(const server_data& server, std::ostream& out) {
    std::string line = server.title + ": " + server.address + ", maxpoll " + std::to_string(server.maxpoll) +
                       ", minpoll " + std::to_string(server.minpoll) + (server.iburst ? ", iburst" : "") +
                       (is_pool(server) ? ", pool" : "");
    if (!is_valid(server))
        line += std::string("  INVALID: ") + sentence_of(check_server(server));
    else if (asks_too_often(server))
        line += "  TOO OFTEN: outside the local network minpoll 6, a request every 64 seconds, is the least.";
    out << one_line(line) << '\n';
}

} // namespace

int print_servers(const std::vector<server_data>& servers, ServersForm form, std::ostream& out) {
    if (form == ServersForm::json)
        out << json_text(json_of(servers));
    else if (form == ServersForm::config)
        out << chrony_lines(servers);
    else
        for (const auto& server : servers)
            print_line(server, out);
    return std::ranges::all_of(servers, is_valid) ? 0 : answer_is_no;
}

} // namespace tickervantage
