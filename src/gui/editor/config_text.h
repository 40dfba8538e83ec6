// The text of a configuration: lines that are not wrapped, with their numbers, the current one marked, and directives
// completed as they are typed.
//
// A long text is taken in slice by slice, so that the event loop comes round, and so are long edits; until `ready` the
// text cannot be edited. Lines are counted from 1. Main thread.
#pragma once

#include <QPlainTextEdit>
#include <QString>
#include <QTextCursor>

#include <optional>

class QCompleter;

namespace tickervantage {

class BulkEdits;
class ConfigHighlighter;

class ConfigText : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit ConfigText(QWidget* parent);

    enum class Counts : unsigned char { as_saved, as_modified };

    // Replaces the text; there is nothing to undo then.
    void load(const QString& text, Counts counts = Counts::as_saved);
    [[nodiscard]] bool is_loading() const { return m_loading; }
    [[nodiscard]] bool is_busy() const; // with a load or a long edit
    [[nodiscard]] BulkEdits& bulk() { return *m_bulk; }

    // One step, however long.
    void undo_step();
    void redo_step();
    void cut_selection();
    void delete_selection();

    // The text as it is, with "\n" between lines. (toPlainText makes blanks of no-break spaces.)
    [[nodiscard]] QString whole_text() const;

    // Grows with every edit and load: tells whether an answer is about the text as it is now.
    [[nodiscard]] int edits() const { return m_edits; }

    // Selects the line with its end and shows it. A line that is not there: the selection becomes empty, at the start.
    void select_line(long long number);
    void mark_error_line(long long number); // until the next edit; 0: none
    void underline_line(long long number);  // also through edits; 0: none

    void zoom(int steps);
    void zoom_back();
    void complete(); // offers directives, or options, for the word before the cursor

    [[nodiscard]] int number_width() const;
    void paint_numbers(QPaintEvent* event);

Q_SIGNALS:
    void loaded();
    void ready();  // no longer busy
    void edited(); // by the user or an action, not while loading
    void file_dropped(const QString& path);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    [[nodiscard]] QMimeData* createMimeDataFromSelection() const override;
    [[nodiscard]] bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    void load_slice();
    [[nodiscard]] bool remove_piece(); // of the text before; false: there is none left
    void end_loading();
    void text_changed();
    [[nodiscard]] bool take_long_edit(QKeyEvent* event); // instead of Qt, which would take all of it at once
    void replace_selection(const QString& text);
    [[nodiscard]] int position_of_line(long long number) const;
    [[nodiscard]] std::optional<QString> before_cursor() const; // the part of the line, where a word may be completed
    void insert_completion(const QString& name);
    void offer_completions(const QString& before);
    void highlight_lines();
    void place_numbers();

    ConfigHighlighter* m_highlighter = nullptr;
    QCompleter* m_completer = nullptr;
    QWidget* m_numbers = nullptr;
    BulkEdits* m_bulk = nullptr;
    QString m_waiting; // text that is not in the document yet
    qsizetype m_at = 0;
    Counts m_counts = Counts::as_saved; // when it is
    bool m_loading = false;
    int m_edits = 0;
    int m_zoomed = 0;
    long long m_error_line = 0;
    QTextCursor m_underlined; // null: no line is
};

} // namespace tickervantage
