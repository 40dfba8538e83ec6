#include "chrony/services/property_list.h"

#include "chrony/services/service_definitions.h"

#include <fmt/format.h>

#include <string_view>

namespace tickervantage {
namespace {

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
