#include "base/failure_codes.h"
#include "base/number_text.h"
#include "base/utf8.h"
#include "cli/admin/admin_command.h"
#include "cli/configuration/settings_command.h"
#include "settings/preferences.h"
#include "settings/settings_catalogue.h"
#include "settings/warning_register.h"
#include "support/kept_text.h"
#include "support/memory_stores.h"
#include "support/test.h"

#include <clocale>
#include <nlohmann/json.hpp>

namespace tickervantage {
namespace {

using testing::MemorySettingsStore;

constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(SettingText, TakesTheWholeTextOrNothing) {
    for (const auto* bad : {"", " 1", "1 ", "+1", "0x10", "1,5", "1e", "--1", "9223372036854775808", "TRUE", "1.5.2"}) {
        EXPECT_FALSE(number_from_text<std::int64_t>(bad)) << bad;
        EXPECT_FALSE(value_from_text<bool>(bad)) << bad;
    }
    for (const auto* bad : {"", "inf", "-nan", "1,5", "1e999", "0x1p3", "1 ", "+1"})
        EXPECT_FALSE(number_from_text<double>(bad)) << bad;
    for (const auto* bad : {"", "#12345", "#1234567", "123456", "#12345g", "#-12345", "#+1+1+1", "#123456789"})
        EXPECT_FALSE(value_from_text<Color>(bad)) << bad;
    for (const auto* bad : {"", "Sans", ",10", "Sans,", "Sans,0", "Sans,-1", "Sans,inf", "Sans,1e9"})
        EXPECT_FALSE(value_from_text<Font>(bad)) << bad;
    EXPECT_EQ(number_from_text<std::int64_t>("-9223372036854775808"), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(value_from_text<Font>("A, B,9.5"), (Font{"A, B", 9.5}));
    EXPECT_EQ(value_from_text<Color>("#FF000080"), (Color{1, 0, 0, 128 / 255.0}));
}

TEST(SettingText, DoublesReadBackExactlyInEveryLocale) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const auto* locale : {"C", "de_DE.UTF-8", "fr_FR.UTF-8"}) {
        (void)std::setlocale(LC_ALL, locale); // where it is not installed, the round before is repeated
        for (const double value : {0.1, -0.0, 1e-300, 5e-324, 1.7976931348623157e308, 1.0 / 3, 123456789.125})
            EXPECT_EQ(number_from_text<double>(text_from_double(value).value_or("")), value);
    }
    (void)std::setlocale(LC_ALL, before.c_str());
    EXPECT_EQ(text_from_double(0.1), "0.1");
    for (const double lost : {infinity, -infinity, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_FALSE(text_from_double(lost));
}

TEST(SettingText, EveryColourLevelReadsBack) {
    for (int level = 0; level < 256; ++level) {
        const Color color{level / 255.0, 1 - level / 255.0, 0.5, level / 255.0};
        const auto text = text_of(color);
        EXPECT_EQ(text_of(value_from_text<Color>(text.value_or("")).value_or(Color{})), text);
    }
    EXPECT_EQ(text_of(Color{-1, 2, 0, 9}), "#00ff00");
    EXPECT_FALSE(text_of(Color{std::numeric_limits<double>::quiet_NaN(), 0, 0, 1}));
}

TEST(SettingText, KnowsWellFormedUtf8) {
    for (const auto* good : {"", "plain", "\xC2\xB5s", "\xE2\x82\xAC", "\xF0\x9F\x95\x90"})
        EXPECT_TRUE(is_plain_utf8(good)) << good;
    for (const auto* bad : {"\x80", "\xC3", "\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xFF"})
        EXPECT_FALSE(is_plain_utf8(bad));
    EXPECT_FALSE(is_plain_utf8({"a\0b", 3}));
}

TEST(DefaultSettings, UnreadableValuesGiveTheDefaultAndLostOnesAreNotSaved) {
    MemorySettingsStore store;
    DefaultSettings settings(store);
    store.values = {{"a", {"maybe"}}, {"list", {"Sans Mono", "10"}}, {"empty", {}}};
    EXPECT_TRUE(settings.loadBool("a", true));
    EXPECT_EQ(settings.loadInteger("a", 7), 7);
    EXPECT_EQ(settings.loadColor("a", {1, 0, 0, 1}), (Color{1, 0, 0, 1}));
    EXPECT_EQ(settings.loadString("empty", "x"), "x");
    EXPECT_EQ(settings.loadFont("list", {}), (Font{"Sans Mono", 10})); // a comma somebody forgot to quote
    settings.saveDouble("d", infinity);
    EXPECT_FALSE(store.values.contains("d"));
    settings.saveFont("list", {});
    EXPECT_FALSE(store.values.contains("list"));
}

TEST(DefaultSettings, WhatWasLoadedIsNotSavedOverWhatWasSetElsewhere) {
    MemorySettingsStore store;
    DefaultSettings settings(store);
    store.values = {{"a", {"1"}}};
    EXPECT_EQ(settings.loadInteger("a", 0) + settings.loadInteger("b", 2), 3);
    EXPECT_EQ(settings.loadFont("font", {}), Font{});
    store.values = {{"a", {"5"}}, {"font", {"Serif,9"}}};
    settings.saveInteger("a", 1);
    settings.saveInteger("b", 2);
    settings.saveFont("font", {});
    EXPECT_EQ(store.values,
              (std::map<std::string, std::vector<std::string>, std::less<>>{{"a", {"5"}}, {"font", {"Serif,9"}}}));
    settings.saveInteger("a", 7);
    settings.saveInteger("a", 1); // changed, and changed back
    EXPECT_EQ(store.values.at("a"), std::vector<std::string>{"1"});
    settings.reset("a");
    EXPECT_FALSE(store.values.contains("a"));
    settings.saveInteger("a", 1);
    EXPECT_TRUE(store.values.contains("a"));
}

TEST(PreferencesGeneral, UsualPathsCountOnlyWhereNoneWasEverSet) {
    const ChronyPaths found{"/etc/chrony/chrony.conf", "/usr/bin/chronyc", "/usr/sbin/chronyd", "/wake", true};
    MemorySettingsStore store;
    DefaultSettings settings(store);
    auto general = PreferencesGeneral::load(settings, found);
    EXPECT_EQ(general.paths(), found);
    general.adj_system = false;
    general.save(settings);
    EXPECT_EQ(store.values.size(), 1U) << "only what was changed is set";
    EXPECT_TRUE(general.uses_distribution_unasked());

    std::ostringstream terminal;
    WarningRegister warnings(settings);
    EXPECT_TRUE(tell_unasked_choice(general, warnings, terminal));
    EXPECT_FALSE(tell_unasked_choice(general, warnings, terminal));
    EXPECT_NE(terminal.str().find("/usr/sbin/chronyd"), std::string::npos);

    general.chronyc = "/opt/chronyc"; // the others go on being used
    general.save(settings);
    EXPECT_EQ(PreferencesGeneral::load(settings).config, found.config);
    EXPECT_FALSE(PreferencesGeneral::load(settings, found).uses_distribution_unasked());
    general.restore_defaults(settings, found);
    general.save(settings);
    EXPECT_EQ(general.paths(), found);
    EXPECT_FALSE(store.values.contains("file_chronyd"));
    EXPECT_EQ(store.values.at("adj_system"), std::vector<std::string>{"true"});

    store.values = {{"file_chronyd", {"/usr/local/sbin/chronyd"}}};
    EXPECT_EQ(PreferencesGeneral::load(settings, found).paths(), documented_paths());
}

TEST(SettingsCatalogue, KeysDefaultsAndLimitsAreAsApproved) {
    std::set<std::string_view> keys;
    std::string told;
    for (const auto& setting : all_settings()) {
        EXPECT_TRUE(keys.insert(key_of(setting)).second) << key_of(setting);
        EXPECT_EQ(find_setting(key_of(setting)), &setting);
        const auto text = default_text(setting);
        if (text) {
            EXPECT_TRUE(check_setting(setting, *text)) << *text;
        }
        const auto wrong = check_setting(setting, "?\n");
        told += std::string(key_of(setting)) + " = " + text.value_or("nothing") + "; takes " +
                (wrong ? "anything" : english(wrong.error())) + "; " + std::string(description_of(setting)) + "\n";
    }
    testing::expect_as_kept(told, "settings");
    EXPECT_EQ(find_setting("SystemChronyAlert"), nullptr);
}

TEST(SettingsCatalogue, LoadsLimitOnlyWhatAControlLimits) {
    MemorySettingsStore store;
    const DefaultSettings settings(store);
    store.values = {{"chronyc_interval", {"0"}},          {"sync_timeout", {"999"}},   {"meter_view", {"7"}},
                    {"tracking_dateTimeRange", {"1"}},    {"tracking_vZoom", {"-99"}}, {"SPECTRUM_interval", {"0"}},
                    {"burst_netmask", {"  10.0.0.0/8\t"}}};
    EXPECT_EQ(load(settings, settings::chronyc_interval), 1);
    EXPECT_EQ(load(settings, settings::sync_timeout), 120);
    EXPECT_EQ(load(settings, settings::meter_view), 7);
    EXPECT_EQ(load(settings, settings::tracking_dateTimeRange), 0);
    EXPECT_EQ(load(settings, settings::tracking_vZoom), -5);
    EXPECT_EQ(load(settings, settings::SPECTRUM_interval), 0);
    EXPECT_EQ(load(settings, settings::burst_netmask), "10.0.0.0/8");
}

TEST(WarningRegister, WritesEachIdentifierOnceAndForgetsAllOnReset) {
    MemorySettingsStore store;
    store.values["IgnoreWarnings"] = {"FirstRunAlert", "FirstRunAlert"};
    DefaultSettings settings(store);
    WarningRegister warnings(settings);
    EXPECT_FALSE(warnings.contains("FirstRunAlert"));
    warnings.load();
    EXPECT_TRUE(warnings.contains("FirstRunAlert"));
    warnings.register_warning("FirstRunAlert");
    EXPECT_EQ(store.writes, 0);
    warnings.register_warning("PasswordRequired");
    warnings.register_warning("PasswordRequired");
    EXPECT_EQ(store.writes, 1);
    EXPECT_EQ(store.values["IgnoreWarnings"].size(), 2U);
    warnings.resetWarnings();
    EXPECT_FALSE(warnings.contains("PasswordRequired"));
    EXPECT_EQ(store.read("IgnoreWarnings"), std::vector<std::string>{});
}

struct SettingsCommandTest : ::testing::Test {
    MemorySettingsStore store;
    std::ostringstream out;
    std::ostringstream err;
    bool is_full = false;
    SettingsCommand command{store,
                            [this]() -> Result<> {
                                if (is_full)
                                    return failed(FailureCode::cannot_write, {"it"}, ENOSPC);
                                return {};
                            },
                            out, err};
};

TEST_F(SettingsCommandTest, SetStoresTheNormalFormOrSaysWhatIsWanted) {
    struct Row {
        const char* key;
        const char* typed;
        const char* stored; // null: refused
    };
    for (const auto& [key, typed, stored] :
         {Row{"chronyc_interval", "5", "5"}, Row{"chronyc_interval", "61", nullptr},
          Row{"chronyc_interval", "5s", nullptr}, Row{"meter_view", "6", nullptr}, Row{"ip_address", "1", "true"},
          Row{"tracking_dateTimeRange", "1", nullptr}, Row{"make_thresh", "1e-1", "0.1"},
          Row{"make_thresh", "nan", nullptr}, Row{"tracking_offsetColor", "#ABCDEF", "#abcdef"},
          Row{"tracking_offsetColor", "red", nullptr}, Row{"CHRONYC_Font", "Sans,10.50", "Sans,10.5"},
          Row{"file_config", "chrony.conf", nullptr}, Row{"burst_netmask", " ::/0 ", "::/0"},
          Row{"ntpdata_server", "a\nb", nullptr}, Row{"no_such_key", "1", nullptr}}) {
        store.values.clear();
        err.str({});
        EXPECT_EQ(command.set(key, typed), stored != nullptr ? 0 : 2) << key << ' ' << typed;
        if (stored != nullptr) {
            EXPECT_EQ(store.read(key), std::vector<std::string>{stored});
        }
        EXPECT_EQ(store.values.size(), stored != nullptr ? 1U : 0U);
        const std::string line = err.str();
        EXPECT_EQ(std::ranges::count(line, '\n'), stored != nullptr ? 0 : 1) << line;
    }
    EXPECT_EQ(command.set("IgnoreWarnings", "A, B,"), 0);
    EXPECT_EQ(store.values["IgnoreWarnings"], (std::vector<std::string>{"A", "B"}));
    is_full = true;
    EXPECT_EQ(command.set("sync_timeout", "60"), 2);
}

TEST_F(SettingsCommandTest, GetPrintsTheValueInUseAndSaysNoWhenThereIsNone) {
    store.values = {{"make_thresh", {"0.30000000000000004"}}, {"IgnoreWarnings", {"A"}}};
    EXPECT_EQ(command.get("make_thresh", OutputForm::text), 0);
    EXPECT_EQ(command.get("CHRONYC_Font", OutputForm::text), 1);
    EXPECT_EQ(out.str(), "0.30000000000000004\n");
    EXPECT_EQ(command.get("make_thres", OutputForm::text), 2);
    out.str({});
    EXPECT_EQ(command.get("CHRONYC_Font", OutputForm::json), 1);
    EXPECT_EQ(nlohmann::json::parse(out.str()), nlohmann::json({{"CHRONYC_Font", nullptr}}));
}

TEST_F(SettingsCommandTest, ListHasEveryKeyWithTypedValueAndDefault) {
    store.values = {{"make_thresh", {"0.30000000000000004"}}, {"adj_system", {"false"}}, {"foreign", {"x"}}};
    EXPECT_EQ(command.list(OutputForm::json), 0);
    const auto document = nlohmann::json::parse(out.str());
    EXPECT_EQ(document.size(), all_settings().size());
    EXPECT_EQ(document["make_thresh"]["value"].get<double>(), 0.30000000000000004);
    EXPECT_EQ(document["make_thresh"]["default"].get<double>(), 0.1);
    EXPECT_EQ(document["adj_system"]["value"], false);
    EXPECT_EQ(document["adj_system"]["stored"], true);
    EXPECT_TRUE(document["CHRONYC_Font"]["value"].is_null());
    EXPECT_TRUE(document["IgnoreWarnings"]["value"].is_array());
    out.str({});
    EXPECT_EQ(command.list(OutputForm::text), 0);
    const std::string text = out.str();
    EXPECT_EQ(std::ranges::count(text, '\n'), static_cast<std::ptrdiff_t>(all_settings().size()));
}

TEST_F(SettingsCommandTest, ResetRemovesOurKeysAndLeavesOthers) {
    store.values = {{"adj_system", {"false"}}, {"IgnoreWarnings", {"A"}}, {"foreign", {"x"}}};
    EXPECT_EQ(command.reset(), 0);
    EXPECT_EQ(store.values.size(), 1U);
    EXPECT_TRUE(store.values.contains("foreign"));
}

} // namespace
} // namespace tickervantage
