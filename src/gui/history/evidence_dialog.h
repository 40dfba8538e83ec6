// Asks for the limit within which the clock is to have been, and for the file that the evidence goes to. Main thread.
#pragma once

#include "studies/evidence/evidence.h"

#include <QString>

#include <functional>

class QWidget;

namespace tickervantage {

// The period is told, and whole seconds of it are kept; its limit stands in the field, 1 ms where it has none. Returns
// at once; `chosen` is not called when nothing was.
void ask_for_evidence(QWidget* window, const EvidenceQuestion& period,
                      std::function<void(const EvidenceQuestion& question, const QString& path)> chosen);

} // namespace tickervantage
