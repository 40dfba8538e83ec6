// A text that shows what sets two others apart: lines that go and lines that come, each in a colour of its own behind
// its sign. Main thread.
#pragma once

#include "base/text_difference.h"

#include <vector>

class QPlainTextEdit;
class QWidget;

namespace tickervantage {

// Called "m_difference"; read-only, and belongs to the parent.
[[nodiscard]] QPlainTextEdit* make_difference_view(QWidget* parent);

// In place of what is shown. Of very many lines the first ones.
void show_difference(QPlainTextEdit* view, const std::vector<DifferenceLine>& lines);

} // namespace tickervantage
