// The channel of a program that has no root helper: never ready.
#pragma once

#include "platform/privileged_channel.h"

namespace tickervantage {

class NoPrivilegedChannel : public PrivilegedChannel {
public:
    void prepare() override {}
    [[nodiscard]] bool ready() const override { return false; }
    std::string execute(const std::string&) override { return {}; }
    void disconnect() override {}
};

} // namespace tickervantage
