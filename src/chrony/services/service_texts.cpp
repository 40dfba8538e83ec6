#include "chrony/services/service_texts.h"

#include "chrony/services/service_definitions.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <string_view>

namespace tickervantage {
namespace {

bool is_plain(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9') ||
           std::string_view("/._-+=:,@").find(byte) != std::string_view::npos;
}

// A word of a command line. Specifiers (%) and variables ($) stand for themselves when they are doubled.
std::string word(std::string_view text) {
    std::string result;
    bool plain = !text.empty();
    for (const char byte : text) {
        plain = plain && is_plain(byte);
        if (byte == '"' || byte == '\\')
            result += '\\';
        else if (byte == '%' || byte == '$')
            result += byte;
        result += byte;
    }
    return plain ? result : '"' + result + '"';
}

std::string command_line(const ServiceDescription& service) {
    std::string line;
    for (const auto* arguments : {&service.arguments, &service.unit_arguments})
        for (const auto& argument : *arguments)
            line += (line.empty() ? "" : " ") + word(argument);
    return line;
}

// A service that dies at once is left for a while before it is started again, which also shows that it died.
std::string kept_alive() {
    return "Type=exec\nRestart=always\nRestartSec=10\n";
}

std::string lines(const std::vector<std::string>& lines) {
    return lines.empty() ? std::string() : fmt::format("{}\n", fmt::join(lines, "\n"));
}

std::string escaped(std::string_view text) {
    std::string result;
    for (const char byte : text) {
        if (byte == '&')
            result += "&amp;";
        else if (byte == '<')
            result += "&lt;";
        else if (byte == '>')
            result += "&gt;";
        else
            result += byte;
    }
    return result;
}

std::string key(std::string_view name) {
    return fmt::format("\t<key>{}</key>\n", name);
}

std::string string_entry(std::string_view name, std::string_view value) {
    return fmt::format("{}\t<string>{}</string>\n", key(name), escaped(value));
}

std::string arguments_entry(const ServiceDescription& service) {
    std::string items;
    for (const auto& argument : service.arguments)
        items += fmt::format("\t\t<string>{}</string>\n", escaped(argument));
    return fmt::format("{}\t<array>\n{}\t</array>\n", key("ProgramArguments"), items);
}

std::string daily_entry(const DailyTime& time) {
    return fmt::format("{}\t<dict>\n"
                       "\t\t<key>Minute</key>\n\t\t<integer>{}</integer>\n"
                       "\t\t<key>Hour</key>\n\t\t<integer>{}</integer>\n"
                       "\t</dict>\n",
                       key("StartCalendarInterval"), time.minute, time.hour);
}

} // namespace

std::string service_unit(const ServiceDescription& service) {
    std::string text = fmt::format("[Unit]\nDescription={}\n", service.words);
    // Without the order the two would overlap: ours would find the other's socket, and end.
    if (!service.conflicts.empty())
        text += fmt::format("Conflicts={0}\nAfter={0}\n", fmt::join(service.conflicts, " "));
    text += lines(service.unit_lines);
    if (service.keep_alive)
        text += "StartLimitIntervalSec=0\n";
    text += "\n[Service]\n" + (service.keep_alive ? kept_alive() : std::string("Type=oneshot\n"));
    text += fmt::format("ExecStart={}\n", command_line(service));
    if (service.nice != 0)
        text += fmt::format("Nice={}\n", service.nice);
    text += lines(service.sandbox);
    for (const auto& folder : service.written_folders)
        text += fmt::format("ReadWritePaths={}\n", word('-' + folder)); // it may be missing
    if (service.keep_alive)
        text += "\n[Install]\nWantedBy=multi-user.target\n";
    return text;
}

// One that the machine has slept through, or was switched off at, is made up for.
std::string timer_unit(const ServiceDescription& service) {
    return fmt::format("[Unit]\nDescription={}\n\n[Timer]\nOnCalendar=*-*-* {:02}:{:02}:00\nPersistent=true\n\n"
                       "[Install]\nWantedBy=timers.target\n",
                       service.words, service.daily->hour, service.daily->minute);
}

std::string property_list(const ServiceDescription& service) {
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                       "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                       "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                       "<plist version=\"1.0\">\n<dict>\n";
    text += string_entry("Label", service.label);
    if (!service.program.empty())
        text += string_entry("Program", service.program);
    text += arguments_entry(service);
    text += key("KeepAlive") + (service.keep_alive ? "\t<true/>\n" : "\t<false/>\n");
    if (service.nice != 0)
        text += fmt::format("{}\t<integer>{}</integer>\n", key("Nice"), service.nice);
    if (service.daily)
        text += daily_entry(*service.daily);
    return text + "</dict>\n</plist>\n";
}

} // namespace tickervantage
