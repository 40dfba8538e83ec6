#include "base/broadcast.h"

#include <utility>

namespace tickervantage {

Broadcast::Broadcast(MainThread& main_thread)
    : m_main_thread(main_thread), m_listeners(std::make_shared<Listeners>()) {}

void Broadcast::AddListener(const std::string& key, const std::string& listener, Handler handler) {
    (*m_listeners)[key][listener] = std::move(handler);
}

void Broadcast::RemoveListener(const std::string& key, const std::string& listener) {
    const auto found = m_listeners->find(key);
    if (found == m_listeners->end())
        return;
    found->second.erase(listener);
    if (found->second.empty())
        m_listeners->erase(found);
}

bool Broadcast::has_listeners(const std::string& key) const {
    return m_listeners->contains(key);
}

void Broadcast::deliver(const Listeners& all, const std::string& key, const std::any& object) {
    const auto found = all.find(key);
    if (found == all.end())
        return;
    const auto handlers = found->second; // a copy: a handler may add or remove listeners
    for (const auto& [name, handler] : handlers)
        handler(key, object);
}

void Broadcast::post(const std::string& key, std::any object, Delivery delivery) {
    if (delivery == Delivery::now) {
        deliver(*m_listeners, key, object);
        return;
    }
    m_main_thread.main_async([listeners = std::weak_ptr(m_listeners), key, object = std::move(object)] {
        if (const auto all = listeners.lock())
            deliver(*all, key, object);
    });
}

} // namespace tickervantage
