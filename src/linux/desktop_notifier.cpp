#include "linux/desktop_notifier.h"

#include "linux/bus_owners.h"

namespace tickervantage {
namespace {

constexpr const char* service = "org.freedesktop.Notifications";
constexpr const char* object = "/org/freedesktop/Notifications";
constexpr std::uint64_t patience = 3'000'000; // µs

// None without a session, as on a machine that somebody looks at from afar.
Bus session_bus() {
    sd_bus* bus = nullptr;
    if (sd_bus_open_user(&bus) < 0)
        return nullptr;
    (void)sd_bus_set_method_call_timeout(bus, patience); // without it the call waits longer
    return Bus(bus);
}

// The identifier of what is shown now; 0: nothing is.
std::uint32_t notify(const Notification& notification, std::uint32_t replaced) {
    constexpr std::uint8_t normal = 1;
    constexpr std::uint8_t critical = 2;
    const Bus bus = session_bus();
    sd_bus_message* reply = nullptr;
    std::uint32_t identifier = 0;
    if (!bus || sd_bus_call_method(bus.get(), service, object, service, "Notify", nullptr, &reply, "susssasa{sv}i",
                                   "Tickervantage", replaced, "net.brisklane.tickervantage", notification.title.c_str(),
                                   notification.text.c_str(), 0, 2, "urgency", "y",
                                   notification.is_critical ? critical : normal, "desktop-entry", "s",
                                   "net.brisklane.tickervantage", notification.is_critical ? 0 : -1) < 0)
        return 0;
    const BusMessage owner(reply);
    return sd_bus_message_read(reply, "u", &identifier) < 0 ? 0 : identifier;
}

void close_notification(std::uint32_t identifier) {
    const Bus bus = session_bus();
    if (bus) // one that the user closed before is gone already
        (void)sd_bus_call_method(bus.get(), service, object, service, "CloseNotification", nullptr, nullptr, "u",
                                 identifier);
}

} // namespace

void DesktopNotifier::show(const Notification& notification) {
    m_queue.async([id = m_id, notification] { *id = notify(notification, *id); });
}

void DesktopNotifier::withdraw() {
    m_queue.async([id = m_id] {
        if (*id != 0)
            close_notification(*id);
        *id = 0;
    });
}

} // namespace tickervantage
