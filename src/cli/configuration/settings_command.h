// What `tickerctl settings list|get KEY|set KEY VALUE|reset` does, without the reading of its arguments.
//
// Results are exit statuses: 0 done; 1 the answer is no (the setting has no value); 2 no such key, an invalid value, or
// a change that could not be saved, with one line on `err`. JSON is never localised, its numbers read back exactly, and
// a setting without a value is null. Main thread.
#pragma once

#include "base/failure.h"
#include "settings/settings_catalogue.h"

#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>

namespace tickervantage {

enum class OutputForm : unsigned char { text, json };

// Blocks until what was changed is on the disk.
using FinishSaving = std::function<Result<>()>;

struct SettingsCommand {
    SettingsStore& store;
    FinishSaving finish_saving;
    std::ostream& out;
    std::ostream& err;

    [[nodiscard]] int list(OutputForm form) const;
    [[nodiscard]] int get(std::string_view key, OutputForm form) const;
    [[nodiscard]] int set(std::string_view key, std::string_view value) const;
    [[nodiscard]] int reset() const; // keys of other programs stay
};

} // namespace tickervantage
