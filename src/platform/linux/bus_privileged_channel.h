// The root helper over the system bus.
//
// Opened when it is first needed. One call at a time goes out; others wait their turn, for a reply as long as the
// helper's longest job takes, for an authorisation as long as a person takes. Source: sd-bus(3), pkexec(1).
#pragma once

#include "platform/execute.h"
#include "platform/linux/bus_owners.h"
#include "platform/privileged_channel.h"

#include <mutex>
#include <string>

namespace tickervantage {

class BusPrivilegedChannel : public PrivilegedChannel {
public:
    // Where the helper is missing or of another version than `version`, `installer` is run through pkexec with the
    // argument --install. `execute` outlives the channel.
    BusPrivilegedChannel(Execute& execute, std::string installer, std::string version);

    void prepare() override {}
    [[nodiscard]] int install(std::string& sentence) override;
    [[nodiscard]] std::optional<HelperToken> authorise(std::string& sentence) override;
    [[nodiscard]] std::optional<std::string> send(const std::string& request,
                                                  const std::optional<HelperToken>& auth) override;
    void disconnect() override;

private:
    [[nodiscard]] sd_bus* connection();
    [[nodiscard]] BusMessage new_call(const char* method);
    [[nodiscard]] BusMessage call(const BusMessage& message, std::chrono::minutes time_limit, std::string& sentence);
    [[nodiscard]] bool is_current();

    Execute& m_execute;
    std::string m_installer;
    std::string m_version;
    std::mutex m_mutex; // guards the connection, which takes one thread at a time
    Bus m_bus;
};

} // namespace tickervantage
