#include "chrony/data/capture.h"

#include "base/failure_codes.h"
#include "base/text_lines.h"

#include <utility>

namespace tickervantage {
namespace {

constexpr std::string_view configuration_word = "configuration ";

// The line without its end; chronyc's lines may come from a file that was edited elsewhere.
std::string_view next_line(std::string_view& text) {
    const std::size_t length = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, length);
    text.remove_prefix(std::min(length + 1, text.size()));
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

class CaptureReader {
public:
    Result<> read(std::string_view line, std::size_t number) {
        const bool marked = line.size() > 1 && line[1] == ' ';
        const char mark = line.empty() || !(marked || line.size() == 1) ? '\0' : line.front();
        const std::string_view rest = marked ? line.substr(2) : std::string_view();
        if (mark == '@')
            return add_fact(rest), Result<>();
        if (mark == '>')
            return begin(rest), Result<>();
        if (mark == '!' && m_report != nullptr)
            return m_report->refusal = rest, Result<>();
        if (mark == '|' && m_file != nullptr)
            return add(m_file->text, rest), Result<>();
        if (m_report != nullptr)
            return add(m_report->text, line), Result<>();
        if (trimmed(line).empty() || line.starts_with('#'))
            return {};
        return failed(FailureCode::no_capture_line, {std::to_string(number)});
    }

    Capture take() { return std::move(m_capture); }

private:
    void add_fact(std::string_view rest) {
        const std::size_t blank = std::min(rest.find(' '), rest.size());
        m_capture.facts[std::string(rest.substr(0, blank))] = trimmed(rest.substr(blank));
        m_report = nullptr;
        m_file = nullptr;
    }

    void begin(std::string_view name) {
        m_report = nullptr;
        m_file = nullptr;
        name = trimmed(name);
        if (name.starts_with(configuration_word))
            m_file = &m_capture.configuration.emplace_back(
                CapturedFile{.path = std::string(name.substr(configuration_word.size())), .text = {}});
        else
            m_report = &m_capture.reports[std::string(name)];
    }

    static void add(std::string& text, std::string_view line) {
        text += line;
        text += '\n';
    }

    Capture m_capture;
    CapturedReport* m_report = nullptr; // what lines belong to; maps keep their addresses
    CapturedFile* m_file = nullptr;
};

void write_lines(std::string& to, std::string_view text, std::string_view mark) {
    while (!text.empty()) {
        to += mark;
        to += next_line(text);
        to += '\n';
    }
}

} // namespace

bool is_capture(std::string_view text) {
    return next_line(text) == capture_heading;
}

Result<Capture> parse_capture(std::string_view text) {
    if (text.size() > largest_capture)
        return failed(FailureCode::is_larger_than, {std::to_string(largest_capture)});
    if (next_line(text) != capture_heading)
        return failed(FailureCode::no_capture);
    CaptureReader reader;
    for (std::size_t number = 2; !text.empty(); ++number)
        if (auto done = reader.read(next_line(text), number); !done)
            return tl::unexpected(std::move(done).error());
    return reader.take();
}

std::string to_text(const Capture& capture) {
    std::string text = std::string(capture_heading) + '\n';
    for (const auto& [name, value] : capture.facts)
        text += "@ " + name + ' ' + value + '\n';
    for (const auto& [command, report] : capture.reports) {
        text += "> " + command + '\n';
        if (!report.refusal.empty())
            text += "! " + report.refusal + '\n';
        write_lines(text, report.text, "");
    }
    for (const CapturedFile& file : capture.configuration) {
        text += "> " + std::string(configuration_word) + file.path + '\n';
        write_lines(text, file.text, "| ");
    }
    return text;
}

} // namespace tickervantage
