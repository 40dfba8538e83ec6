// The refusals of messages that lead to no job, in the journal: the first of a connection in a minute, then how many
// more there were. Without this anybody could fill the journal, and push out of it what others did.
#pragma once

#include "base/failure.h"
#include "roothelper/grammar/helper_quota.h"
#include "roothelper/service/callers.h"

#include <string>
#include <string_view>

namespace tickervantage {

class Refusals {
public:
    // The callers outlive the refusals.
    explicit Refusals(Callers& callers) : m_callers(callers) {}

    void add(const std::string& sender, std::string_view verb, const Failure& why);

    // Tells what was only counted. To be called every minute, and at the end.
    void tell();

private:
    Callers& m_callers;
    RefusalCounts m_counts;
};

} // namespace tickervantage
