// Calls to one service on the system bus, by several threads at once over one connection.
//
// A call goes out at once, whatever else is under way; the answers come back in any order. One of the waiting threads
// reads the connection for all of them. Every function may be called from any thread. Source: sd_bus_call_async(3),
// sd_bus_process(3).
#pragma once

#include "linux/bus_owners.h"
#include "linux/file_descriptor.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <list>
#include <mutex>
#include <string>

namespace tickervantage {

struct BusMethod {
    const char* interface;
    const char* member;
    bool waits_for_person = false; // given up at once when the calls are cancelled
    std::chrono::microseconds time_limit;
};

class BusCalls {
public:
    BusCalls(std::string service, std::string object);
    ~BusCalls();
    BusCalls(const BusCalls&) = delete;
    BusCalls& operator=(const BusCalls&) = delete;

    using Fill = std::function<int(sd_bus_message* message)>; // adds the arguments; negative: could not

    // Waits for the answer, which may be an error that the service sent; nothing when there is none.
    [[nodiscard]] BusMessage call(const BusMethod& method, const Fill& fill);

    // Closes the connection, under the feet of whoever waits. The next call opens another one.
    void disconnect();

    // The program ends. `farewell` is sent without waiting for its answer; who waits for a person gives up at once and
    // from now on, others after some seconds. No call asks for a dialog any more.
    void cancel(const BusMethod& farewell);

private:
    using Clock = std::chrono::steady_clock;
    struct Waiting {
        BusSlot slot = nullptr;
        BusMessage answer = nullptr;
        bool over = false;
        bool for_person = false;
    };

    static int on_answer(sd_bus_message* answer, void* data, sd_bus_error* error);
    [[nodiscard]] sd_bus* connection();
    [[nodiscard]] BusMessage new_call(const BusMethod& method);
    [[nodiscard]] int send(const BusMethod& method, const Fill& fill, Waiting& waiting);
    void wait_for(const Waiting& waiting, std::unique_lock<std::mutex>& lock);
    [[nodiscard]] bool gives_up(const Waiting& waiting) const;
    void read(std::unique_lock<std::mutex>& lock);
    void wait_for_bytes(std::unique_lock<std::mutex>& lock);
    [[nodiscard]] std::chrono::microseconds patience() const;
    void end_all();
    void wake_reader() const;

    std::string m_service;
    std::string m_object;
    FileDescriptor m_wake;          // an event that interrupts the reader
    std::mutex m_mutex;             // guards all below; not held while the reader waits for bytes
    std::condition_variable m_news; // something was read, or there is no reader
    Bus m_bus;
    std::list<Waiting*> m_waiting;
    bool m_has_reader = false;
    bool m_cancelled = false;
    Clock::time_point m_last_moment; // of calls, once cancelled
};

} // namespace tickervantage
