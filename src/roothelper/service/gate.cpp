#include "roothelper/service/gate.h"

#include <linux/sockios.h>
#include <sys/ioctl.h>

namespace tickervantage {
namespace {

constexpr unsigned heard_in_a_minute = 8;
constexpr int jammed_bytes = 8192; // of the kernel's memory: some ten answers that the bus has not taken yet

} // namespace

Gate::Gate(sd_bus* bus, const Authorisations& authorisations) : m_bus(bus), m_authorisations(authorisations) {
    sd_bus_slot* slot = nullptr;
    (void)sd_bus_add_filter(bus, &slot, on_message, this); // without it everybody is answered
    m_slot.reset(slot);
}

// 1 ends the message's way here, without an answer.
int Gate::on_message(sd_bus_message* message, void* self, sd_bus_error*) {
    const char* sender = sd_bus_message_get_sender(message);
    if (sender == nullptr || sd_bus_message_is_method_call(message, nullptr, nullptr) <= 0)
        return 0;
    return static_cast<Gate*>(self)->lets_in(sender) ? 0 : 1;
}

bool Gate::lets_in(const std::string& sender) {
    return !is_jammed() || m_authorisations.knows(sender) || ++m_heard[sender] <= heard_in_a_minute;
}

// Source: SIOCOUTQ in unix(7) and tcp(7): what the other end has not read.
bool Gate::is_jammed() const {
    std::uint64_t waiting = 0;
    if (sd_bus_get_n_queued_write(m_bus, &waiting) >= 0 && waiting > 0)
        return true;
    int unread = 0;
    return ::ioctl(sd_bus_get_fd(m_bus), SIOCOUTQ, &unread) == 0 && unread > jammed_bytes;
}

} // namespace tickervantage
