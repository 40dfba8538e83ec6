// What the helper tells the system's journal: one structured line a decision. The text of a request and the token are
// never part of it.
#pragma once

#include "roothelper/grammar/helper_tokens.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tickervantage {

enum class Decision : unsigned char { done, refused, failed };

// The fields RESULT, CALLER_UID (where it is known), VERB and SENDER, with a sentence for people.
void journal_decision(Decision decision, const HelperCaller& caller, std::string_view verb,
                      const std::string& sentence);

// How many more refusals a connection met with in a minute than the one that is told; fields as above, and COUNT.
void journal_more_refusals(const HelperCaller& caller, std::uint64_t count);

// Something about the helper itself.
void journal_note(const std::string& sentence);

} // namespace tickervantage
