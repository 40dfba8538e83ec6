// Every key of the settings file, with its kind, default and range.
//
// A range with Limit::when_loaded is that of the control which shows the value: what lies outside is moved to the
// nearest end when it is loaded. With Limit::when_set it is only asked for on the command line, and the reader gets
// what is stored: it has a rule of its own for such values. Counts, indexes, seconds and factors as each line says.
#pragma once

#include "base/color.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace tickervantage {

enum class Limit : unsigned char { when_loaded, when_set };
enum class TextRule : unsigned char { any, trimmed, absolute_path };

struct BooleanKey {
    std::string_view key;
    bool fallback;
    std::string_view description;
};

struct IntegerKey {
    std::string_view key;
    std::int64_t fallback;
    std::int64_t minimum;
    std::int64_t maximum;
    std::string_view description;
    Limit limit = Limit::when_loaded;
    std::optional<std::int64_t> gap = std::nullopt; // a value inside the range that stands for nothing
};

struct DoubleKey {
    std::string_view key;
    double fallback;
    double minimum;
    double maximum;
    std::string_view description;
    Limit limit = Limit::when_loaded;
};

struct TextKey {
    std::string_view key;
    std::string_view fallback;
    std::string_view description;
    TextRule rule = TextRule::any;
};

struct TextListKey { // default: no texts
    std::string_view key;
    std::string_view description;
};

struct ColorKey {
    std::string_view key;
    Color fallback;
    std::string_view description;
};

struct FontKey { // default: none, the window's own
    std::string_view key;
    std::string_view description;
};

// "#rrggbb" as a number.
[[nodiscard]] constexpr Color rgb(unsigned value) {
    return {.red = ((value >> 16U) & 0xFFU) / 255.0,
            .green = ((value >> 8U) & 0xFFU) / 255.0,
            .blue = (value & 0xFFU) / 255.0,
            .alpha = 1.0};
}

