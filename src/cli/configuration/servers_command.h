// What `tickerctl servers` says: the list of servers as text, as one JSON document, or as lines for chrony.conf.
#pragma once

#include "chrony/configuration/server_list.h"

#include <iosfwd>
#include <vector>

namespace tickervantage {

enum class ServersForm : unsigned char { text, json, config };

// 0: every server is valid; 1: one is not. In a configuration such a server is a comment that says why.
int print_servers(const std::vector<server_data>& servers, ServersForm form, std::ostream& out);

} // namespace tickervantage
