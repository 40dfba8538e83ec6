#include "gui/editor/config_highlighter.h"

#include "chrony/configuration/directives.h"

#include <QElapsedTimer>
#include <QTextDocument>
#include <QTimer>

#include <utility>

namespace tickervantage {
namespace {

constexpr qint64 SLICE_MILLISECONDS = 8;

bool is_dark(const QPalette& palette) {
    return palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
}

} // namespace

ConfigHighlighter::ConfigHighlighter(QTextDocument* document, const QPalette& palette) : QSyntaxHighlighter(document) {
    choose_formats(palette);
}

// Each colour reaches 4.5 : 1 on the usual backgrounds; none means anything by its colour alone.
void ConfigHighlighter::choose_formats(const QPalette& palette) {
    const bool dark = is_dark(palette);
    m_directive.setForeground(dark ? QColor(0x7a, 0xb8, 0xff) : QColor(0x1a, 0x56, 0xb0));
    m_directive.setFontWeight(QFont::Bold);
    m_ignored.setForeground(dark ? QColor(0xd8, 0xb0, 0x60) : QColor(0x80, 0x58, 0x00));
    m_ignored.setFontStrikeOut(true);
    m_unknown.setForeground(dark ? QColor(0xff, 0x8c, 0x84) : QColor(0xb8, 0x20, 0x18));
    m_unknown.setUnderlineStyle(QTextCharFormat::WaveUnderline);
    m_unknown.setUnderlineColor(m_unknown.foreground().color());
    m_comment.setForeground(dark ? QColor(0x9a, 0xa8, 0x9a) : QColor(0x50, 0x68, 0x50));
    m_comment.setFontItalic(true);
}

void ConfigHighlighter::set_palette(const QPalette& palette) {
    choose_formats(palette);
    if (std::exchange(m_recolored, 0) < 0)
        QTimer::singleShot(0, this, [this] { recolor_slice(); });
}

void ConfigHighlighter::recolor_slice() {
    QElapsedTimer clock;
    clock.start();
    m_recoloring = true;
    auto block = document()->findBlockByNumber(m_recolored);
    for (; block.isValid() && clock.elapsed() < SLICE_MILLISECONDS; block = block.next())
        rehighlightBlock(block);
    m_recoloring = false;
    m_recolored = block.isValid() ? block.blockNumber() : -1;
    if (m_recolored >= 0)
        QTimer::singleShot(0, this, [this] { recolor_slice(); });
}

void ConfigHighlighter::highlightBlock(const QString& text) {
    const QByteArray line = text.toLatin1(); // one byte a character, so that places agree; names are plain letters
    const LineParts parts = parts_of_line({line.constData(), static_cast<std::size_t>(line.size())});
    const auto color = [&](const QTextCharFormat& format) {
        setFormat(static_cast<int>(parts.start), static_cast<int>(parts.length), format);
    };
    switch (parts.kind) {
    case LineKind::empty:
        return;
    case LineKind::comment:
        return color(m_comment);
    case LineKind::unknown:
        return color(m_unknown);
    case LineKind::directive:
        return color(parts.directive->state == DirectiveState::ignored ? m_ignored : m_directive);
    }
}

} // namespace tickervantage
