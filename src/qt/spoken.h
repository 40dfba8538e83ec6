// What running a program and reading a log say, in the language of the windows: these two still hand out English
// sentences, which a window shows as spoken(sentence). Everything else that fails is a Failure (in_words.h).
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
