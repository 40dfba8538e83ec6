#include "linux/bus_calls.h"

#include <poll.h>
#include <sys/eventfd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::chrono::seconds farewell_limit{20}; // for what a job has still to finish
constexpr std::chrono::hours longest_wait{1};      // a bus without any deadline of its own

std::uint64_t count(std::chrono::microseconds time) {
    return static_cast<std::uint64_t>(time.count());
}

timespec as_timespec(std::chrono::microseconds time) {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time);
    return {.tv_sec = seconds.count(), .tv_nsec = std::chrono::nanoseconds(time - seconds).count()};
}

} // namespace

BusCalls::BusCalls(std::string service, std::string object)
    : m_service(std::move(service)), m_object(std::move(object)), m_wake(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

BusCalls::~BusCalls() = default;

int BusCalls::on_answer(sd_bus_message* answer, void* data, sd_bus_error*) {
    auto* waiting = static_cast<Waiting*>(data);
    waiting->answer.reset(sd_bus_message_ref(answer));
    waiting->over = true;
    return 1;
}

// A connection that broke is replaced; what waited for it has heard so by then.
sd_bus* BusCalls::connection() {
    if (m_bus && sd_bus_is_open(m_bus.get()) > 0)
        return m_bus.get();
    end_all();
    m_bus.reset();
    sd_bus* opened = nullptr;
    if (sd_bus_open_system_with_description(&opened, "tickervantage") >= 0)
        m_bus.reset(opened);
    return m_bus.get();
}

BusMessage BusCalls::new_call(const BusMethod& method) {
    sd_bus_message* message = nullptr;
    auto* bus = connection();
    if (bus == nullptr || sd_bus_message_new_method_call(bus, &message, m_service.c_str(), m_object.c_str(),
                                                         method.interface, method.member) < 0)
        return nullptr;
    BusMessage made(message);
    const bool may_ask = !m_cancelled;
    return sd_bus_message_set_allow_interactive_authorization(message, may_ask ? 1 : 0) < 0 ? nullptr : std::move(made);
}

int BusCalls::send(const BusMethod& method, const Fill& fill, Waiting& waiting) {
    const auto message = new_call(method);
    sd_bus_slot* slot = nullptr;
    if (!message || (fill && fill(message.get()) < 0) ||
        sd_bus_call_async(m_bus.get(), &slot, message.get(), on_answer, &waiting, count(method.time_limit)) < 0)
        return -1;
    waiting.slot.reset(slot);
    return 0;
}

BusMessage BusCalls::call(const BusMethod& method, const Fill& fill) {
    std::unique_lock lock(m_mutex);
    Waiting waiting{.for_person = method.waits_for_person};
    if (gives_up(waiting) || send(method, fill, waiting) != 0)
        return nullptr;
    m_waiting.push_back(&waiting);
    wake_reader(); // what did not fit into the socket at once, and the deadline, are the reader's business
    wait_for(waiting, lock);
    m_waiting.remove(&waiting);
    waiting.slot.reset(); // here, while the bus is ours
    return std::move(waiting.answer);
}

void BusCalls::wait_for(const Waiting& waiting, std::unique_lock<std::mutex>& lock) {
    while (!waiting.over && !gives_up(waiting)) {
        if (!m_has_reader)
            read(lock);
        else
            m_news.wait(lock);
    }
}

bool BusCalls::gives_up(const Waiting& waiting) const {
    return m_cancelled && (waiting.for_person || Clock::now() >= m_last_moment);
}

// Takes what has come, else waits until something does. Whoever reads wakes the others afterwards: one of them has its
// answer, or takes the reading over.
void BusCalls::read(std::unique_lock<std::mutex>& lock) {
    m_has_reader = true;
    int found = sd_bus_process(m_bus.get(), nullptr);
    if (found == 0)
        wait_for_bytes(lock);
    if (found < 0 || !m_bus || sd_bus_is_open(m_bus.get()) <= 0)
        end_all();
    m_has_reader = false;
    m_news.notify_all();
}

void BusCalls::wait_for_bytes(std::unique_lock<std::mutex>& lock) {
    const int events = sd_bus_get_events(m_bus.get());
    std::array<pollfd, 2> wanted{
        {{sd_bus_get_fd(m_bus.get()), static_cast<short>(events < 0 ? 0 : events), 0}, {m_wake.get(), POLLIN, 0}}};
    const timespec limit = as_timespec(patience());
    lock.unlock();
    (void)::ppoll(wanted.data(), wanted.size(), &limit, nullptr); // whatever ended it, the bus is looked at again
    lock.lock();
    eventfd_t ignored = 0;
    (void)::eventfd_read(m_wake.get(), &ignored); // nothing there: something else woke us
}

std::chrono::microseconds BusCalls::patience() const {
    using std::chrono::microseconds;
    const auto now = std::chrono::duration_cast<microseconds>(Clock::now().time_since_epoch());
    std::uint64_t deadline = UINT64_MAX;              // on the same clock
    (void)sd_bus_get_timeout(m_bus.get(), &deadline); // without one there is none
    auto left = deadline == UINT64_MAX ? microseconds(longest_wait) : microseconds(deadline) - now;
    if (m_cancelled)
        left = std::min(left, std::chrono::duration_cast<microseconds>(m_last_moment - Clock::now()));
    return std::max(left, microseconds(0));
}

void BusCalls::end_all() {
    for (auto* waiting : m_waiting)
        waiting->over = true;
}

void BusCalls::wake_reader() const {
    (void)::eventfd_write(m_wake.get(), 1); // full: it is awake already
}

void BusCalls::disconnect() {
    const std::lock_guard lock(m_mutex);
    for (auto* waiting : m_waiting)
        waiting->slot.reset();
    end_all();
    m_bus.reset();
    wake_reader();
    m_news.notify_all();
}

void BusCalls::cancel(const BusMethod& farewell) {
    const std::lock_guard lock(m_mutex);
    m_cancelled = true;
    m_last_moment = Clock::now() + farewell_limit;
    if (!m_waiting.empty())
        if (const auto message = new_call(farewell); message && sd_bus_message_set_expect_reply(message.get(), 0) >= 0)
            (void)sd_bus_send(m_bus.get(), message.get(), nullptr); // the end of the connection says the same
    wake_reader();
    m_news.notify_all();
}

} // namespace tickervantage
