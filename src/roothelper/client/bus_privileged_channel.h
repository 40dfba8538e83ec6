// The root helper over the system bus.
//
// The connection is opened when it is first needed, and every thread's calls go over it: an authorisation holds for one
// connection. A reply is awaited as long as the helper's longest job takes, an authorisation as long as a person takes.
// Source: sd-bus(3), pkexec(1).
#pragma once

#include "base/execute.h"
#include "linux/bus_calls.h"
#include "roothelper/client/privileged_channel.h"

#include <string>

namespace tickervantage {

class BusPrivilegedChannel : public PrivilegedChannel {
public:
    // Where the helper is missing or speaks another protocol, `installer` is run through pkexec with the argument
    // --install, unless it lies in the bundle of a package: packages bring the helper along, and a second one beside it
    // would outlive them and their updates. A helper that does not answer is there, and nothing is installed over it.
    // `execute` outlives the channel.
    BusPrivilegedChannel(Execute& execute, std::string installer);

    [[nodiscard]] Result<> install() override;
    [[nodiscard]] Result<HelperToken> authorise() override;
    [[nodiscard]] HelperAnswer ask(const std::string& request, const std::optional<HelperToken>& auth) override;
    void disconnect() override;
    void cancel() override;

private:
    enum class Found : unsigned char { ours, other, absent };

    [[nodiscard]] Result<Found> look(); // a failure: it does not answer
    [[nodiscard]] Result<> run_installer();

    Execute& m_execute;
    std::string m_installer;
    BusCalls m_calls;
};

} // namespace tickervantage
