// The dictionaries of the helper's messages, read and written.
#pragma once

#include "base/failure.h"

#include <systemd/sd-bus.h>

#include <optional>
#include <string>

namespace tickervantage {

struct RequestMessage {
    std::string request;
    std::optional<std::string> auth; // bytes as they came
};

// Reads a{sv}; keys that mean nothing here are passed over. False when it is not such a message, or has no request.
[[nodiscard]] bool read_request(sd_bus_message* message, RequestMessage& request);

// Answers a request: with what came of it, whether it was done, and why not where that has a name. Text that the bus
// cannot carry is made fit.
int send_reply(sd_bus_message* message, const std::string& text, bool is_done,
               const std::optional<Failure>& failure = {});

// Answers with an error: its message is the failure in English, and the failure as a line stands behind it.
int send_error(sd_bus_message* message, const Failure& failure);

} // namespace tickervantage