namespace settings {

// Main window
inline constexpr TextKey chronyc_command{"chronyc_command", "tracking", "chronyc command whose output is shown"};
inline constexpr IntegerKey meter_view{
    "meter_view",
    1,
    0,
    5,
    "quantity on the meter: 0 system time, 1 last offset, 2 RMS offset, 3 root delay, 4 root dispersion, 5 frequency",
    Limit::when_set};
inline constexpr BooleanKey ip_address{"ip_address", false, "show numeric addresses instead of names"};
inline constexpr BooleanKey original_name{"original_name", false, "show source names as the configuration has them"};
inline constexpr IntegerKey chronyc_interval{"chronyc_interval", 10, 1, 60, "seconds between two refreshes"};
inline constexpr TextKey ntpdata_server{"ntpdata_server", "", "server asked about by the ntpdata command"};
inline constexpr FontKey CHRONYC_Font{"CHRONYC_Font", "font of the command output: family, comma, size in points"};

// Preferences, General
inline constexpr TextKey file_config{"file_config", "/etc/chrony.d/chrony.conf", "path of chrony's configuration",
                                     TextRule::absolute_path};
inline constexpr TextKey file_chronyc{"file_chronyc", "/usr/local/bin/chronyc", "path of chronyc",
                                      TextRule::absolute_path};
inline constexpr TextKey file_chronyd{"file_chronyd", "/usr/local/sbin/chronyd", "path of chronyd",
                                      TextRule::absolute_path};
inline constexpr TextKey file_chronywake{"file_chronywake", "/usr/local/bin/chronywake", "path of chronywake",
                                         TextRule::absolute_path};
inline constexpr DoubleKey make_thresh{
    "make_thresh",  0.1, 0, 1e6, "after waking, step the clock when it is off by more than this many seconds",
    Limit::when_set};
inline constexpr IntegerKey make_limit{
    "make_limit",   3, -1, 1'000'000, "after waking, step in at most this many updates; -1 for any number",
    Limit::when_set};
inline constexpr IntegerKey burst_good{
    "burst_good", 4, 1, 1000, "after waking, good measurements wanted from each source", Limit::when_set};
inline constexpr IntegerKey burst_max{"burst_max",    4, 1, 1000, "after waking, largest number of measurements tried",
                                      Limit::when_set};
inline constexpr TextKey burst_netmask{
    "burst_netmask", "", "after waking, only sources in this mask/address; empty for all", TextRule::trimmed};
inline constexpr BooleanKey launch_login{"launch_login", false, "start the program at login"};
inline constexpr BooleanKey adj_system{"adj_system", true, "let chronyd adjust the system clock"};
inline constexpr BooleanKey install_wake{"install_wake", true, "install chronywake"};

// Preferences, Advanced
inline constexpr BooleanKey restart_gpsd{"restart_gpsd", false, "restart the GPS daemon together with chronyd"};
inline constexpr BooleanKey enable_frequency_win{"enable_frequency_win", false,
                                                 "offer the frequency-temperature window"};
inline constexpr BooleanKey enable_spectrum_win{"enable_spectrum_win", false, "offer the spectrum window"};

// Synchronise
inline constexpr TextKey sync_ntp_server{"sync_ntp_server", "pool.ntp.org", "server to synchronise with once"};
inline constexpr IntegerKey sync_timeout{"sync_timeout", 30, 1, 120, "seconds allowed for one synchronisation"};
inline constexpr BooleanKey sync_restart_chronyd{"sync_restart_chronyd", true, "start chronyd after a synchronisation"};

// Tracking window. Vertical scale 3 draws one nanosecond a point, 0 one microsecond, -3 one millisecond, -6 one second;
// each step of a zoom doubles.
inline constexpr IntegerKey tracking_dateTimeRange{
    "tracking_dateTimeRange", 0, 0, 8, "time range: 0 the whole log, 2 to 8 the last 1, 2, 3, 4, 6, 12 or 24 hours",
    Limit::when_loaded,       1};
inline constexpr IntegerKey tracking_use_logscale{"tracking_use_logscale", 1, 0, 1, "logarithmic scale: 1 on, 0 off"};
inline constexpr DoubleKey tracking_vZoom{"tracking_vZoom", 0, -5, 5, "vertical zoom, a power of two"};
inline constexpr DoubleKey tracking_hZoom{"tracking_hZoom", 0, -5, 5, "horizontal zoom, a power of two"};
inline constexpr DoubleKey tracking_vScale{"tracking_vScale", 0, -6, 3, "vertical scale, a power of ten"};
inline constexpr BooleanKey tracking_offsetShow{"tracking_offsetShow", true, "show the offset"};
inline constexpr BooleanKey tracking_meanOffsetShow{"tracking_meanOffsetShow", false, "show the mean offset"};
inline constexpr BooleanKey tracking_rmsOffsetShow{"tracking_rmsOffsetShow", true, "show the RMS offset"};
inline constexpr BooleanKey tracking_sdOffsetShow{"tracking_sdOffsetShow", false,
                                                  "show the offset's standard deviation"};
inline constexpr BooleanKey tracking_frequencyShow{"tracking_frequencyShow", true, "show the frequency"};
inline constexpr BooleanKey tracking_systemtimeShow{"tracking_systemtimeShow", true, "show the remaining correction"};
inline constexpr BooleanKey tracking_mean_systemtimeShow{"tracking_mean_systemtimeShow", false,
                                                         "show the mean remaining correction"};
inline constexpr BooleanKey tracking_rms_systemtimeShow{"tracking_rms_systemtimeShow", false,
                                                        "show the RMS remaining correction"};
inline constexpr BooleanKey tracking_rootdispersionShow{"tracking_rootdispersionShow", false,
                                                        "show the root dispersion"};
// No colour reaches 4.5 : 1 in contrast on white and on a dark background, so each is drawn lighter or darker where it
// has to be (Canvas::readable). In either form people who see fewer colours tell any two of them apart.
inline constexpr ColorKey tracking_offsetColor{"tracking_offsetColor", rgb(0x0060FE), "colour of the offset"};
inline constexpr ColorKey tracking_meanOffsetColor{"tracking_meanOffsetColor", rgb(0x120783),
                                                   "colour of the mean offset"};
inline constexpr ColorKey tracking_rmsOffsetColor{"tracking_rmsOffsetColor", rgb(0x910E02), "colour of the RMS offset"};
inline constexpr ColorKey tracking_frequencyColor{"tracking_frequencyColor", rgb(0x45CF5B), "colour of the frequency"};
inline constexpr ColorKey tracking_systemtimeColor{"tracking_systemtimeColor", rgb(0xE86C00),
                                                   "colour of the remaining correction"};
inline constexpr ColorKey tracking_mean_systemtimeColor{"tracking_mean_systemtimeColor", rgb(0xFF17F7),
                                                        "colour of the mean remaining correction"};
inline constexpr ColorKey tracking_rms_systemtimeColor{"tracking_rms_systemtimeColor", rgb(0xFDAFFF),
                                                       "colour of the RMS remaining correction"};
inline constexpr ColorKey tracking_rootdispersionColor{"tracking_rootdispersionColor", rgb(0x5C1443),
                                                       "colour of the root dispersion"};

// The offset's standard deviation always starts in this colour; a change lasts as long as its window.
inline constexpr Color sdOffsetColor = rgb(0xB8DABC);

// Frequency-temperature window
inline constexpr BooleanKey show_scatter_points{"show_scatter_points", true, "show the measured points"};
inline constexpr BooleanKey show_mean_frequency{"show_mean_frequency", true, "show the fitted frequency"};
inline constexpr BooleanKey show_freq_bounds{"show_freq_bounds", true, "show the bounds of the fit"};
inline constexpr BooleanKey show_last_record{"show_last_record", true, "show the latest point"};
inline constexpr IntegerKey max_samples{"max_samples", 2000, 1, 1'000'000,
                                        "largest number of points kept for a sensor"};
inline constexpr IntegerKey regression_order{"regression_order", 1, 0, 5, "degree of the fitted polynomial, less one"};

// Spectrum window
inline constexpr DoubleKey SPECTRUM_interval{"SPECTRUM_interval", 4, 1e-3, 1e9, "seconds between two samples",
                                             Limit::when_set};
inline constexpr DoubleKey SPECTRUM_duration{"SPECTRUM_duration", 1024, 1e-3, 1e9, "seconds analysed", Limit::when_set};

// Configuration editor
inline constexpr TextListKey recent_configurations{"recent_configurations",
                                                   "configurations opened or saved last, the newest first"};

// Alerts
inline constexpr TextListKey IgnoreWarnings{"IgnoreWarnings", "alerts that are not to be shown again"};

} // namespace settings
} // namespace tickervantage
