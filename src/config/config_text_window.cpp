#include "config/config_text_window.h"

#include "config/config_completer_window.h"
#include "config/config_highlighter_window.h"
#include "config/words_window.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTimer>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace tickervantage {
namespace {

constexpr int SLICE_LINES = 50;
constexpr qint64 SLICE_MILLISECONDS = 8;
constexpr int TEXT_POINTS = 11;
constexpr int LEAST_PREFIX = 2; // letters typed before directives are offered
constexpr int MARGIN = 6;
constexpr int LEAST_LINES = 8; // to see

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

void ConfigText::load(const QString& text) {
    m_waiting = text;
    m_at = 0;
    m_error_line = 0;
    document()->setUndoRedoEnabled(false);
    setReadOnly(true);
    const bool was_loading = std::exchange(m_loading, true);
    clear();
    if (!was_loading)
        load_slice();
}

void ConfigText::load_slice() {
    QElapsedTimer clock;
    clock.start();
    QTextCursor cursor(document());
    while (m_at < m_waiting.size() && clock.elapsed() < SLICE_MILLISECONDS) {
        qsizetype end = m_at;
        for (int line = 0; line < SLICE_LINES && end < m_waiting.size(); ++line) {
            const auto next = m_waiting.indexOf(QLatin1Char('\n'), end);
            end = next < 0 ? m_waiting.size() : next + 1;
        }
        cursor.movePosition(QTextCursor::End);
        cursor.insertText(m_waiting.mid(m_at, end - m_at));
        m_at = end;
    }
    if (m_at < m_waiting.size())
        QTimer::singleShot(0, this, [this] { load_slice(); });
    else
        end_loading();
}

void ConfigText::end_loading() {
    m_waiting.clear();
    m_loading = false;
    document()->setUndoRedoEnabled(true);
    document()->setModified(false);
    ++m_edits;
    setReadOnly(false);
    moveCursor(QTextCursor::Start);
    verticalScrollBar()->setValue(0);
    horizontalScrollBar()->setValue(0);
    Q_EMIT loaded();
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

// The word before the cursor, when it stands where a directive does: first in its line.
QString ConfigText::directive_before_cursor() const {
    const QTextCursor cursor = textCursor();
    const QString before = cursor.block().text().left(cursor.positionInBlock()).trimmed();
    const bool is_first = !before.contains(QLatin1Char(' ')) && !before.contains(QLatin1Char('\t'));
    const QString block = cursor.block().text();
    const bool at_its_end = cursor.atBlockEnd() || block.at(cursor.positionInBlock()).isSpace();
    const bool touches = cursor.positionInBlock() == 0 || !block.at(cursor.positionInBlock() - 1).isSpace();
    return is_first && at_its_end && touches ? before : QString();
}

void ConfigText::complete() {
    offer_completions(directive_before_cursor());
}

void ConfigText::offer_completions(const QString& prefix) {
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
    QPlainTextEdit::keyPressEvent(event);
    const bool typed = !event->text().isEmpty() && event->text().at(0).isLetterOrNumber();
    const QString prefix = directive_before_cursor();
    if (prefix.size() >= LEAST_PREFIX && (typed || (is_offering && event->key() == Qt::Key_Backspace)))
        offer_completions(prefix);
    else if (is_offering)
        m_completer->popup()->hide();
}

bool ConfigText::canInsertFromMimeData(const QMimeData* source) const {
    return !local_file_in(source).isEmpty() || QPlainTextEdit::canInsertFromMimeData(source);
}

void ConfigText::insertFromMimeData(const QMimeData* source) {
    if (const QString file = local_file_in(source); !file.isEmpty())
        Q_EMIT file_dropped(file);
    else
        QPlainTextEdit::insertFromMimeData(source);
}

} // namespace tickervantage
