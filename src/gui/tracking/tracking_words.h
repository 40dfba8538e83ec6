// What a tracking graph shows, in words: below it for those who point at a record, and for screen readers.
#pragma once

#include "base/failure.h"

#include "chrony/configuration/tracking_log_setting.h"
#include "draw/plots/plot_caption.h"
#include "studies/tracking/tracking_view.h"

#include <QString>

#include <string>

class QLocale;

namespace tickervantage {

// One record: its time, and each shown series in the unit that fits; "–" without a value.
[[nodiscard]] QString words_of(const Readout& readout, const std::array<bool, series_count>& shown,
                               const QLocale& locale);

// Words of such a record that are as long as any clock's.
[[nodiscard]] QString longest_words(const std::array<bool, series_count>& shown, const QLocale& locale);

// The whole graph: how many records of which time, and the newest one.
[[nodiscard]] QString description_of(const TrackingView& view, Rect frame, const std::optional<LogEnds>& ends,
                                     const QLocale& locale);

// What is known of a log without a record to show.
struct EmptyLog {
    bool is_live = false;
    bool has_older_records = false;      // than the range of time that is shown
    std::optional<Failure> problem = {}; // why it cannot be read
    TrackingLogSetting setting = TrackingLogSetting::unknown;
    std::string configuration; // path of the chrony.conf that says so
};

// Why the graph shows nothing, and what to do about it.
[[nodiscard]] QString empty_words(const EmptyLog& log);

// What a picture of the part in sight is of. `log` is its path.
[[nodiscard]] PlotCaption caption_of(const TrackingView& view, Rect frame, Rect visible, const QString& log);

} // namespace tickervantage
