// Notifier over the user's session bus. A desktop without notifications shows none, and that is no failure. Source: the
// Desktop Notifications rules, version 1.2 (freedesktop.org); sd_bus_call_method(3).
#pragma once

#include "base/dispatch.h"
#include "base/notifier.h"

#include <cstdint>
#include <memory>

namespace tickervantage {

class DesktopNotifier : public Notifier {
public:
    // Which waits for the bus.
    explicit DesktopNotifier(DispatchQueueSerial& queue) : m_queue(queue) {}

    void show(const Notification& notification) override;
    void withdraw() override;

private:
    DispatchQueueSerial& m_queue;
    // Of the notification that is shown; on the queue, whose work may come round after this object has gone.
    std::shared_ptr<std::uint32_t> m_id = std::make_shared<std::uint32_t>(0);
};

} // namespace tickervantage
