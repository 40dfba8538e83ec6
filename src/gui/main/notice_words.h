// What stands in the way of a reading, as the status line says it. Main thread.
#pragma once

#include "chrony/status/status_display.h"

#include <QString>

namespace tickervantage {

// When the reading came, where nothing stands in its way. `host`: the other machine that was asked; empty: this one.
[[nodiscard]] QString words_of(const StatusNotice& notice, const QString& host);

} // namespace tickervantage
