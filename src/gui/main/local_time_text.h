// Date and time as the main window shows them: the locale's date with a short month, and its time with the zone.
#pragma once

class QDateTime;
class QLocale;
class QString;

namespace tickervantage {

[[nodiscard]] QString local_time_text(const QDateTime& time, const QLocale& locale);

} // namespace tickervantage
