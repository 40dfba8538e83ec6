#include "gui/common/difference_view.h"

#include "qt/named_widget.h"

#include <QCoreApplication>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QTextCharFormat>

#include <algorithm>

namespace tickervantage {
namespace {

constexpr std::size_t MOST_LINES = 1000;

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(difference)
};

QTextCharFormat format_of(char sign, const QPalette& palette) {
    constexpr int half = 128;
    const bool dark = palette.color(QPalette::Base).lightness() < half;
    QTextCharFormat format;
    if (sign == '-')
        format.setForeground(dark ? QColor(0xff, 0x8c, 0x84) : QColor(0xb8, 0x20, 0x18));
    if (sign == '+')
        format.setForeground(dark ? QColor(0x8c, 0xd0, 0x8c) : QColor(0x1c, 0x6b, 0x2a));
    return format;
}

} // namespace

QPlainTextEdit* make_difference_view(QWidget* parent) {
    //: configurations: name of the text that shows the lines that differ
    auto* view = named(new QPlainTextEdit(parent), "m_difference", Texts::tr("Difference"),
                       //: configurations: tooltip of that text
                       Texts::tr("Lines that would go begin with −, lines that would come with +"));
    view->setReadOnly(true);
    view->setTabChangesFocus(true);
    view->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    view->setLineWrapMode(QPlainTextEdit::NoWrap);
    return view;
}

void show_difference(QPlainTextEdit* view, const std::vector<DifferenceLine>& lines) {
    view->clear();
    QTextCursor cursor(view->document());
    const auto shown = std::min(lines.size(), MOST_LINES);
    for (std::size_t i = 0; i < shown; ++i)
        cursor.insertText(QString::fromStdString(difference_text({lines[i]})),
                          format_of(lines[i].sign, view->palette()));
    if (shown < lines.size())
        //: configurations: below the first of the lines that differ; %1 is a number
        cursor.insertText(Texts::tr("and %1 more lines").arg(lines.size() - shown), {});
    view->moveCursor(QTextCursor::Start);
}

} // namespace tickervantage
