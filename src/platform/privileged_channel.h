// The way to the root helper, which does what needs administrator rights.
#pragma once

#include <string>

namespace tickervantage {

class PrivilegedChannel {
public:
    virtual ~PrivilegedChannel() = default;

    // Makes the connection ready to be used; asks nobody for anything yet. Main thread, returns at once.
    virtual void prepare() = 0;

    // True once the helper is there and the user has been authorised. From any thread.
    [[nodiscard]] virtual bool ready() const = 0;

    // Runs one command line as root and returns what it printed; empty text when not ready. Blocks, never on the main
    // thread.
    virtual std::string execute(const std::string& command) = 0;

    // Tells the helper that this program is done with it and gives the authorisation back. Main thread, returns at
    // once.
    virtual void disconnect() = 0;
};

} // namespace tickervantage
