// A root helper that only remembers what it was asked.
#pragma once

#include "roothelper/client/privileged_channel.h"
#include "support/test.h"

namespace tickervantage::testing {

class FakePrivilegedChannel : public PrivilegedChannel {
public:
    bool disconnected = false;
    bool installs = true; // what install() answers
    bool grants = true;   // what authorise() answers
    int installed = 0;    // how often it was called
    int asked = 0;        // likewise
    std::optional<std::string> reply = "";
    std::function<std::optional<std::string>(const std::string& command)> answer; // in place of `reply`
    std::vector<std::string> commands;                                            // that EXECUTE carried
    std::vector<std::string> failing;                                             // words of those that fail
    std::optional<Failure> failure;                                               // of those
    std::vector<std::string> requests;                                            // whole
    std::optional<HelperToken> last_auth;                                         // of the latest message

    static constexpr HelperToken token{1, 2, 3};

    [[nodiscard]] Result<> install() override {
        ++installed;
        return installs ? Result<>() : tl::unexpected(said_by_others("The helper cannot be installed."));
    }
    [[nodiscard]] Result<HelperToken> authorise() override {
        ++asked;
        return grants ? Result<HelperToken>(token) : tl::unexpected(said_by_others("Not granted."));
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
        const bool is_done = std::ranges::none_of(failing, fails);
        return {answer ? answer(commands.back()) : reply, is_done, is_done ? std::nullopt : failure};
    }
    void disconnect() override { disconnected = true; }
    void cancel() override {}
};

} // namespace tickervantage::testing
