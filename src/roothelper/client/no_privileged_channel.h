// The channel of a program that has no root helper: nothing is ever granted or answered.
#pragma once

#include "roothelper/client/privileged_channel.h"

namespace tickervantage {

class NoPrivilegedChannel : public PrivilegedChannel {
public:
    void prepare() override {}
    [[nodiscard]] int install(std::string& sentence) override {
        sentence = "There is no root helper here.";
        return -1;
    }
    [[nodiscard]] std::optional<HelperToken> authorise(std::string& sentence) override {
        sentence = "There is no root helper here.";
        return std::nullopt;
    }
    [[nodiscard]] HelperAnswer ask(const std::string&, const std::optional<HelperToken>&) override { return {}; }
    void disconnect() override {}
    void cancel() override {}
};

} // namespace tickervantage
