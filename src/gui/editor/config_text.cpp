#include "gui/editor/config_text.h"

#include "gui/common/words.h"
#include "gui/editor/config_bulk_edits.h"
#include "gui/editor/config_completer.h"
#include "gui/editor/config_highlighter.h"

#include <QAbstractItemView>
#include <QAction>
#include <QCompleter>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTimer>
#include <QUrl>

#include <algorithm>
#include <array>
#include <utility>

namespace tickervantage {
namespace {

constexpr int SLICE_LINES = 50;
constexpr qint64 SLICE_MILLISECONDS = 8;
constexpr int TEXT_POINTS = 11;
constexpr int LEAST_PREFIX = 2; // letters typed before directives are offered
constexpr int MARGIN = 6;
constexpr int LEAST_LINES = 8;    // to see
constexpr int LONG_EDIT = 20'000; // characters; what is shorter takes a few milliseconds

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(configeditor)
};

class LineNumbers : public QWidget {
public:
    explicit LineNumbers(ConfigText* text) : QWidget(text), m_text(text) {
        setObjectName(QStringLiteral("line_numbers"));
        //: configuration editor: name of the column beside the text
        setAccessibleName(Texts::tr("Line numbers"));
    }
    [[nodiscard]] QSize sizeHint() const override { return {m_text->number_width(), 0}; }

protected:
    void paintEvent(QPaintEvent* event) override { m_text->paint_numbers(event); }

private:
    ConfigText* m_text;
};

QFont text_font() {
    QFont font(QStringLiteral("Monaco"), TEXT_POINTS);
    font.setStyleHint(QFont::Monospace); // where there is no Monaco
    font.setFixedPitch(true);
    return font;
}

// Empty behind a blank.
QString last_word(const QString& line) {
    qsizetype start = line.size();
    while (start > 0 && !line.at(start - 1).isSpace())
        --start;
    return line.mid(start);
}

QString local_file_in(const QMimeData* source) {
    for (const auto& url : source->urls())
        if (url.isLocalFile())
            return url.toLocalFile();
    return {};
}

} // namespace

ConfigText::ConfigText(QWidget* parent) : QPlainTextEdit(parent) {
    setObjectName(QStringLiteral("m_config"));
    //: configuration editor: name of the text
    setAccessibleName(Texts::tr("Configuration text"));
    setLineWrapMode(NoWrap);
    setMinimumHeight(LEAST_LINES * fontMetrics().lineSpacing());
    setFont(text_font());
    m_highlighter = new ConfigHighlighter(document(), palette());
    m_completer = make_directive_completer(this);
    m_bulk = new BulkEdits(this);
    connect(m_bulk, &BulkEdits::finished, this, &ConfigText::ready);
    m_numbers = new LineNumbers(this);
    connect(this, &QPlainTextEdit::blockCountChanged, this, [this] { place_numbers(); });
    connect(this, &QPlainTextEdit::updateRequest, this, [this](const QRect& area, int scrolled) {
        if (scrolled != 0)
            m_numbers->scroll(0, scrolled);
        else
            m_numbers->update(0, area.y(), m_numbers->width(), area.height());
    });
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, [this] { highlight_lines(); });
    connect(this, &QPlainTextEdit::textChanged, this, [this] { text_changed(); });
    connect(m_completer, qOverload<const QString&>(&QCompleter::activated), this, &ConfigText::insert_completion);
    place_numbers();
    highlight_lines();
}

bool ConfigText::is_busy() const {
    return m_loading || m_bulk->is_running();
}

void ConfigText::load(const QString& text, Counts counts) {
    m_bulk->abandon();
    m_waiting = text;
    m_at = 0;
    m_counts = counts;
    m_error_line = 0;
    m_underlined = {};
    document()->setUndoRedoEnabled(false);
    setReadOnly(true);
    if (!std::exchange(m_loading, true))
        load_slice();
}

