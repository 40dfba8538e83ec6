// Work in the background that comes home, unless its owner has gone by then. Main thread only, but for the work itself.
//
//     Background m_background;                          // the owner's last member, made with the main thread
//     m_background.start(m_queue,
//         [path] { return read_document(path); },       // on the queue: takes values, gives one back (or nothing)
//         [this](Document document) { show(document); } // main thread; not called when the owner has gone
//     );
//     m_background.start_newest(...);                   // likewise; only the newest is made and comes home
//     ask(question, m_background.if_alive([this](int answer) { apply(answer); })); // an answer from elsewhere
//
// Work that has begun runs to its end, and that of start() runs in any case, whatever happens to the owner: a file half
// written is worse than one nobody asks about.
#pragma once

#include "base/dispatch.h"

#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <type_traits>
#include <utility>

namespace tickervantage {

// Waits until the queue has done what was asked of it so far: for the program's end. False when the time does not
// suffice.
[[nodiscard]] inline bool wait_for(DispatchQueueSerial& queue, std::chrono::milliseconds patience) {
    const auto reached = std::make_shared<std::promise<void>>();
    auto end = reached->get_future();
    queue.async([reached] { reached->set_value(); });
    return end.wait_for(patience) == std::future_status::ready;
}

class Background {
public:
    // The main thread outlives the queues.
    explicit Background(MainThread& main_thread) : m_main_thread(main_thread) {}
    ~Background() { m_state->is_gone = true; }
    Background(const Background&) = delete;
    Background& operator=(const Background&) = delete;

    template <class Make, class Then>
    void start(DispatchQueueSerial& queue, Make make, Then then) {
        send(queue, std::move(make), if_alive(std::move(then)), [] { return true; });
    }

    template <class Make, class Then>
    void start_newest(DispatchQueueSerial& queue, Make make, Then then) {
        const auto is_wanted = [state = m_state, number = ++m_state->newest] {
            return state->newest == number;
        };
        auto use = [is_wanted, then = std::move(then)](auto&&... result) mutable {
            if (is_wanted())
                then(std::forward<decltype(result)>(result)...);
        };
        send(queue, std::move(make), if_alive(std::move(use)), is_wanted);
    }

    // What start_newest() has under way is not wanted any more.
    void forget_newest() { ++m_state->newest; }

    // `act`, which does nothing once the owner has gone. To be called on the main thread.
    template <class Act>
    [[nodiscard]] auto if_alive(Act act) const {
        return [act = std::move(act), state = m_state](auto&&... arguments) mutable {
            if (!state->is_gone)
                act(std::forward<decltype(arguments)>(arguments)...);
        };
    }

private:
    struct State {
        std::atomic<unsigned> newest{0}; // number of the latest start_newest()
        bool is_gone = false;            // the owner; main thread only
    };

    // What comes home is destroyed at home: `Then` may hold what belongs to the main thread.
    template <class Make, class Then, class IsWanted>
    void send(DispatchQueueSerial& queue, Make make, Then then, IsWanted is_wanted) {
        using Result = std::invoke_result_t<Make&>;
        auto trip = std::make_shared<std::pair<Make, Then>>(std::move(make), std::move(then));
        queue.async([trip = std::move(trip), is_wanted, &main_thread = m_main_thread]() mutable {
            if (!is_wanted()) {
                main_thread.main_async([trip = std::move(trip)] {});
            } else if constexpr (std::is_void_v<Result>) {
                trip->first();
                main_thread.main_async([trip = std::move(trip)] { trip->second(); });
            } else {
                auto result = std::make_shared<Result>(trip->first());
                main_thread.main_async(
                    [trip = std::move(trip), result = std::move(result)] { trip->second(std::move(*result)); });
            }
        });
    }

    MainThread& m_main_thread;
    std::shared_ptr<State> m_state = std::make_shared<State>();
};

} // namespace tickervantage
