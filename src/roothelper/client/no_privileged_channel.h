// The channel of a program that has no root helper: nothing is ever granted or answered.
#pragma once

#include "base/failure_codes.h"
#include "roothelper/client/privileged_channel.h"

namespace tickervantage {

class NoPrivilegedChannel : public PrivilegedChannel {
public:
    [[nodiscard]] Result<> install() override { return failed(FailureCode::no_helper_here); }
    [[nodiscard]] Result<HelperToken> authorise() override { return failed(FailureCode::no_helper_here); }
    [[nodiscard]] HelperAnswer ask(const std::string&, const std::optional<HelperToken>&) override { return {}; }
    void disconnect() override {}
    void cancel() override {}
};

} // namespace tickervantage