// From the end: nothing has to be laid out anew.
bool ConfigText::remove_piece() {
    const int last = document()->characterCount() - 1;
    if (m_at > 0 || last == 0)
        return false;
    QTextCursor cursor(document());
    cursor.setPosition(last);
    cursor.setPosition(std::max(0, last - LONG_EDIT), QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    return true;
}

void ConfigText::load_slice() {
    QElapsedTimer clock;
    clock.start();
    bool is_empty = false; // of the former text
    while (!is_empty && clock.elapsed() < SLICE_MILLISECONDS)
        is_empty = !remove_piece();
    QTextCursor cursor(document());
    while (is_empty && m_at < m_waiting.size() && clock.elapsed() < SLICE_MILLISECONDS) {
        qsizetype end = m_at;
        for (int line = 0; line < SLICE_LINES && end < m_waiting.size(); ++line) {
            const auto next = m_waiting.indexOf(QLatin1Char('\n'), end);
            end = next < 0 ? m_waiting.size() : next + 1;
        }
        cursor.movePosition(QTextCursor::End);
        cursor.insertText(m_waiting.mid(m_at, end - m_at));
        m_at = end;
    }
    if (!is_empty || m_at < m_waiting.size())
        QTimer::singleShot(0, this, [this] { load_slice(); });
    else
        end_loading();
}

void ConfigText::end_loading() {
    m_waiting.clear();
    m_loading = false;
    document()->setUndoRedoEnabled(true);
    document()->setModified(m_counts == Counts::as_modified);
    ++m_edits;
    setReadOnly(false);
    moveCursor(QTextCursor::Start);
    verticalScrollBar()->setValue(0);
    horizontalScrollBar()->setValue(0);
    Q_EMIT loaded();
    Q_EMIT ready();
}

QString ConfigText::whole_text() const {
    return document()->toRawText().replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
}

// A change of colours is no edit, though Qt tells of it as a change of the text.
void ConfigText::text_changed() {
    if (m_loading || m_highlighter->is_recoloring())
        return;
    ++m_edits;
    mark_error_line(0);
    Q_EMIT edited();
}

int ConfigText::position_of_line(long long number) const {
    if (number < 1 || number > blockCount())
        return 0;
    return document()->findBlockByNumber(static_cast<int>(number) - 1).position();
}

void ConfigText::select_line(long long number) {
    if (number < 1)
        return;
    const int start = position_of_line(number);
    // Behind the last line there is no further one that would tell where it ends.
    const int end = number == blockCount() ? document()->characterCount() - 1 : position_of_line(number + 1);
    QTextCursor cursor(document());
    cursor.setPosition(std::max(start, end)); // the cursor stands at the start, so that a long line is seen from there
    cursor.setPosition(start, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
    centerCursor();
}

void ConfigText::mark_error_line(long long number) {
    if (std::exchange(m_error_line, number) != number)
        highlight_lines();
}

void ConfigText::underline_line(long long number) {
    const bool is_there = number >= 1 && number <= blockCount();
    m_underlined = is_there ? QTextCursor(document()->findBlockByNumber(static_cast<int>(number) - 1)) : QTextCursor();
    highlight_lines();
}

void ConfigText::highlight_lines() {
    const auto whole_line = [](const QTextCursor& at, const QColor& color) {
        QTextEdit::ExtraSelection selection;
        selection.format.setBackground(color);
        selection.format.setProperty(QTextFormat::FullWidthSelection, true);
        selection.cursor = at;
        selection.cursor.clearSelection();
        return selection;
    };
    QColor current = palette().color(QPalette::Highlight);
    current.setAlphaF(0.10F);
    QList<QTextEdit::ExtraSelection> selections{whole_line(textCursor(), current)};
    if (m_error_line >= 1 && m_error_line <= blockCount()) {
        const QTextCursor at(document()->findBlockByNumber(static_cast<int>(m_error_line) - 1));
        selections.append(whole_line(at, QColor(224, 48, 48, 70)));
    }
    if (!m_underlined.isNull()) {
        QTextEdit::ExtraSelection mistake;
        mistake.cursor = m_underlined;
        mistake.cursor.movePosition(QTextCursor::StartOfBlock);
        mistake.cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        mistake.format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
        mistake.format.setUnderlineColor(alarm_color(palette()));
        selections.append(mistake);
    }
    setExtraSelections(selections);
    m_numbers->update();
}

void ConfigText::zoom(int steps) {
    constexpr int least = -6;
    constexpr int most = 30;
    const int target = std::clamp(m_zoomed + steps, least, most);
    zoomIn(target - std::exchange(m_zoomed, target));
}

void ConfigText::zoom_back() {
    zoom(-m_zoomed);
}

void ConfigText::wheelEvent(QWheelEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QPlainTextEdit::wheelEvent(event);
        return;
    }
    if (const int turned = event->angleDelta().y(); turned != 0)
        zoom(turned > 0 ? 1 : -1);
}

void ConfigText::resizeEvent(QResizeEvent* event) {
    QPlainTextEdit::resizeEvent(event);
    place_numbers();
}

void ConfigText::changeEvent(QEvent* event) {
    QPlainTextEdit::changeEvent(event);
    if (m_numbers == nullptr)
        return;
    if (event->type() == QEvent::FontChange)
        place_numbers();
    if (event->type() == QEvent::PaletteChange) {
        m_highlighter->set_palette(palette());
        highlight_lines();
    }
}

int ConfigText::number_width() const {
    constexpr int least_figures = 3;
    const int figures = std::max(least_figures, static_cast<int>(QString::number(blockCount()).size()));
    return 2 * MARGIN + fontMetrics().horizontalAdvance(QLatin1Char('9')) * figures;
}

void ConfigText::place_numbers() {
    const QRect area = contentsRect();
    setViewportMargins(number_width(), 0, 0, 0);
    m_numbers->setGeometry(area.left(), area.top(), number_width(), area.height());
    m_numbers->setFont(font());
}

void ConfigText::paint_numbers(QPaintEvent* event) {
    QPainter painter(m_numbers);
    painter.fillRect(event->rect(), palette().color(QPalette::Window));
    QColor usual = palette().color(QPalette::WindowText);
    usual.setAlphaF(0.75F);
    const QColor alarm = alarm_color(palette());
    const int current = textCursor().blockNumber();
    auto block = firstVisibleBlock();
    double top = blockBoundingGeometry(block).translated(contentOffset()).top();
    for (; block.isValid() && top <= event->rect().bottom(); block = block.next()) {
        const double height = blockBoundingRect(block).height();
        const int number = block.blockNumber();
        const bool is_error = number + 1 == m_error_line;
        painter.setPen(is_error ? alarm : number == current ? palette().color(QPalette::WindowText) : usual);
        painter.drawText(QRectF(0, top, m_numbers->width() - MARGIN, height), Qt::AlignRight,
                         QString::number(number + 1));
        top += height;
    }
}

// None in the middle of a word.
std::optional<QString> ConfigText::before_cursor() const {
    const QTextCursor cursor = textCursor();
    const QString line = cursor.block().text();
    const int at = cursor.positionInBlock();
    if (at < line.size() && !line.at(at).isSpace())
        return std::nullopt;
    return line.left(at);
}

void ConfigText::complete() {
    if (const auto before = before_cursor())
        offer_completions(*before);
}

void ConfigText::offer_completions(const QString& before) {
    const QString prefix = last_word(before);
    const QString whole_words = before.chopped(prefix.size());
    if (whole_words.trimmed().isEmpty())
        offer_directives(*m_completer);
    else
        offer_options(*m_completer, whole_words.toStdString());
    m_completer->setCompletionPrefix(prefix);
    const bool is_complete = m_completer->completionCount() == 1 && m_completer->currentCompletion() == prefix;
    if (m_completer->completionCount() == 0 || is_complete) {
        m_completer->popup()->hide();
        return;
    }
    m_completer->popup()->setCurrentIndex(m_completer->completionModel()->index(0, 0));
    QRect at = cursorRect();
    at.translate(viewport()->pos());
    at.setWidth(completions_width(*m_completer));
    m_completer->complete(at);
}

void ConfigText::insert_completion(const QString& name) {
    QTextCursor cursor = textCursor();
    cursor.movePosition(QTextCursor::Left, QTextCursor::KeepAnchor,
                        static_cast<int>(m_completer->completionPrefix().size()));
    cursor.insertText(name);
    setTextCursor(cursor);
}

void ConfigText::undo_step() {
    m_bulk->undo();
}

void ConfigText::redo_step() {
    m_bulk->redo();
}

void ConfigText::cut_selection() {
    if (!textCursor().hasSelection() || isReadOnly())
        return;
    copy();
    replace_selection({});
}

void ConfigText::delete_selection() {
    if (!isReadOnly())
        replace_selection({});
}

void ConfigText::replace_selection(const QString& text) {
    const QTextCursor cursor = textCursor();
    const auto length = cursor.selectionEnd() - cursor.selectionStart() + text.size();
    if (length > LONG_EDIT)
        m_bulk->replace_range(cursor.selectionStart(), cursor.selectionEnd(), text);
    else
        textCursor().insertText(text);
    ensureCursorVisible();
}

bool ConfigText::take_long_edit(QKeyEvent* event) {
    if (isReadOnly())
        return false;
    const QTextCursor cursor = textCursor();
    const bool is_long = cursor.selectionEnd() - cursor.selectionStart() > LONG_EDIT;
    const bool removes = event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace;
    const bool breaks = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool types = !event->text().isEmpty() && event->text().at(0).isPrint() &&
                       !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (event->matches(QKeySequence::Undo))
        undo_step();
    else if (event->matches(QKeySequence::Redo))
        redo_step();
    else if (event->matches(QKeySequence::Cut))
        cut_selection();
    else if (is_long && (removes || breaks || types))
        replace_selection(removes ? QString() : breaks ? QStringLiteral("\n") : event->text());
    else
        return false;
    return true;
}

// Qt's own menu, but with our way to edit.
void ConfigText::contextMenuEvent(QContextMenuEvent* event) {
    QMenu* menu = createStandardContextMenu(event->pos());
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const std::array<std::pair<const char*, void (ConfigText::*)()>, 4> own{
        {{"edit-undo", &ConfigText::undo_step},
         {"edit-redo", &ConfigText::redo_step},
         {"edit-cut", &ConfigText::cut_selection},
         {"edit-delete", &ConfigText::delete_selection}}};
    for (const auto& [name, slot] : own)
        if (auto* theirs = menu->findChild<QAction*>(QLatin1String(name))) {
            auto* ours = new QAction(theirs->icon(), theirs->text(), menu);
            ours->setEnabled(theirs->isEnabled());
            connect(ours, &QAction::triggered, this, slot);
            menu->insertAction(theirs, ours);
            menu->removeAction(theirs);
        }
    menu->popup(event->globalPos());
}

void ConfigText::keyPressEvent(QKeyEvent* event) {
    const bool is_offering = m_completer->popup()->isVisible();
    if (is_offering) {
        switch (event->key()) {
        case Qt::Key_Enter:
        case Qt::Key_Return:
        case Qt::Key_Escape:
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            event->ignore(); // the list's own keys
            return;
        default:
            break;
        }
    }
    const bool is_tab = event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab;
    if (is_tab && event->modifiers().testFlag(Qt::ControlModifier)) { // Tab itself is a character of the text
        // QPlainTextEdit keeps Tab for its text. NOLINTNEXTLINE(bugprone-parent-virtual-call)
        (void)QAbstractScrollArea::focusNextPrevChild(event->key() == Qt::Key_Tab &&
                                                      !event->modifiers().testFlag(Qt::ShiftModifier));
        return;
    }
    if (take_long_edit(event)) {
        m_completer->popup()->hide();
        return;
    }
    QPlainTextEdit::keyPressEvent(event);
    const bool typed = !event->text().isEmpty() && event->text().at(0).isLetterOrNumber();
    const auto before = before_cursor();
    if (before && last_word(*before).size() >= LEAST_PREFIX &&
        (typed || (is_offering && event->key() == Qt::Key_Backspace)))
        offer_completions(*before);
    else if (is_offering)
        m_completer->popup()->hide();
}

// Plain text alone: Qt would copy every line's colours, too, which takes half a second for a long text.
QMimeData* ConfigText::createMimeDataFromSelection() const {
    const QTextCursor cursor = textCursor();
    const int length = cursor.selectionEnd() - cursor.selectionStart();
    auto* selected = new QMimeData;
    selected->setText(length > LONG_EDIT ? whole_text().mid(cursor.selectionStart(), length)
                                         : cursor.selectedText().replace(QChar::ParagraphSeparator, QLatin1Char('\n')));
    return selected;
}

bool ConfigText::canInsertFromMimeData(const QMimeData* source) const {
    return !local_file_in(source).isEmpty() || QPlainTextEdit::canInsertFromMimeData(source);
}

void ConfigText::insertFromMimeData(const QMimeData* source) {
    if (const QString file = local_file_in(source); !file.isEmpty())
        Q_EMIT file_dropped(file);
    else if (source->text().size() > LONG_EDIT && !isReadOnly())
        replace_selection(source->text());
    else
        QPlainTextEdit::insertFromMimeData(source);
}

} // namespace tickervantage
