// The distribution's chrony is used without a word of the user where none of the paths was ever set: that is said, once
// for each settings file, by the desktop program or by tickerctl, whichever comes first.
#pragma once

#include <iosfwd>

namespace tickervantage {

struct PreferencesGeneral;
class WarningRegister;

// Writes one line, unless it was written before. Whether it did.
bool tell_unasked_choice(const PreferencesGeneral& general, WarningRegister& warnings, std::ostream& err);

} // namespace tickervantage
