// Who is behind a name on the bus.
#pragma once

#include "linux/bus_owners.h"
#include "roothelper/grammar/helper_tokens.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

class Callers {
public:
    using Done = std::function<void(const std::optional<HelperCaller>& caller)>;

    explicit Callers(sd_bus* bus) : m_bus(bus) {}
    ~Callers();
    Callers(const Callers&) = delete;
    Callers& operator=(const Callers&) = delete;

    // Asks the bus without waiting; `done` is called at once where the name is known already. Nothing when the
    // connection has left, or when more are being asked about than an honest machine has.
    void find(const std::string& name, const Done& done);

    // What is known already.
    [[nodiscard]] std::optional<HelperCaller> known(const std::string& name) const;

    // Waits for the bus: only for a helper that nobody can send anything to yet.
    [[nodiscard]] std::optional<HelperCaller> find_now(const std::string& name);

    // Whoever waits for news of this connection gets none.
    void cancel(const std::string& name);

    // It has left the bus.
    void forget(const std::string& name);

    [[nodiscard]] bool is_asking() const { return !m_questions.empty(); }

private:
    struct Question {
        Callers* owner = nullptr;
        std::string name;
        std::vector<Done> waiting;
        BusSlot slot;
    };
    static int on_answer(sd_bus_message* answer, void* data, sd_bus_error* error);
    [[nodiscard]] bool ask(const std::string& name, const Done& done);
    std::optional<HelperCaller> keep(const std::string& name, sd_bus_message* answer);

    sd_bus* m_bus;
    std::map<std::string, HelperCaller> m_known; // a name belongs to one connection for good
    std::map<std::string, std::unique_ptr<Question>> m_questions;
};

// When a process was started, in clock ticks; 0 when it is not there.
[[nodiscard]] std::uint64_t start_of_process(std::int32_t process);

} // namespace tickervantage
