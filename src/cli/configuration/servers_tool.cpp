#include "cli/configuration/servers_command.h"
#include "cli/terminal.h"
#include "cli/tool.h"
#include "linux/shared_text_file.h"

#include <iostream>

namespace tickervantage {

// Nobody who never made a list has made a mistake: that one is empty.
int Tool::servers() const {
    using Outcome = FileReading::Outcome;
    const auto& named = m_arguments.servers.file;
    const std::string path = named.value_or(m_paths.data_home + "/Tickervantage/servers.txt");
    const FileReading list = SharedTextFile(path).read();
    if (list.outcome != Outcome::read && (list.outcome != Outcome::missing || named))
        return fail_to_read(path, list);
    const ServersForm form = m_arguments.json                ? ServersForm::json
                             : m_arguments.servers.as_config ? ServersForm::config
                                                             : ServersForm::text;
    return print_servers(parse_servers(list.bytes), form, std::cout);
}

} // namespace tickervantage
