#include "roothelper/service/polkit.h"

#include "roothelper/grammar/helper_names.h"

#include <chrono>
#include <cstdint>
#include <utility>

namespace tickervantage {
namespace {

constexpr const char* polkit_name = "org.freedesktop.PolicyKit1";
constexpr const char* polkit_path = "/org/freedesktop/PolicyKit1/Authority";
constexpr const char* polkit_interface = "org.freedesktop.PolicyKit1.Authority";

int append_details(sd_bus_message* call, const std::string& message) {
    if (message.empty())
        return sd_bus_message_append(call, "a{ss}", 0);
    return sd_bus_message_append(call, "a{ss}", 1, "polkit.message", message.c_str());
}

std::uint64_t patience() {
    return static_cast<std::uint64_t>(std::chrono::microseconds(helper::dialog_limit).count());
}

} // namespace

Polkit::~Polkit() = default;

void Polkit::ask(const PolkitQuestion& question, Done done) {
    auto pending = std::make_unique<Pending>();
    pending->owner = this;
    pending->sender = question.sender;
    pending->cancellation = "tickervantage-" + std::to_string(++m_count);
    pending->done = std::move(done);
    m_pending.push_back(std::move(pending));
    auto* added = m_pending.back().get();
    if (send(question, *added) < 0)
        end(added, PolkitAnswer::unreachable);
}

int Polkit::send(const PolkitQuestion& question, Pending& pending) {
    sd_bus_message* message = nullptr;
    if (sd_bus_message_new_method_call(m_bus, &message, polkit_name, polkit_path, polkit_interface,
                                       "CheckAuthorization") < 0)
        return -1;
    const BusMessage call(message);
    const std::uint32_t flags = question.may_ask ? 1 : 0;
    if (sd_bus_message_append(message, "(sa{sv})s", "system-bus-name", 1, "name", "s", question.sender.c_str(),
                              question.action.c_str()) < 0 ||
        append_details(message, question.message) < 0 ||
        sd_bus_message_append(message, "us", flags, pending.cancellation.c_str()) < 0)
        return -1;
    sd_bus_slot* slot = nullptr;
    if (sd_bus_call_async(m_bus, &slot, message, on_reply, &pending, patience()) < 0)
        return -1;
    pending.slot.reset(slot);
    return 0;
}

int Polkit::on_reply(sd_bus_message* reply, void* data, sd_bus_error*) {
    auto* pending = static_cast<Pending*>(data);
    auto answer = PolkitAnswer::unreachable;
    int is_authorised = 0;
    if (sd_bus_message_is_method_error(reply, nullptr) == 0 &&
        sd_bus_message_enter_container(reply, 'r', "bba{ss}") > 0 &&
        sd_bus_message_read(reply, "b", &is_authorised) > 0)
        answer = is_authorised != 0 ? PolkitAnswer::yes : PolkitAnswer::no;
    if (sd_bus_message_is_method_error(reply, "org.freedesktop.PolicyKit1.Error.Cancelled") > 0)
        answer = PolkitAnswer::no;
    if (answer == PolkitAnswer::unreachable)
        pending->owner->withdraw(*pending); // a dialog that nobody answered in time
    pending->owner->end(pending, answer);
    return 0;
}

void Polkit::withdraw(const Pending& pending) {
    // No answer is awaited: whatever comes, nobody is there to hear it.
    (void)sd_bus_call_method_async(m_bus, nullptr, polkit_name, polkit_path, polkit_interface,
                                   "CancelCheckAuthorization", nullptr, nullptr, "s", pending.cancellation.c_str());
}

void Polkit::end(Pending* pending, PolkitAnswer answer) {
    const auto done = std::move(pending->done);
    m_pending.remove_if([pending](const auto& entry) { return entry.get() == pending; });
    done(answer);
}

void Polkit::cancel(const std::string& sender) {
    std::list<Pending*> theirs;
    for (const auto& pending : m_pending)
        if (pending->sender == sender)
            theirs.push_back(pending.get());
    for (auto* pending : theirs) {
        withdraw(*pending);
        end(pending, PolkitAnswer::no);
    }
}

} // namespace tickervantage
