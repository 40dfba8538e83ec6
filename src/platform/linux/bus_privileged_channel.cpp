#include "platform/linux/bus_privileged_channel.h"

#include "platform/helper_names.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace tickervantage {
namespace {

constexpr const char* pkexec = "/usr/bin/pkexec";

constexpr std::chrono::seconds look_limit{25}; // for the version, with an activation in it

const BusMethod request_call{helper::interface_name, helper::request_method, false, helper::request_limit_time};
const BusMethod authorise_call{helper::interface_name, helper::authorise_method, true, helper::dialog_limit};
const BusMethod withdraw_call{helper::interface_name, helper::withdraw_method, false, look_limit};
const BusMethod version_call{"org.freedesktop.DBus.Properties", "Get", false, look_limit};

// Whether the answer is one; otherwise the sentence says why not.
bool succeeded(const BusMessage& answer, std::string& sentence) {
    if (answer && sd_bus_message_is_method_error(answer.get(), nullptr) == 0)
        return true;
    const auto* error = answer ? sd_bus_message_get_error(answer.get()) : nullptr;
    const std::string text =
        error != nullptr && error->message != nullptr ? error->message : "the system bus does not answer";
    const bool is_refusal = error != nullptr && sd_bus_error_has_name(error, helper::refused_error) > 0;
    sentence = is_refusal ? text : fmt::format("The root helper cannot be reached: {}.", text);
    return false;
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
    : m_execute(execute), m_installer(std::move(installer)), m_version(std::move(version)),
      m_calls(helper::bus_name, helper::object_path) {}

bool BusPrivilegedChannel::is_current() {
    const auto answer = m_calls.call(version_call, [](sd_bus_message* message) {
        return sd_bus_message_append(message, "ss", helper::interface_name, helper::version_property);
    });
    std::string ignored; // what is not there is installed, whatever the reason
    const char* version = nullptr;
    return succeeded(answer, ignored) && sd_bus_message_read(answer.get(), "v", "s", &version) > 0 &&
           m_version == version;
}

int BusPrivilegedChannel::install(std::string& sentence) {
    if (is_current() || is_current()) // twice: a helper that ends under the question is there all the same
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
    const auto answer = m_calls.call(authorise_call, {});
    const void* bytes = nullptr;
    std::size_t size = 0;
    if (!succeeded(answer, sentence))
        return std::nullopt;
    HelperToken token{};
    if (sd_bus_message_read_array(answer.get(), 'y', &bytes, &size) < 0 || size != token.size()) {
        sentence = "The root helper gave no authorisation.";
        return std::nullopt;
    }
    std::copy_n(static_cast<const unsigned char*>(bytes), size, token.begin());
    return token;
}

std::optional<std::string> BusPrivilegedChannel::send(const std::string& request,
                                                      const std::optional<HelperToken>& auth) {
    const auto answer =
        m_calls.call(request_call, [&](sd_bus_message* message) { return append_request(message, request, auth); });
    std::string sentence;
    return succeeded(answer, sentence) ? read_reply(answer.get()) : std::optional(sentence);
}

void BusPrivilegedChannel::disconnect() {
    m_calls.disconnect();
}

void BusPrivilegedChannel::cancel() {
    m_calls.cancel(withdraw_call);
}

} // namespace tickervantage
