// Questions to polkit, asked without waiting. Source: org.freedesktop.PolicyKit1.Authority.CheckAuthorization.
#pragma once

#include "linux/bus_owners.h"

#include <functional>
#include <list>
#include <memory>
#include <string>

namespace tickervantage {

struct PolkitQuestion {
    std::string sender; // the connection that wants something; polkit finds the person behind it
    std::string action;
    std::string message;  // what the dialog says; empty: the action's own text
    bool may_ask = false; // a dialog may be shown
};

enum class PolkitAnswer : unsigned char {
    yes,
    no,          // refused, dismissed, or only a dialog could tell
    unreachable, // there is no polkit, or it did not answer in time
};

class Polkit {
public:
    using Done = std::function<void(PolkitAnswer)>;

    explicit Polkit(sd_bus* bus) : m_bus(bus) {}
    ~Polkit();
    Polkit(const Polkit&) = delete;
    Polkit& operator=(const Polkit&) = delete;

    void ask(const PolkitQuestion& question, Done done);

    // Takes back what a connection that has gone was asking: its dialog closes. The answer is then `no`.
    void cancel(const std::string& sender);

private:
    struct Pending {
        Polkit* owner = nullptr;
        std::string sender;
        std::string cancellation;
        Done done;
        BusSlot slot;
    };
    [[nodiscard]] int send(const PolkitQuestion& question, Pending& pending);
    void withdraw(const Pending& pending);
    void end(Pending* pending, PolkitAnswer answer);
    static int on_reply(sd_bus_message* reply, void* pending, sd_bus_error* error);

    sd_bus* m_bus;
    std::list<std::unique_ptr<Pending>> m_pending;
    unsigned m_count = 0;
};

} // namespace tickervantage
