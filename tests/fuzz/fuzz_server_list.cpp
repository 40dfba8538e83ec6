// Any bytes as a server list and as a configuration to import from: what is saved reads back as the same servers, and
// what goes to chrony is one line a server.
#include "chrony/configuration/server_list.h"
#include "fuzz/require.h"

#include <algorithm>

FUZZED(text) {
    const auto servers = parse_servers(text);
    const auto saved = format_servers(servers);
    require(parse_servers(saved) == servers);
    require(format_servers(parse_servers(saved)) == saved);

    const auto lines = chrony_lines(servers);
    require(static_cast<std::size_t>(std::ranges::count(lines, '\n')) == servers.size());

    const auto imported = import_servers(text, servers);
    auto all = servers;
    for (const auto& server : imported.servers) {
        require(check_server(server) == ServerProblem::none);
        all.push_back(server);
    }
    require(import_servers(text, all).servers.empty());
}
