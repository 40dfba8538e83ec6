// What the logic says, in the language of the windows. The logic speaks English and knows no languages, since the same
// sentences go to logs and to the command line; a window shows spoken(sentence) in place of the sentence.
//
// A sentence is found again by its fixed words, and what stands between them (a path, a number, another sentence) is
// put into the translation; another sentence in there is translated too. A value that holds the words which follow it
// (a path with ": " in it) is parted there, and keeps all its letters. What nobody has listed stays English, as do
// the words of chrony and of the system. Any thread; no state.
#pragma once

#include <QString>

#include <string_view>

namespace tickervantage {

[[nodiscard]] QString spoken(std::string_view sentence);

} // namespace tickervantage
