#include "gui/editor/config_find_bar.h"

#include "gui/editor/config_bulk_edits.h"
#include "gui/editor/config_text.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QTextCursor>

#include <utility>
#include <vector>

namespace tickervantage {
namespace {

constexpr int FIELD_LETTERS = 16;

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(configeditor)
};

QLineEdit* field(QWidget* parent, const char* name, const QString& label) {
    auto* line = new QLineEdit(parent);
    line->setObjectName(QLatin1String(name));
    line->setAccessibleName(label);
    line->setToolTip(label);
    line->setPlaceholderText(label);
    line->setClearButtonEnabled(true);
    line->setMinimumWidth(line->fontMetrics().horizontalAdvance(QString(FIELD_LETTERS, QLatin1Char('n'))));
    return line;
}

QPushButton* button(QWidget* parent, const char* name, const QString& label, const QString& tooltip) {
    auto* one = new QPushButton(label, parent);
    one->setObjectName(QLatin1String(name));
    one->setToolTip(tooltip);
    one->setAutoDefault(false);
    return one;
}

} // namespace

FindBar::FindBar(ConfigText* text, QWidget* parent) : QWidget(parent), m_text(text) {
    setObjectName(QStringLiteral("find_bar"));
    build();
    hide();
}

void FindBar::build() {
    //: find bar: the field with the words looked for
    m_find = field(this, "find", Texts::tr("Find"));
    //: find bar: the field with the words put in their place
    m_replacement = field(this, "replacement", Texts::tr("Replace with"));
    //: find bar: button and tooltip
    auto* next = button(this, "find_next", Texts::tr("&Next"),
                        //: find bar: tooltip
                        Texts::tr("Find the next place (Return, F3)"));
    auto* previous =
        //: find bar: button and tooltip
        button(this, "find_previous", Texts::tr("Pre&vious"),
               //: find bar: tooltip
               Texts::tr("Find the place before (Shift+F3)"));
    //: find bar: button and tooltip
    auto* one = button(this, "replace_one", Texts::tr("&Replace"),
                       //: find bar: tooltip
                       Texts::tr("Replace this place and find the next"));
    //: find bar: button and tooltip
    auto* all = button(this, "replace_all", Texts::tr("Replace &All"),
                       //: find bar: tooltip
                       Texts::tr("Replace every place"));
    //: find bar: button and tooltip
    auto* done = button(this, "close_find", Texts::tr("&Done"),
                        //: find bar: tooltip
                        Texts::tr("Close the find bar (Escape)"));
    //: find bar: check box
    m_match_case = new QCheckBox(Texts::tr("&Match case"), this);
    m_match_case->setObjectName(QStringLiteral("match_case"));
    m_answer = new QLabel(this);
    m_answer->setObjectName(QStringLiteral("find_answer"));
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 4, 0, 4);
    int column = 0;
    for (auto* widget : {static_cast<QWidget*>(m_find), static_cast<QWidget*>(next), static_cast<QWidget*>(previous),
                         static_cast<QWidget*>(m_match_case)})
        grid->addWidget(widget, 0, column++);
    grid->addWidget(done, 0, column);
    column = 0;
    for (auto* widget : {static_cast<QWidget*>(m_replacement), static_cast<QWidget*>(one), static_cast<QWidget*>(all)})
        grid->addWidget(widget, 1, column++);
    grid->addWidget(m_answer, 1, column, 1, 2);
    grid->setColumnStretch(0, 1);
    connect(next, &QPushButton::clicked, this, &FindBar::find_next);
    connect(previous, &QPushButton::clicked, this, &FindBar::find_previous);
    connect(one, &QPushButton::clicked, this, &FindBar::replace_one);
    connect(all, &QPushButton::clicked, this, &FindBar::replace_all);
    connect(done, &QPushButton::clicked, this, &FindBar::close_bar);
    connect(&m_text->bulk(), &BulkEdits::finished, this, [this] { end_replacing(); });
    connect(m_find, &QLineEdit::returnPressed, this, &FindBar::find_next);
    connect(m_replacement, &QLineEdit::returnPressed, this, &FindBar::replace_one);
}

void FindBar::open() {
    const QString selected = m_text->textCursor().selectedText();
    if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator))
        m_find->setText(selected);
    m_answer->clear();
    show();
    m_find->setFocus();
    m_find->selectAll();
}

void FindBar::close_bar() {
    hide();
    m_text->setFocus();
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close_bar();
    else
        QWidget::keyPressEvent(event);
}

Qt::CaseSensitivity FindBar::sensitivity() const {
    return m_match_case->isChecked() ? Qt::CaseSensitive : Qt::CaseInsensitive;
}

void FindBar::find_next() {
    find(Direction::onward);
}

void FindBar::find_previous() {
    find(Direction::back);
}

void FindBar::find(Direction direction) {
    m_answer->clear();
    const QString words = m_find->text();
    if (words.isEmpty())
        return;
    // Places in the raw text are those of the document; searching it block by block takes ten times as long.
    const QString text = m_text->document()->toRawText();
    const QTextCursor now = m_text->textCursor();
    qsizetype at = direction == Direction::onward ? text.indexOf(words, now.selectionEnd(), sensitivity())
                   : now.selectionStart() == 0    ? -1
                                                  : text.lastIndexOf(words, now.selectionStart() - 1, sensitivity());
    if (at < 0) {
        at = direction == Direction::onward ? text.indexOf(words, 0, sensitivity())
                                            : text.lastIndexOf(words, -1, sensitivity());
        //: find bar: said when the words are nowhere in the text, and when the search began again at the other end
        m_answer->setText(
            at < 0 ? Texts::tr("Not found")
                   : /*: find bar: said when the search began again at the other end of the text */ Texts::tr(
                         "From the other end"));
    }
    if (at >= 0)
        select(static_cast<int>(at), static_cast<int>(words.size()));
}

void FindBar::select(int start, int length) {
    QTextCursor place(m_text->document());
    place.setPosition(start);
    place.setPosition(start + length, QTextCursor::KeepAnchor);
    m_text->setTextCursor(place);
    m_text->ensureCursorVisible();
}

bool FindBar::has_match_selected() const {
    const QString selected = m_text->textCursor().selectedText();
    return !selected.isEmpty() && selected.compare(m_find->text(), sensitivity()) == 0;
}

void FindBar::replace_one() {
    if (has_match_selected() && !m_text->isReadOnly())
        m_text->textCursor().insertText(m_replacement->text());
    find_next();
}

void FindBar::replace_all() {
    const QString words = m_find->text();
    if (words.isEmpty() || m_text->isReadOnly())
        return;
    const QString text = m_text->document()->toRawText();
    std::vector<int> places;
    for (auto at = text.indexOf(words, 0, sensitivity()); at >= 0;
         at = text.indexOf(words, at + words.size(), sensitivity()))
        places.push_back(static_cast<int>(at));
    m_replacing = places.size();
    m_text->bulk().replace_places(std::move(places), static_cast<int>(words.size()), m_replacement->text());
}

void FindBar::end_replacing() {
    const auto replaced = std::exchange(m_replacing, std::nullopt);
    if (!replaced)
        return; // it was another long edit that ended
    const QString number = QLocale().toString(static_cast<qulonglong>(*replaced));
    //: find bar: said after Replace All; %1 is a number
    m_answer->setText(
        *replaced == 0
            ? Texts::tr("Not found")
            : /*: find bar: said after Replace All; %1 is the number of places */ Texts::tr("%1 replaced").arg(number));
}

} // namespace tickervantage
