// The list of chrony's directives that the editor offers, each with its line of help beside it. Main thread.
#pragma once

class QCompleter;
class QPlainTextEdit;

namespace tickervantage {

// Belongs to the editor.
[[nodiscard]] QCompleter* make_directive_completer(QPlainTextEdit* editor);

// How wide the list has to be for what it shows now.
[[nodiscard]] int completions_width(const QCompleter& completer);

} // namespace tickervantage
