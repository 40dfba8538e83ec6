#include "gui/editor/config_bulk_edits.h"

#include <QPlainTextEdit>
#include <QTextDocument>
#include <QTimer>

#include <algorithm>
#include <memory>
#include <utility>

namespace tickervantage {
namespace {

constexpr qint64 SLICE_MILLISECONDS = 8;
constexpr int SLICE_CHARACTERS = 40'000; // between the first and the last place of a slice: all of it is laid out anew
constexpr int PIECE_CHARACTERS = 4'000;  // put in or taken out at once

class SliceClock {
public:
    SliceClock() { m_timer.start(); }
    [[nodiscard]] bool has_time() const { return m_timer.elapsed() < SLICE_MILLISECONDS; }

private:
    QElapsedTimer m_timer;
};

// From the end backwards, so that the places ahead stay where they are.
bool replace_last_places(QTextCursor& cursor, std::vector<int>& places, int length, const QString& substitute) {
    const SliceClock clock;
    const int furthest = places.back() - SLICE_CHARACTERS;
    cursor.beginEditBlock();
    while (!places.empty() && places.back() >= furthest && clock.has_time()) {
        cursor.setPosition(places.back());
        cursor.setPosition(places.back() + length, QTextCursor::KeepAnchor);
        cursor.insertText(substitute);
        places.pop_back();
    }
    cursor.endEditBlock();
    return !places.empty();
}

// Up to the end of a line, where one comes in time: "\r\n" stays together.
qsizetype end_of_piece(const QString& text, qsizetype start) {
    const qsizetype longest = std::min(start + PIECE_CHARACTERS, text.size());
    const auto line_end = longest == text.size() ? text.size() - 1 : text.lastIndexOf(QLatin1Char('\n'), longest - 1);
    return line_end < start ? longest : line_end + 1;
}

struct Range {
    int start = 0;
    int end = 0;
    QString text;
    qsizetype at = 0; // of the text that comes next
};

bool replace_piece_of(Range& range, QTextCursor& cursor) {
    if (range.end > range.start) {
        cursor.setPosition(range.end);
        range.end = std::max(range.start, range.end - PIECE_CHARACTERS);
        cursor.setPosition(range.end, QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
        return true;
    }
    if (range.at == range.text.size())
        return false;
    const auto end = end_of_piece(range.text, range.at);
    cursor.insertText(range.text.mid(range.at, end - range.at));
    range.at = end;
    return true;
}

} // namespace

BulkEdits::BulkEdits(QPlainTextEdit* text) : QObject(text), m_text(text) {
    const QTextDocument* document = text->document();
    connect(document, &QTextDocument::undoCommandAdded, this, [this] { forget_undone(); });
    connect(document, &QTextDocument::contentsChanged, this, [this] { m_commands = commands(); });
}

int BulkEdits::commands() const {
    return m_text->document()->availableUndoSteps();
}

// An edit takes the place of what was undone before it.
void BulkEdits::forget_undone() {
    std::erase_if(m_steps, [this](const Step& one) { return one.end > m_commands; });
}

void BulkEdits::abandon() {
    m_steps.clear();
    m_slice = nullptr;
}

void BulkEdits::run(Slice slice) {
    m_slice = std::move(slice);
    m_text->setReadOnly(true);
    turn();
}

void BulkEdits::turn() {
    if (!m_slice)
        return;
    if (m_slice()) {
        QTimer::singleShot(0, this, [this] { turn(); });
        return;
    }
    m_slice = nullptr;
    m_text->setReadOnly(false);
    Q_EMIT finished();
}

void BulkEdits::edit(const Slice& slice) {
    forget_undone();
    run([this, slice, begin = commands()] {
        if (slice())
            return true;
        if (commands() > begin)
            m_steps.push_back({begin, commands()});
        return false;
    });
}

void BulkEdits::replace_places(std::vector<int> places, int length, const QString& substitute) {
    const auto left = std::make_shared<std::vector<int>>(std::move(places));
    edit([this, left, length, substitute] {
        QTextCursor cursor(m_text->document());
        return !left->empty() && replace_last_places(cursor, *left, length, substitute);
    });
}

void BulkEdits::replace_range(int start, int end, const QString& text) {
    QTextCursor cursor(m_text->document());
    cursor.setPosition(start);
    const auto range = std::make_shared<Range>(Range{.start = start, .end = end, .text = text});
    edit([this, range, cursor]() mutable {
        const SliceClock clock;
        bool more = true;
        while (more && clock.has_time())
            more = replace_piece_of(*range, cursor);
        if (!more)
            m_text->setTextCursor(cursor);
        return more;
    });
}

void BulkEdits::undo() {
    step(true);
}

void BulkEdits::redo() {
    step(false);
}

void BulkEdits::step(bool back) {
    if (m_text->isReadOnly())
        return;
    const auto found = std::ranges::find(m_steps, commands(), back ? &Step::end : &Step::begin);
    if (found == m_steps.end()) {
        back ? m_text->undo() : m_text->redo();
        return;
    }
    run([this, back, target = back ? found->begin : found->end] {
        const SliceClock clock;
        auto* document = m_text->document();
        QTextCursor cursor(document);
        const auto is_there = [&] {
            return back ? commands() <= target : commands() >= target || !document->isRedoAvailable();
        };
        while (!is_there() && clock.has_time())
            back ? document->undo(&cursor) : document->redo(&cursor);
        if (is_there())
            m_text->setTextCursor(cursor);
        return !is_there();
    });
}

} // namespace tickervantage
