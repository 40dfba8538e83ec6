// A root helper that only remembers what it was asked.
#pragma once

#include "platform/privileged_channel.h"

#include <string>
#include <vector>

namespace tickervantage::testing {

class FakePrivilegedChannel : public PrivilegedChannel {
public:
    bool is_ready = false;
    bool prepared = false;
    bool disconnected = false;
    std::string reply;
    std::vector<std::string> commands;

    void prepare() override { prepared = true; }
    [[nodiscard]] bool ready() const override { return is_ready; }
    std::string execute(const std::string& command) override {
        commands.push_back(command);
        return is_ready ? reply : std::string();
    }
    void disconnect() override { disconnected = true; }
};

} // namespace tickervantage::testing
