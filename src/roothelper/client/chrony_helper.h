// The connection to the root helper and the authorisation that goes with every message.
//
// Every function blocks until the helper answers and may be called from any thread but the main one. Messages of
// several threads do not wait for each other: a report comes while a long job is under way.
#pragma once

#include "base/logger.h"
#include "roothelper/client/privileged_channel.h"

#include <mutex>
#include <optional>
#include <string>

namespace tickervantage {

class ChronyHelper {
public:
    // The channel, and the log where there is one, outlive the helper.
    explicit ChronyHelper(PrivilegedChannel& xpc, Logger* logger = nullptr) : m_xpc(xpc), m_logger(logger) {}

    // Asks for administrator rights; once they are given, every message carries them.
    [[nodiscard]] Result<> authorise();

    // One message. A reply without a text is logged and taken as the empty text. What was not done has a failure.
    HelperAnswer send(const std::string& request);

    // Says farewell, closes the connection and forgets the authorisation.
    void quit();

    PrivilegedChannel& m_xpc;

private:
    [[nodiscard]] std::optional<HelperToken> authorisation() const;

    Logger* m_logger;
    mutable std::mutex m_mutex; // guards m_auth
    std::optional<HelperToken> m_auth;
};

} // namespace tickervantage
