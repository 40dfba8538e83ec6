#include "linux/serial_queue.h"

#include <pthread.h>

#include <utility>

namespace tickervantage {

namespace {

std::string tail_of(const std::string& label) {
    constexpr std::size_t kernel_limit = 15;
    return label.size() > kernel_limit ? label.substr(label.size() - kernel_limit) : label;
}

} // namespace

SerialQueue::SerialQueue(const std::string& label) : m_name(tail_of(label)) {}

SerialQueue::~SerialQueue() = default; // the thread is asked to stop, and waited for

void SerialQueue::async(Work work) {
    {
        const std::lock_guard lock(m_mutex);
        m_waiting.push_back(std::move(work));
        if (!m_thread.joinable()) {
            m_thread = std::jthread([this](const std::stop_token& stop) { serve(stop); });
            (void)pthread_setname_np(m_thread.native_handle(), m_name.c_str());
        }
    }
    m_news.notify_one();
}

void SerialQueue::serve(const std::stop_token& stop) {
    while (true) {
        std::unique_lock lock(m_mutex);
        if (!m_news.wait(lock, stop, [this] { return !m_waiting.empty(); }) || stop.stop_requested())
            return;
        const Work work = std::move(m_waiting.front());
        m_waiting.pop_front();
        lock.unlock();
        work();
    }
}

} // namespace tickervantage
