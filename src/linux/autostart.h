// Starting the program at login, through a desktop file in the user's autostart folder.
//
// A file there that the user changed is kept: it is switched on and off by the keys that desktops themselves use, and
// only a file that is as we wrote it is removed. Files are replaced in one step. On a queue.
// Source: the desktop application autostart rules, version 0.5 (freedesktop.org).
#pragma once

#include "base/launch_at_login.h"

#include <string>
#include <string_view>

namespace tickervantage {

class Autostart : public LaunchAtLogin {
public:
    // The folder is $XDG_CONFIG_HOME/autostart; it is made before the first write. `program` is an absolute path.
    Autostart(const std::string& folder, std::string program);

    [[nodiscard]] int writePlist(Failure& failure) const override;
    [[nodiscard]] int unlinkAgent(Failure& failure) const override;
    [[nodiscard]] bool agentIsValid() const override;

private:
    [[nodiscard]] Result<> write() const;
    [[nodiscard]] Result<> remove() const;

    std::string m_folder;
    std::string m_path;
    std::string m_program;
};

// The text of the desktop file that starts the program.
[[nodiscard]] std::string autostart_text(std::string_view program);

// The same text of a desktop file, switched on or off; all its other lines stay.
[[nodiscard]] std::string switched(std::string_view text, bool on);

} // namespace tickervantage
