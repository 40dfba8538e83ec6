// The text of a configuration: lines that are not wrapped, with their numbers, the current one marked, and directives
// completed as they are typed.
//
// A long text is taken in slice by slice, so that the event loop comes round; until `loaded` the text cannot be edited.
// Lines are counted from 1. Main thread.
#pragma once

#include <QPlainTextEdit>
#include <QString>

class QCompleter;

namespace tickervantage {

class ConfigHighlighter;

class ConfigText : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit ConfigText(QWidget* parent);

    // Replaces the text, which then counts as unchanged; there is nothing to undo.
    void load(const QString& text);
    [[nodiscard]] bool is_loading() const { return m_loading; }

    // The text as it is, with "\n" between lines. (toPlainText makes blanks of no-break spaces.)
    [[nodiscard]] QString whole_text() const;

    // Grows with every edit and load: tells whether an answer is about the text as it is now.
    [[nodiscard]] int edits() const { return m_edits; }

    // Selects the line with its end and shows it. A line that is not there: the selection becomes empty, at the start.
    void select_line(long long number);
    void mark_error_line(long long number); // until the next edit; 0: none

    void zoom(int steps);
    void zoom_back();
    void complete(); // offers directives for the word before the cursor

    [[nodiscard]] int number_width() const;
    void paint_numbers(QPaintEvent* event);

Q_SIGNALS:
    void loaded();
    void edited(); // by the user or an action, not while loading
    void file_dropped(const QString& path);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    [[nodiscard]] bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    void load_slice();
    void end_loading();
    void text_changed();
    [[nodiscard]] int position_of_line(long long number) const;
    [[nodiscard]] QString directive_before_cursor() const;
    void insert_completion(const QString& name);
    void offer_completions(const QString& prefix);
    void highlight_lines();
    void place_numbers();

    ConfigHighlighter* m_highlighter = nullptr;
    QCompleter* m_completer = nullptr;
    QWidget* m_numbers = nullptr;
    QString m_waiting; // text that is not in the document yet
    qsizetype m_at = 0;
    bool m_loading = false;
    int m_edits = 0;
    int m_zoomed = 0;
    long long m_error_line = 0;
};

} // namespace tickervantage
