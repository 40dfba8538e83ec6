#include "linux/autostart.h"

#include "base/failure_codes.h"
#include "base/text_lines.h"
#include "linux/small_file.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>
#include <vector>

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

struct Line {
    std::string_view text;
    std::string_view key = {}; // of the main group; none: the line belongs to another, or holds no value
    std::string_view value = {};

    [[nodiscard]] bool is_group() const { return trimmed(text) == group; }
    // Desktops know two keys that switch a file off.
    [[nodiscard]] bool is_switch() const { return key == "Hidden" || key == "X-GNOME-Autostart-enabled"; }
    [[nodiscard]] bool switches_off() const { return is_switch() && value == (key == "Hidden" ? "true" : "false"); }
};

std::vector<Line> lines_of(std::string_view text) {
    std::vector<Line> lines;
    bool in_group = false;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        Line line{text.substr(0, end)};
        text.remove_prefix(std::min(end + 1, text.size()));
        const auto equals = line.text.find('=');
        if (trimmed(line.text).starts_with('['))
            in_group = line.is_group();
        else if (in_group && equals != std::string_view::npos)
            line = {line.text, trimmed(line.text.substr(0, equals)), trimmed(line.text.substr(equals + 1))};
        lines.push_back(line);
    }
    return lines;
}

// Whether the program of a key Exec can be run. A name on the search path and a name with signs of quoting are
// believed.
bool is_runnable(std::string_view exec, std::string_view own_program) {
    std::string program(own_program);
    if (exec != exec_word(own_program)) {
        const bool quoted = exec.starts_with('"');
        exec.remove_prefix(quoted ? 1 : 0);
        program = exec.substr(0, exec.find_first_of(quoted ? "\"" : " \t"));
    }
    const bool is_path = program.starts_with('/') && program.find('\\') == std::string::npos;
    return !program.empty() && (!is_path || ::access(program.c_str(), X_OK) == 0);
}

bool starts_something(std::string_view text, std::string_view own_program) {
    const auto lines = lines_of(text);
    const auto exec = std::ranges::find(lines, "Exec", &Line::key);
    return std::ranges::none_of(lines, &Line::switches_off) && exec != lines.end() &&
           is_runnable(exec->value, own_program);
}

int reported(const Result<>& done, Failure& failure) {
    if (done)
        return 0;
    failure = done.error();
    return -1;
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
    for (const auto& line : lines_of(text)) {
        if (line.is_switch())
            continue;
        result.append(line.text).append("\n");
        if (!on && line.is_group())
            result += "Hidden=true\n";
    }
    return result;
}

Autostart::Autostart(const std::string& folder, std::string program)
    : m_folder(folder), m_path(folder + "/net.brisklane.tickervantage.desktop"), m_program(std::move(program)) {}

int Autostart::writePlist(Failure& failure) const {
    return reported(write(), failure);
}

Result<> Autostart::write() const {
    if (auto made = make_private_folder(m_folder); !made)
        return made;
    const FileReading there = read_small_file(m_path, size_limit);
    if (there.outcome == FileReading::Outcome::missing)
        return replace_small_file(m_path, autostart_text(m_program));
    const std::string kept = switched(there.bytes, true);
    if (there.outcome == FileReading::Outcome::read && starts_something(kept, m_program))
        return kept == there.bytes ? Result<>() : replace_small_file(m_path, kept);
    return set_file_aside(m_path).and_then([&](const std::string&) { // beside the new file, where the user finds it
        return replace_small_file(m_path, autostart_text(m_program));
    });
}

bool Autostart::agentIsValid() const {
    const FileReading file = read_small_file(m_path, size_limit);
    return file.outcome == FileReading::Outcome::read && starts_something(file.bytes, m_program);
}

int Autostart::unlinkAgent(Failure& failure) const {
    return reported(remove(), failure);
}

Result<> Autostart::remove() const {
    const FileReading file = read_small_file(m_path, size_limit);
    if (file.outcome == FileReading::Outcome::missing)
        return {};
    if (file.outcome == FileReading::Outcome::read && file.bytes != autostart_text(m_program))
        return replace_small_file(m_path, switched(file.bytes, false));
    if (::unlink(m_path.c_str()) != 0)
        return failed(FailureCode::cannot_remove, {m_path}, errno);
    return {};
}

} // namespace tickervantage
