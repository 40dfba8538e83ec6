// Edits of a text that take longer than one turn of the event loop may: they are made, undone and redone slice by
// slice, though each counts as one step to the user. The text cannot be edited otherwise meanwhile.
//
// What was edited without this is undone and redone as Qt does it. Places are counted in characters of the document,
// a line's end being one. Main thread.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QTextCursor>

#include <functional>
#include <vector>

class QPlainTextEdit;

namespace tickervantage {

class BulkEdits : public QObject {
    Q_OBJECT

public:
    explicit BulkEdits(QPlainTextEdit* text);

    // Puts `substitute` in the place of `length` characters at each of the places, which ascend and do not overlap.
    void replace_places(std::vector<int> places, int length, const QString& substitute);
    // Puts the text in place of what stands from `start` to `end`; the cursor stands behind it afterwards.
    void replace_range(int start, int end, const QString& text);
    void undo();
    void redo();

    [[nodiscard]] bool is_running() const { return static_cast<bool>(m_slice); }
    // The document begins anew, without anything to undo.
    void abandon();

Q_SIGNALS:
    void finished();

private:
    // Does some milliseconds of work; whether some is left.
    using Slice = std::function<bool()>;
    // Commands on the document's stack: those of one step stand from `begin` to `end`.
    struct Step {
        int begin = 0;
        int end = 0;
    };

    void run(Slice slice);
    void edit(const Slice& slice);
    void turn();
    void step(bool back);
    void forget_undone();
    [[nodiscard]] int commands() const;

    QPlainTextEdit* m_text;
    Slice m_slice; // empty: nothing is going on
    std::vector<Step> m_steps;
    int m_commands = 0; // on the stack after the last change
};

} // namespace tickervantage
