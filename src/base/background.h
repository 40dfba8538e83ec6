// Work in the background that comes home, unless its owner has gone by then. Main thread only, but for the work itself.
//
//     Background m_background;                          // the owner's last member, made with the main thread
//     m_background.start(m_queue,
//         [path] { return read_document(path); },       // on the queue: takes values, gives one back (or nothing)
//         [this](Document document) { show(document); } // main thread; not called when the owner has gone
//     );
//     m_background.start_newest(...);                   // likewise; drops what an earlier start_newest() brings
//     ask(question, m_background.if_alive([this](int answer) { apply(answer); })); // an answer from elsewhere
//
// The work runs to its end whatever happens to the owner: a file half written is worse than one nobody asks about.
#pragma once

#include "base/dispatch.h"

#include <memory>
#include <type_traits>
#include <utility>

namespace tickervantage {

class Background {
public:
    // The main thread outlives the queues.
    explicit Background(MainThread& main_thread) : m_main_thread(main_thread) {}
    ~Background() = default;
    Background(const Background&) = delete;
    Background& operator=(const Background&) = delete;

    template <class Make, class Then>
    void start(DispatchQueueSerial& queue, Make make, Then then) {
        send(queue, std::move(make), if_alive(std::move(then)));
    }

    template <class Make, class Then>
    void start_newest(DispatchQueueSerial& queue, Make make, Then then) {
        const unsigned number = ++*m_newest;
        send(queue, std::move(make),
             [then = std::move(then), number, newest = std::weak_ptr(m_newest)](auto&&... result) mutable {
                 if (const auto alive = newest.lock(); alive && *alive == number)
                     then(std::forward<decltype(result)>(result)...);
             });
    }

    // What start_newest() has under way is not wanted any more.
    void forget_newest() { ++*m_newest; }

    // `act`, which does nothing once the owner has gone. To be called on the main thread.
    template <class Act>
    [[nodiscard]] auto if_alive(Act act) const {
        return [act = std::move(act), owner = std::weak_ptr(m_newest)](auto&&... arguments) mutable {
            if (!owner.expired())
                act(std::forward<decltype(arguments)>(arguments)...);
        };
    }

private:
    // What comes home is destroyed at home: `Then` may hold what belongs to the main thread.
    template <class Make, class Then>
    void send(DispatchQueueSerial& queue, Make make, Then then) {
        using Result = std::invoke_result_t<Make&>;
        auto trip = std::make_shared<std::pair<Make, Then>>(std::move(make), std::move(then));
        queue.async([trip = std::move(trip), &main_thread = m_main_thread]() mutable {
            if constexpr (std::is_void_v<Result>) {
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
    // The number of the latest start_newest(). Touched on the main thread only; gone with the owner.
    std::shared_ptr<unsigned> m_newest = std::make_shared<unsigned>(0);
};

} // namespace tickervantage
