// Any bytes as the text of a setting: nothing crashes, and what is accepted has a normal form that stays as it is.
#include "base/number_text.h"
#include "base/utf8.h"
#include "fuzz/require.h"
#include "settings/settings_catalogue.h"

namespace {

void check_one(const SettingKey& setting, std::string_view text) {
    const auto value = check_setting(setting, text);
    if (value && value->size() == 1) // else a list
        require(check_setting(setting, value->front()) == value);
}

} // namespace

FUZZED(text) {
    for (const auto& setting : all_settings())
        check_one(setting, text);
    if (const auto number = number_from_text<double>(text))
        require(number_from_text<double>(text_from_double(*number).value_or("")) == number);
    (void)is_plain_utf8(text);
}
