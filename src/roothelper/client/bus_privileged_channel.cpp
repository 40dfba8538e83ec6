#include "roothelper/client/bus_privileged_channel.h"

#include "base/failure_codes.h"
#include "base/failure_line.h"
#include "base/text_lines.h"
#include "roothelper/grammar/helper_names.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace tickervantage {
namespace {

constexpr const char* pkexec = "/usr/bin/pkexec";

constexpr std::chrono::seconds look_limit{25}; // for the protocol, with an activation in it

const BusMethod request_call{helper::interface_name, helper::request_method, false, helper::request_limit_time};
const BusMethod authorise_call{helper::interface_name, helper::authorise_method, true, helper::dialog_limit};
const BusMethod withdraw_call{helper::interface_name, helper::withdraw_method, false, look_limit};
const BusMethod protocol_call{"org.freedesktop.DBus.Properties", "Get", false, look_limit};

bool is_answer(const BusMessage& answer) {
    return answer && sd_bus_message_is_method_error(answer.get(), nullptr) == 0;
}

// The helper's own words, and behind them the same as a record, unless it is an older one.
Failure refusal_in(sd_bus_message* error, const char* words) {
    const char* line = nullptr;
    if (sd_bus_message_rewind(error, 1) < 0 || sd_bus_message_skip(error, "s") < 0 ||
        sd_bus_message_read(error, "s", &line) <= 0)
        return said_by_others(words);
    return failure_in(line).value_or(said_by_others(words));
}

// Why there is no answer.
Failure failure_of(const BusMessage& answer) {
    const auto* error = answer ? sd_bus_message_get_error(answer.get()) : nullptr;
    if (error == nullptr || error->message == nullptr)
        return failed(FailureCode::helper_unreachable, {}, Failure{.code = FailureCode::bus_silent}).value();
    if (sd_bus_error_has_name(error, helper::refused_error) > 0)
        return refusal_in(answer.get(), error->message);
    return failed(FailureCode::helper_unreachable, {}, said_by_others(error->message)).value();
}

// Whether the error says that there is no such helper, rather than that it cannot answer now.
bool says_absent(std::string_view error) {
    return error == "org.freedesktop.DBus.Error.ServiceUnknown" ||
           error == "org.freedesktop.DBus.Error.NameHasNoOwner" || error == "org.freedesktop.DBus.Error.AccessDenied" ||
           error == "org.freedesktop.systemd1.NoSuchUnit" || error.starts_with("org.freedesktop.DBus.Error.Spawn.");
}

// Those that came before there was a protocol do not know the property.
bool says_other(std::string_view error) {
    return error == "org.freedesktop.DBus.Error.UnknownProperty" ||
           error == "org.freedesktop.DBus.Error.UnknownInterface";
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

HelperAnswer read_reply(sd_bus_message* message) {
    HelperAnswer answer;
    if (sd_bus_message_enter_container(message, 'a', "{sv}") < 0)
        return answer;
    while (sd_bus_message_enter_container(message, 'e', "sv") > 0) {
        const char* key = nullptr;
        const char* text = nullptr;
        std::int32_t status = 1;
        if (sd_bus_message_read(message, "s", &key) < 0)
            return answer;
        const std::string_view name = key;
        if (name == helper::reply_key && sd_bus_message_read(message, "v", "s", &text) > 0)
            answer.reply = text;
        else if (name == helper::status_key && sd_bus_message_read(message, "v", "i", &status) > 0)
            answer.is_done = status == 0;
        else if (name == helper::failure_key && sd_bus_message_read(message, "v", "s", &text) > 0)
            answer.failure = failure_in(text);
        else if (sd_bus_message_skip(message, "v") < 0)
            return answer;
        if (sd_bus_message_exit_container(message) < 0)
            return answer;
    }
    return answer;
}

} // namespace

BusPrivilegedChannel::BusPrivilegedChannel(Execute& execute, std::string installer)
    : m_execute(execute), m_installer(std::move(installer)), m_calls(helper::bus_name, helper::object_path) {}

Result<BusPrivilegedChannel::Found> BusPrivilegedChannel::look() {
    const auto answer = m_calls.call(protocol_call, [](sd_bus_message* message) {
        return sd_bus_message_append(message, "ss", helper::interface_name, helper::protocol_property);
    });
    std::uint32_t protocol = 0;
    if (is_answer(answer))
        return sd_bus_message_read(answer.get(), "v", "u", &protocol) > 0 && protocol == helper::protocol
                   ? Found::ours
                   : Found::other;
    const auto* error = answer ? sd_bus_message_get_error(answer.get()) : nullptr;
    const std::string_view name = error != nullptr && error->name != nullptr ? error->name : "";
    if (says_other(name))
        return Found::other;
    if (says_absent(name))
        return Found::absent;
    return tl::unexpected(failure_of(answer));
}

Result<> BusPrivilegedChannel::run_installer() {
    auto result = m_execute.run({.program = pkexec,
                                 .arguments = {m_installer, "--install", failure_option},
                                 .time_limit = helper::dialog_limit});
    if (result.outcome == ExecuteOutcome::exited && result.exit_status == 0 && look() == Found::ours)
        return {};
    auto why = result.failure ? std::move(result.failure) : take_failure(result.output);
    return failed(FailureCode::helper_not_installed, {},
                  why ? *std::move(why) : said_by_others(std::string(trimmed(result.output))));
}

Result<> BusPrivilegedChannel::install() {
    auto found = look();
    if (found != Found::ours)
        found = look(); // a helper that ends under the question is there all the same
    if (!found)
        return tl::unexpected(found.error());
    if (found == Found::ours)
        return {};
    if (!m_installer.starts_with(std::string(helper::package_bundle) + '/'))
        return run_installer();
    return failed(found == Found::other ? FailureCode::helper_of_other_version : FailureCode::helper_missing);
}

Result<HelperToken> BusPrivilegedChannel::authorise() {
    const auto answer = m_calls.call(authorise_call, {});
    const void* bytes = nullptr;
    std::size_t size = 0;
    if (!is_answer(answer))
        return tl::unexpected(failure_of(answer));
    HelperToken token{};
    if (sd_bus_message_read_array(answer.get(), 'y', &bytes, &size) < 0 || size != token.size())
        return failed(FailureCode::helper_gave_no_authorisation);
    std::copy_n(static_cast<const unsigned char*>(bytes), size, token.begin());
    return token;
}

HelperAnswer BusPrivilegedChannel::ask(const std::string& request, const std::optional<HelperToken>& auth) {
    const auto answer =
        m_calls.call(request_call, [&](sd_bus_message* message) { return append_request(message, request, auth); });
    if (is_answer(answer))
        return read_reply(answer.get());
    const Failure failure = failure_of(answer);
    return {.reply = english(failure), .failure = failure};
}

void BusPrivilegedChannel::disconnect() {
    m_calls.disconnect();
}

void BusPrivilegedChannel::cancel() {
    m_calls.cancel(withdraw_call);
}

} // namespace tickervantage
