// Whether chronyd writes a tracking log, by its configuration with all the files that this takes in.
//
// Reads the files itself and waits for the disk, so not on the main thread.
// Source: chrony.conf(5) of chrony 4.3, directives log, logdir, include and confdir.
#pragma once

#include <string>

namespace tickervantage {

enum class TrackingLogSetting : unsigned char {
    written,
    not_asked_for, // no line "log tracking"
    no_folder,     // asked for, but no line "logdir" says where to
    unknown,       // the configuration cannot be read as a whole
};

[[nodiscard]] TrackingLogSetting tracking_log_setting(const std::string& configuration);

} // namespace tickervantage
