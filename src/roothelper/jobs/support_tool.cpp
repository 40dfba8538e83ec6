#include "roothelper/jobs/support_tool.h"

#include <fmt/format.h>

namespace tickervantage {

std::string SupportTool::verb(const std::string& name) const {
    return m_tool + ' ' + name;
}

std::string SupportTool::install_item(const std::string& source, const std::string& destination,
                                      const std::string& mode) const {
    return fmt::format(R"({} installitem "{}" "{}" "{}" "{}")", m_tool, source, destination, owner, mode);
}

std::string SupportTool::check_item(const std::string& source, const std::string& destination,
                                    const std::string& mode) const {
    return fmt::format(R"({} checkitem "{}" "{}" "{}" "{}")", m_tool, source, destination, owner, mode);
}

std::string SupportTool::remove_item(const std::string& path) const {
    return fmt::format(R"({} removeitem "{}")", m_tool, path);
}

std::string SupportTool::restore_former(const std::string& destination) const {
    return fmt::format(R"({} restoreformer "{}")", m_tool, destination);
}

std::string SupportTool::create_parent(const std::string& folder) const {
    return fmt::format(R"({} createdirectory "" "{}")", m_tool, folder);
}

std::string SupportTool::create_directory(const std::string& folder) const {
    return verb("createdirectory " + folder);
}

std::string SupportTool::add_user(const std::string& name) const {
    return verb("adduser " + name);
}

std::string SupportTool::step_time(double seconds) const {
    return verb(fmt::format("steptime {:g}", seconds));
}

std::string SupportTool::adjust_clock(bool on) const {
    return verb(on ? "adjustclock on" : "adjustclock off");
}

std::string SupportTool::rotate_logs(const std::string& script, const std::string& log_folder) const {
    return fmt::format(R"({} rotatelogs "{}" "{}")", m_tool, script, log_folder);
}

} // namespace tickervantage
