#include "roothelper/service/bus_messages.h"

#include "base/failure_line.h"
#include "linux/bus_owners.h"
#include "roothelper/grammar/helper_names.h"
#include "roothelper/grammar/helper_words.h"

#include <string_view>

namespace tickervantage {
namespace {

bool read_text(sd_bus_message* message, std::string& text) {
    const char* value = nullptr;
    if (sd_bus_message_read(message, "v", "s", &value) < 0)
        return false;
    text = value;
    return true;
}

bool read_bytes(sd_bus_message* message, std::optional<std::string>& bytes) {
    const void* data = nullptr;
    std::size_t size = 0;
    if (sd_bus_message_enter_container(message, 'v', "ay") < 0 ||
        sd_bus_message_read_array(message, 'y', &data, &size) < 0 || sd_bus_message_exit_container(message) < 0)
        return false;
    bytes = std::string(static_cast<const char*>(data), size);
    return true;
}

bool read_entry(sd_bus_message* message, RequestMessage& request) {
    const char* key = nullptr;
    if (sd_bus_message_read(message, "s", &key) < 0)
        return false;
    const std::string_view name = key;
    if (name == helper::request_key)
        return read_text(message, request.request);
    if (name == helper::auth_key)
        return read_bytes(message, request.auth);
    return sd_bus_message_skip(message, "v") >= 0;
}

std::string line_of(const Failure& failure) {
    return as_valid_text(to_line(failure), helper::reply_limit);
}

} // namespace

bool read_request(sd_bus_message* message, RequestMessage& request) {
    if (sd_bus_message_enter_container(message, 'a', "{sv}") < 0)
        return false;
    while (sd_bus_message_enter_container(message, 'e', "sv") > 0)
        if (!read_entry(message, request) || sd_bus_message_exit_container(message) < 0)
            return false;
    return !request.request.empty();
}

int send_reply(sd_bus_message* message, const std::string& text, bool is_done, const std::optional<Failure>& failure) {
    const auto fit = as_valid_text(text, helper::reply_limit);
    const int status = is_done ? 0 : 1;
    if (!failure)
        return sd_bus_reply_method_return(message, "a{sv}", 2, helper::reply_key, "s", fit.c_str(), helper::status_key,
                                          "i", status);
    const auto line = line_of(*failure);
    return sd_bus_reply_method_return(message, "a{sv}", 3, helper::reply_key, "s", fit.c_str(), helper::status_key, "i",
                                      status, helper::failure_key, "s", line.c_str());
}

int send_error(sd_bus_message* message, const Failure& failure) {
    sd_bus_message* made = nullptr;
    const auto line = line_of(failure);
    const int result = sd_bus_message_new_method_errorf(message, &made, helper::refused_error, "%s",
                                                        as_valid_text(english(failure), helper::reply_limit).c_str());
    const BusMessage reply(made);
    if (result < 0 || sd_bus_message_append(made, "s", line.c_str()) < 0)
        return -1;
    return sd_bus_send(sd_bus_message_get_bus(made), made, nullptr);
}

} // namespace tickervantage
