// Notices by name, from one part of the program to others that it does not know.
//
// Main thread only. A notice carries one object; listeners that expect another type ignore it.
#pragma once

#include "base/dispatch.h"

#include <any>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace tickervantage {

enum class Delivery : unsigned char { now, later }; // later: from the event loop, after the poster has returned

class Broadcast {
public:
    using Handler = std::function<void(std::string_view key, const std::any& object)>;

    explicit Broadcast(MainThread& main_thread);

    // Replaces the listener of the same key and name.
    void AddListener(const std::string& key, const std::string& listener, Handler handler);
    void RemoveListener(const std::string& key, const std::string& listener);
    [[nodiscard]] bool has_listeners(const std::string& key) const;

    // A listener removed before delivery is not called; one added before it is.
    void post(const std::string& key, std::any object, Delivery delivery);

private:
    using Listeners = std::map<std::string, std::map<std::string, Handler>>;

    static void deliver(const Listeners& all, const std::string& key, const std::any& object);

    MainThread& m_main_thread;
    std::shared_ptr<Listeners> m_listeners; // shared, so that a late notice finds out that the program has gone
};

} // namespace tickervantage
