#include "linux/autostart.h"

#include "base/text_lines.h"
#include "linux/desktop_applications.h"
#include "linux/small_file.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::size_t size_limit = 256U << 10U;
constexpr std::string_view group = "[Desktop Entry]";

// As one word of the key Exec: quoted, with the backslashes of the quotes doubled because the value is a string, too.
std::string exec_word(std::string_view program) {
    std::string word = "\"";
    for (const char c : program) {
        if (c == '"' || c == '`' || c == '$')
            word += "\\\\";
        if (c == '\\')
            word += "\\\\\\";
        if (c == '%')
            word += '%';
        word += c;
    }
    return word + '"';
}

// Whether the line is one of the two switches that desktops know.
bool is_switch(std::string_view line) {
    const auto key = trimmed(line.substr(0, std::min(line.find('='), line.size())));
    return key == "Hidden" || key == "X-GNOME-Autostart-enabled";
}

// Calls `visit` with every line, and whether it is one of the two switches of the main group.
template <typename Visit>
void visit_lines(std::string_view text, Visit visit) {
    bool in_group = false;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        const auto line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (trimmed(line).starts_with('['))
            in_group = trimmed(line) == group;
        visit(line, in_group && is_switch(line));
    }
}

bool is_switched_on(std::string_view text) {
    bool on = true;
    visit_lines(text, [&on](std::string_view line, bool is_a_switch) {
        const auto value = trimmed(line.substr(std::min(line.find('=') + 1, line.size())));
        if (is_a_switch && value == (trimmed(line).starts_with("Hidden") ? "true" : "false"))
            on = false;
    });
    return on;
}

bool starts_something(std::string_view text, const std::string& path) {
    const auto application = parse_desktop_file(text, path);
    if (!application || !is_switched_on(text))
        return false;
    const auto& program = application->argv.front();
    return !program.starts_with('/') || ::access(program.c_str(), X_OK) == 0;
}

} // namespace

std::string autostart_text(std::string_view program) {
    return std::string(group) +
           "\nType=Application\n"
           "Name=Tickervantage\n"
           "Comment=Watch and control the system clock\n"
           "Icon=net.brisklane.tickervantage\n"
           "Exec=" +
           exec_word(program) + "\nTerminal=false\n";
}

std::string switched(std::string_view text, bool on) {
    std::string result;
    visit_lines(text, [&](std::string_view line, bool is_a_switch) {
        if (is_a_switch)
            return;
        result.append(line).append("\n");
        if (!on && trimmed(line) == group)
            result += "Hidden=true\n";
    });
    return result;
}

Autostart::Autostart(const std::string& folder, std::string program)
    : m_folder(folder), m_path(folder + "/net.brisklane.tickervantage.desktop"), m_program(std::move(program)) {}

int Autostart::writePlist(std::string& sentence) const {
    if (make_private_folder(m_folder, sentence) != 0)
        return -1;
    const SmallFile there = read_small_file(m_path, size_limit);
    if (there.outcome == SmallFile::Outcome::missing)
        return replace_small_file(m_path, autostart_text(m_program), sentence);
    const std::string kept = switched(there.bytes, true);
    if (there.outcome == SmallFile::Outcome::read && starts_something(kept, m_path))
        return kept == there.bytes ? 0 : replace_small_file(m_path, kept, sentence);
    std::string kept_as; // beside the new file, where the user finds it
    return set_file_aside(m_path, kept_as, sentence) == 0
               ? replace_small_file(m_path, autostart_text(m_program), sentence)
               : -1;
}

bool Autostart::agentIsValid() const {
    const SmallFile file = read_small_file(m_path, size_limit);
    return file.outcome == SmallFile::Outcome::read && starts_something(file.bytes, m_path);
}

int Autostart::unlinkAgent(std::string& sentence) const {
    const SmallFile file = read_small_file(m_path, size_limit);
    if (file.outcome == SmallFile::Outcome::missing)
        return 0;
    if (file.outcome == SmallFile::Outcome::read && file.bytes != autostart_text(m_program))
        return replace_small_file(m_path, switched(file.bytes, false), sentence);
    if (::unlink(m_path.c_str()) == 0)
        return 0;
    sentence = "Cannot remove " + m_path + ": " + std::generic_category().message(errno) + ".";
    return -1;
}

} // namespace tickervantage
