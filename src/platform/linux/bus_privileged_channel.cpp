#include "platform/linux/bus_privileged_channel.h"

#include "platform/helper_names.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace tickervantage {
namespace {

constexpr const char* pkexec = "/usr/bin/pkexec";

class CallError {
public:
    CallError() = default;
    ~CallError() { sd_bus_error_free(&m_error); }
    CallError(const CallError&) = delete;
    CallError& operator=(const CallError&) = delete;
    [[nodiscard]] sd_bus_error* get() { return &m_error; }
    [[nodiscard]] std::string text() const {
        return m_error.message != nullptr ? m_error.message : "the system bus does not answer";
    }
    [[nodiscard]] bool is_refusal() const { return sd_bus_error_has_name(&m_error, helper::refused_error) > 0; }

private:
    sd_bus_error m_error = SD_BUS_ERROR_NULL;
};

std::uint64_t microseconds(std::chrono::minutes time) {
    return static_cast<std::uint64_t>(std::chrono::microseconds(time).count());
}

int append_token(sd_bus_message* message, const HelperToken& token) {
    if (sd_bus_message_open_container(message, 'e', "sv") < 0 ||
        sd_bus_message_append(message, "s", helper::auth_key) < 0 ||
        sd_bus_message_open_container(message, 'v', "ay") < 0 ||
        sd_bus_message_append_array(message, 'y', token.data(), token.size()) < 0 ||
        sd_bus_message_close_container(message) < 0)
        return -1;
    return sd_bus_message_close_container(message);
}

int append_request(sd_bus_message* message, const std::string& request, const std::optional<HelperToken>& auth) {
    if (sd_bus_message_open_container(message, 'a', "{sv}") < 0 ||
        sd_bus_message_append(message, "{sv}", helper::request_key, "s", request.c_str()) < 0 ||
        (auth && append_token(message, *auth) < 0))
        return -1;
    return sd_bus_message_close_container(message);
}

std::optional<std::string> read_reply(sd_bus_message* message) {
    std::optional<std::string> reply;
    if (sd_bus_message_enter_container(message, 'a', "{sv}") < 0)
        return reply;
    while (sd_bus_message_enter_container(message, 'e', "sv") > 0) {
        const char* key = nullptr;
        const char* text = nullptr;
        if (sd_bus_message_read(message, "s", &key) < 0)
            return reply;
        if (std::string_view(key) == helper::reply_key && sd_bus_message_read(message, "v", "s", &text) > 0)
            reply = text;
        else if (sd_bus_message_skip(message, "v") < 0)
            return reply;
        if (sd_bus_message_exit_container(message) < 0)
            return reply;
    }
    return reply;
}

} // namespace

BusPrivilegedChannel::BusPrivilegedChannel(Execute& execute, std::string installer, std::string version)
    : m_execute(execute), m_installer(std::move(installer)), m_version(std::move(version)) {}

// A connection that broke is replaced: no authorisation holds for the new one, and the helper will say so.
sd_bus* BusPrivilegedChannel::connection() {
    if (m_bus && sd_bus_is_open(m_bus.get()) > 0)
        return m_bus.get();
    m_bus.reset();
    sd_bus* opened = nullptr;
    if (sd_bus_open_system_with_description(&opened, "tickervantage") >= 0)
        m_bus.reset(opened);
    return m_bus.get();
}

BusMessage BusPrivilegedChannel::new_call(const char* method) {
    sd_bus_message* message = nullptr;
    auto* bus = connection();
    if (bus == nullptr || sd_bus_message_new_method_call(bus, &message, helper::bus_name, helper::object_path,
                                                         helper::interface_name, method) < 0)
        return nullptr;
    (void)sd_bus_message_set_allow_interactive_authorization(message, 1); // without it nobody is asked
    return BusMessage(message);
}

BusMessage BusPrivilegedChannel::call(const BusMessage& message, std::chrono::minutes time_limit,
                                      std::string& sentence) {
    CallError error;
    sd_bus_message* reply = nullptr;
    if (message && sd_bus_call(m_bus.get(), message.get(), microseconds(time_limit), error.get(), &reply) >= 0)
        return BusMessage(reply);
    sentence = error.is_refusal() ? error.text() : fmt::format("The root helper cannot be reached: {}.", error.text());
    return nullptr;
}

bool BusPrivilegedChannel::is_current() {
    const std::lock_guard lock(m_mutex);
    auto* bus = connection();
    char* version = nullptr;
    CallError error;
    const bool answers =
        bus != nullptr && sd_bus_get_property_string(bus, helper::bus_name, helper::object_path, helper::interface_name,
                                                     helper::version_property, error.get(), &version) >= 0;
    const bool fits = answers && m_version == version;
    std::free(version); // NOLINT(cppcoreguidelines-no-malloc): sd-bus allocated it
    return fits;
}

int BusPrivilegedChannel::install(std::string& sentence) {
    if (is_current())
        return 0;
    const auto result =
        m_execute.run({.program = pkexec, .arguments = {m_installer, "--install"}, .time_limit = helper::dialog_limit});
    if (result.outcome == ExecuteOutcome::exited && result.exit_status == 0 && is_current())
        return 0;
    const auto& why = result.sentence.empty() ? result.output : result.sentence;
    sentence = why.empty() ? "The root helper was not installed." : "The root helper was not installed: " + why;
    return -1;
}

std::optional<HelperToken> BusPrivilegedChannel::authorise(std::string& sentence) {
    const std::lock_guard lock(m_mutex);
    const auto reply = call(new_call(helper::authorise_method), helper::dialog_limit, sentence);
    const void* bytes = nullptr;
    std::size_t size = 0;
    if (!reply)
        return std::nullopt;
    HelperToken token{};
    if (sd_bus_message_read_array(reply.get(), 'y', &bytes, &size) < 0 || size != token.size()) {
        sentence = "The root helper gave no authorisation.";
        return std::nullopt;
    }
    std::copy_n(static_cast<const unsigned char*>(bytes), size, token.begin());
    return token;
}

std::optional<std::string> BusPrivilegedChannel::send(const std::string& request,
                                                      const std::optional<HelperToken>& auth) {
    const std::lock_guard lock(m_mutex);
    const auto message = new_call(helper::request_method);
    if (!message || append_request(message.get(), request, auth) < 0)
        return std::nullopt;
    std::string sentence;
    const auto reply = call(message, helper::request_limit_time, sentence);
    return reply ? read_reply(reply.get()) : std::optional(sentence);
}

void BusPrivilegedChannel::disconnect() {
    const std::lock_guard lock(m_mutex);
    m_bus.reset();
}

} // namespace tickervantage
