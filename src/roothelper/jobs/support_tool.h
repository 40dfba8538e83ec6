// The command lines that the support tool of the bundle takes, as the root helper understands them.
//
// A quoted argument stands between double quotes as it is: a quote inside it is not escaped, and the helper refuses the
// line.
#pragma once

#include <string>

namespace tickervantage {

class SupportTool {
public:
    static constexpr const char* owner = "root:wheel";
    static constexpr const char* file_mode = "0644";
    static constexpr const char* program_mode = "0755";

    explicit SupportTool(const std::string& bundle) : m_tool('"' + bundle + "/Contents/MacOS/chronysupport\"") {}

    [[nodiscard]] std::string install_item(const std::string& source, const std::string& destination,
                                           const std::string& mode) const;
    // Judges what install_item would install, asking what there is to be asked.
    [[nodiscard]] std::string check_item(const std::string& source, const std::string& destination,
                                         const std::string& mode) const;
    // Puts back what the last configuration installed there had replaced.
    [[nodiscard]] std::string restore_former(const std::string& destination) const;
    [[nodiscard]] std::string remove_item(const std::string& path) const;
    // The folder that something is installed into.
    [[nodiscard]] std::string create_parent(const std::string& folder) const;
    // A folder of the daemon's own.
    [[nodiscard]] std::string create_directory(const std::string& folder) const;
    [[nodiscard]] std::string add_user(const std::string& name) const;
    [[nodiscard]] std::string step_time(double seconds) const;
    // Of the distribution's chrony.
    [[nodiscard]] std::string adjust_clock(bool on) const;
    [[nodiscard]] std::string rotate_logs(const std::string& script, const std::string& log_folder) const;
    // A verb without arguments: stopchrony, startchrony, stopwake, startwake; guardchrony before a stop that must not
    // last, resumechrony to undo it.
    [[nodiscard]] std::string verb(const std::string& name) const;

private:
    std::string m_tool; // in quotes
};

} // namespace tickervantage
