// The lists that the editor offers: chrony's directives, each with its line of help beside it, and behind a directive's
// name its options, each with what stands behind it. Main thread.
#pragma once

#include <string_view>

class QCompleter;
class QPlainTextEdit;

namespace tickervantage {

// Belongs to the editor.
[[nodiscard]] QCompleter* make_directive_completer(QPlainTextEdit* editor);

void offer_directives(QCompleter& completer);
void offer_options(QCompleter& completer, std::string_view before); // this part of the line

// How wide the list has to be for what it shows now.
[[nodiscard]] int completions_width(const QCompleter& completer);

} // namespace tickervantage
