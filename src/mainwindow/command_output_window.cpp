#include "mainwindow/command_output_window.h"

#include <QFontDatabase>
#include <QScrollBar>

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
    setPlainText(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
    verticalScrollBar()->setValue(down);
    horizontalScrollBar()->setValue(across);
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
