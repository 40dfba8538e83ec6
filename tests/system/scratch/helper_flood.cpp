// Sends the root helper as many small messages as the bus takes, over many connections at once, until it is killed.
//
//   helper_flood CONNECTIONS plain|silent|token|authorise|churn
//
// "plain" carries no authorisation, "silent" wants no answer either, "token" carries a made-up authorisation,
// "authorise" asks for one each time, "churn" leaves the bus after a few messages and comes back under another name.
// Each connection is a process of its own and has more calls under way than the bus forgives. Run by root_side in a
// scratch machine.
#include "linux/bus_owners.h"
#include "roothelper/grammar/helper_names.h"

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace tickervantage {
namespace {

constexpr int most_under_way = 500; // the bus forgives 128 and answers the others itself
constexpr int messages_of_a_visit = 50;

int on_answer(sd_bus_message*, void* under_way, sd_bus_error*) {
    --*static_cast<int*>(under_way);
    return 1;
}

BusMessage message_of(sd_bus* bus, std::string_view kind) {
    sd_bus_message* made = nullptr;
    const char* method = kind == "authorise" ? helper::authorise_method : helper::request_method;
    if (sd_bus_message_new_method_call(bus, &made, helper::bus_name, helper::object_path, helper::interface_name,
                                       method) < 0)
        return nullptr;
    BusMessage message(made);
    if (kind == "silent" && sd_bus_message_set_expect_reply(made, 0) < 0)
        return nullptr;
    if (kind == "authorise")
        return message;
    if (kind != "token")
        return sd_bus_message_append(made, "a{sv}", 1, helper::request_key, "s", "x") < 0 ? nullptr
                                                                                          : std::move(message);
    constexpr std::array<unsigned char, helper::token_size> bytes{};
    const bool is_made = sd_bus_message_open_container(made, 'a', "{sv}") >= 0 &&
                         sd_bus_message_append(made, "{sv}", helper::request_key, "s", "x") >= 0 &&
                         sd_bus_message_open_container(made, 'e', "sv") >= 0 &&
                         sd_bus_message_append(made, "s", helper::auth_key) >= 0 &&
                         sd_bus_message_open_container(made, 'v', "ay") >= 0 &&
                         sd_bus_message_append_array(made, 'y', bytes.data(), bytes.size()) >= 0 &&
                         sd_bus_message_close_container(made) >= 0 && sd_bus_message_close_container(made) >= 0 &&
                         sd_bus_message_close_container(made) >= 0;
    return is_made ? std::move(message) : nullptr;
}

bool send_one(sd_bus* bus, std::string_view kind, int& under_way) {
    const auto message = message_of(bus, kind);
    if (!message)
        return false;
    if (kind == "silent")
        return sd_bus_send(bus, message.get(), nullptr) >= 0 && sd_bus_flush(bus) >= 0;
    ++under_way;
    return sd_bus_call_async(bus, nullptr, message.get(), on_answer, &under_way, UINT64_MAX) >= 0;
}

void send_from_one_connection(std::string_view kind) {
    sd_bus* opened = nullptr;
    if (sd_bus_open_system(&opened) < 0)
        return;
    const Bus bus(opened);
    int under_way = 0;
    for (int sent = 0; kind != "churn" || sent < messages_of_a_visit;) {
        if (under_way < most_under_way) {
            if (!send_one(opened, kind, under_way))
                return;
            ++sent;
        }
        const int done = sd_bus_process(opened, nullptr);
        if (done < 0 || (done == 0 && under_way == most_under_way && sd_bus_wait(opened, UINT64_MAX) < 0))
            return;
    }
}

[[noreturn]] void flood(std::string_view kind) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    while (true) {
        send_from_one_connection(kind);
        ::usleep(10'000); // the bus let nobody in just now
    }
}

} // namespace
} // namespace tickervantage

int main(int argc, char** argv) {
    const int connections = argc == 3 ? std::atoi(argv[1]) : 0;
    if (connections <= 0) {
        (void)std::fputs("usage: helper_flood CONNECTIONS plain|silent|token|authorise|churn\n", stderr);
        return 2;
    }
    for (int number = 0; number < connections; ++number)
        if (::fork() == 0)
            tickervantage::flood(argv[2]);
    ::pause();
}
