#include "chrony/configuration/server_list_file.h"

#include <atomic>
#include <future>
#include <utility>

namespace tickervantage {

struct ServerListFile::State {
    std::atomic<unsigned> newest{0}; // number of the newest save that was asked for
};

ServerListFile::ServerListFile(std::shared_ptr<SharedText> file, DispatchQueueSerial& queue, MainThread& main_thread)
    : m_queue(queue), m_main_thread(main_thread), m_file(std::move(file)), m_state(std::make_shared<State>()) {}

void ServerListFile::read(std::function<void(const FileReading&)> done) {
    m_queue.async(
        [file = m_file, state = std::weak_ptr(m_state), &main_thread = m_main_thread, done = std::move(done)] {
            main_thread.main_async([reading = file->read(), state, done] {
                if (!state.expired())
                    done(reading);
            });
        });
}

void ServerListFile::save(std::string text, std::optional<std::string> made_from,
                          std::function<void(const ServerListSaved&)> done) {
    const unsigned number = ++m_state->newest;
    m_queue.async([file = m_file, state = std::weak_ptr(m_state), &main_thread = m_main_thread, number,
                   text = std::move(text), made_from = std::move(made_from), done = std::move(done)] {
        if (const auto alive = state.lock(); alive && alive->newest != number)
            return;
        main_thread.main_async([saved = file->replace(text, made_from), state, done] {
            if (!state.expired())
                done(saved);
        });
    });
}

bool ServerListFile::finish(std::chrono::milliseconds patience) {
    const auto reached = std::make_shared<std::promise<void>>();
    auto end = reached->get_future();
    m_queue.async([reached] { reached->set_value(); });
    return end.wait_for(patience) == std::future_status::ready;
}

} // namespace tickervantage
