// What a tracking graph shows, in words: below it for those who point at a record, and for screen readers.
#pragma once

#include "graphs/tracking_view.h"

#include <QString>

class QLocale;

namespace tickervantage {

[[nodiscard]] QString date_text(LogTime time, const QLocale& locale);

// One record: its time, and each shown series that has a value, in the unit that fits.
[[nodiscard]] QString words_of(const Readout& readout, const std::array<bool, series_count>& shown,
                               const QLocale& locale);

// The whole graph: how many records of which time, and the newest one.
[[nodiscard]] QString description_of(const TrackingView& view, Rect frame, const std::optional<LogEnds>& ends,
                                     const QLocale& locale);

} // namespace tickervantage
