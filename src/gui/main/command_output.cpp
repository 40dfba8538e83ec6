#include "gui/main/command_output.h"

#include <QFontDatabase>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>

namespace tickervantage {

CommandOutput::CommandOutput(QWidget* parent) : QPlainTextEdit(parent) {
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setTabChangesFocus(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    set_font({});
}

void CommandOutput::show_text(const std::string& text) {
    if (text == m_shown)
        return;
    m_shown = text;
    const int down = verticalScrollBar()->value();
    const int across = horizontalScrollBar()->value();
    const QString shown = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    if (!replace_changed_lines(shown.split(QLatin1Char('\n'))))
        setPlainText(shown);
    verticalScrollBar()->setValue(down);
    horizontalScrollBar()->setValue(across);
}

// A report read again mostly differs in a few numbers: laying out only those lines is much cheaper than all.
bool CommandOutput::replace_changed_lines(const QStringList& lines) {
    constexpr int worthwhile = 200;
    if (lines.size() != document()->blockCount() || lines.size() > worthwhile)
        return false;
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    for (auto block = document()->firstBlock(); block.isValid(); block = block.next()) {
        const QString& line = lines.at(block.blockNumber());
        if (block.text() == line)
            continue;
        cursor.setPosition(block.position());
        cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        cursor.insertText(line);
    }
    cursor.endEditBlock();
    return true;
}

// Qt paints a placeholder when it appears and when it goes, but not when its words change.
void CommandOutput::show_instead(const QString& words) {
    if (words == placeholderText())
        return;
    setPlaceholderText(words);
    viewport()->update();
}

void CommandOutput::set_font(const Font& font) {
    QFont chosen = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    if (!font.family.empty()) {
        chosen.setFamily(QString::fromStdString(font.family));
        if (font.point_size > 0)
            chosen.setPointSizeF(font.point_size);
    }
    QPlainTextEdit::setFont(chosen);
}

} // namespace tickervantage
