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

    void prepare() { m_xpc.prepare(); }
    [[nodiscard]] int install(std::string& sentence);
    [[nodiscard]] std::optional<HelperToken> authorise(std::string& sentence);

    // From now on every message carries it; none: no message does.
    void set_authorisation(const std::optional<HelperToken>& auth);

    // One message. A reply without a text is logged and taken as the empty text.
    HelperAnswer send(const std::string& request);

    // Says farewell and closes the connection.
    void quit();

private:
    [[nodiscard]] std::optional<HelperToken> authorisation() const;

    PrivilegedChannel& m_xpc;
    Logger* m_logger;
    mutable std::mutex m_mutex; // guards m_auth
    std::optional<HelperToken> m_auth;
};

} // namespace tickervantage
