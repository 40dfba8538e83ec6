// The way to the root helper, which does what needs administrator rights: one message out, one reply back.
//
// A message is a line of text, with the authorisation beside it once there is one. What the lines say is the business
// of whoever sends them. Everything that blocks may be called from any thread but the main one, and by several at once:
// no call waits for another one's answer.
#pragma once

#include "base/failure.h"

#include <array>
#include <optional>
#include <string>

namespace tickervantage {

// What the helper gives out for a granted authorisation. It is worth something on the connection that asked for it
// only.
using HelperToken = std::array<unsigned char, 32>;

struct HelperAnswer {
    std::optional<std::string> reply = {}; // none: the message brought no text
    bool is_done = false;                  // the helper did what it was asked
    std::optional<Failure> failure = {};   // why it was not done; of ChronyHelper's answers those have it that are not
};

class PrivilegedChannel {
public:
    virtual ~PrivilegedChannel() = default;

    // Makes sure that a helper answers which this program can talk to, installing it where it is missing and no package
    // brought it. Blocks.
    [[nodiscard]] virtual Result<> install() = 0;

    // Asks for administrator rights. Blocks for as long as a person takes to type a password.
    [[nodiscard]] virtual Result<HelperToken> authorise() = 0;

    // Sends one message and waits for what comes of it. Blocks.
    [[nodiscard]] virtual HelperAnswer ask(const std::string& request, const std::optional<HelperToken>& auth) = 0;

    // The same, for those who want the reply's text alone.
    [[nodiscard]] std::optional<std::string> send(const std::string& request, const std::optional<HelperToken>& auth) {
        return ask(request, auth).reply;
    }

    // Closes the connection; the next call opens another one, which no earlier authorisation holds for.
    virtual void disconnect() = 0;

    // The program ends: nobody is asked for anything any more, and whoever waits for a person goes without the rights
    // at once. A job under way may send what it has left, within some seconds. Any thread, returns at once.
    virtual void cancel() = 0;
};

} // namespace tickervantage
