// A root helper that only remembers what it was asked.
#pragma once

#include "roothelper/client/privileged_channel.h"

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace tickervantage::testing {

class FakePrivilegedChannel : public PrivilegedChannel {
public:
    bool prepared = false;
    bool disconnected = false;
    bool installs = true; // what install() answers
    bool grants = true;   // what authorise() answers
    int installed = 0;    // how often it was called
    int asked = 0;        // likewise
    std::optional<std::string> reply = "";
    std::function<std::optional<std::string>(const std::string& command)> answer; // in place of `reply`
    std::vector<std::string> commands;                                            // that EXECUTE carried
    std::vector<std::string> failing;                                             // words of those that fail
    std::vector<std::string> requests;                                            // whole
    std::optional<HelperToken> last_auth;                                         // of the latest message

    static constexpr HelperToken token{1, 2, 3};

    void prepare() override { prepared = true; }
    [[nodiscard]] int install(std::string& sentence) override {
        ++installed;
        sentence = installs ? "" : "The helper cannot be installed.";
        return installs ? 0 : -1;
    }
    [[nodiscard]] std::optional<HelperToken> authorise(std::string& sentence) override {
        ++asked;
        sentence = grants ? "" : "Not granted.";
        return grants ? std::optional(token) : std::nullopt;
    }
    [[nodiscard]] HelperAnswer ask(const std::string& request, const std::optional<HelperToken>& auth) override {
        requests.push_back(request);
        last_auth = auth;
        const std::string verb = "EXECUTE ";
        if (!request.starts_with(verb))
            return {reply, true};
        commands.push_back(request.substr(verb.size()));
        const auto fails = [&](const std::string& word) {
            return commands.back().find(word) != std::string::npos;
        };
        return {answer ? answer(commands.back()) : reply, std::ranges::none_of(failing, fails)};
    }
    void disconnect() override { disconnected = true; }
    void cancel() override {}
};

} // namespace tickervantage::testing
