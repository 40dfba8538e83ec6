// Colours for chrony.conf: directives, those that no longer count, comments, and words that chronyd does not know.
//
// A change of the palette recolours the text slice by slice. Main thread.
#pragma once

#include <QPalette>
#include <QSyntaxHighlighter>

namespace tickervantage {

class ConfigHighlighter : public QSyntaxHighlighter {
    Q_OBJECT

public:
    ConfigHighlighter(QTextDocument* document, const QPalette& palette);

    void set_palette(const QPalette& palette);
    [[nodiscard]] bool is_recoloring() const { return m_recoloring; } // right now, in a slice

protected:
    void highlightBlock(const QString& text) override;

private:
    void choose_formats(const QPalette& palette);
    void recolor_slice();

    QTextCharFormat m_directive;
    QTextCharFormat m_ignored;
    QTextCharFormat m_unknown;
    QTextCharFormat m_comment;
    bool m_recoloring = false;
    int m_recolored = -1; // number of the next block; -1: all have the new colours
};

} // namespace tickervantage
