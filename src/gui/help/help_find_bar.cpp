#include "gui/help/help_find_bar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace tickervantage {

HelpFindBar::HelpFindBar(HelpPageView* page, QWidget* parent)
    : QWidget(parent), m_page(page), m_find(new QLineEdit(this)), m_answer(new QLabel(this)) {
    m_find->setObjectName(QStringLiteral("find"));
    //: help window, bar that finds text: accessible name and placeholder of the field
    m_find->setAccessibleName(tr("Find in this page"));
    m_find->setPlaceholderText(m_find->accessibleName());
    m_find->setClearButtonEnabled(true);
    m_answer->setObjectName(QStringLiteral("find_answer"));
    //: help window, bar that finds text: buttons
    auto* previous = new QPushButton(tr("&Previous"), this);
    //: help find bar: button, the next place
    auto* next = new QPushButton(tr("&Next"), this);
    //: help find bar: button, closes the bar
    auto* close = new QPushButton(tr("&Close"), this);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(6, 6, 6, 6);
    for (QWidget* widget : {static_cast<QWidget*>(m_find), static_cast<QWidget*>(previous), static_cast<QWidget*>(next),
                            static_cast<QWidget*>(m_answer), static_cast<QWidget*>(close)})
        row->addWidget(widget, widget == m_find ? 2 : widget == m_answer ? 1 : 0);
    connect(m_find, &QLineEdit::textEdited, this, &HelpFindBar::type);
    connect(previous, &QPushButton::clicked, this, [this] { find(HelpPageView::Direction::back); });
    connect(next, &QPushButton::clicked, this, [this] { find(HelpPageView::Direction::onward); });
    connect(close, &QPushButton::clicked, this, &QWidget::hide);
    hide();
}

void HelpFindBar::open() {
    show();
    m_find->setFocus();
    m_find->selectAll();
}

// While someone types, the match under way grows instead of jumping to the next.
void HelpFindBar::type(const QString&) {
    QTextCursor cursor = m_page->textCursor();
    cursor.setPosition(cursor.selectionStart());
    m_page->setTextCursor(cursor);
    find(HelpPageView::Direction::onward);
}

void HelpFindBar::find(HelpPageView::Direction direction) {
    const bool found = m_page->find_text(m_find->text(), direction);
    //: help window, bar that finds text: nothing was found
    m_answer->setText(found ? QString() : tr("Not in this page"));
}

void HelpFindBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        hide();
        m_page->setFocus();
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        find(event->modifiers().testFlag(Qt::ShiftModifier) ? HelpPageView::Direction::back
                                                            : HelpPageView::Direction::onward);
    } else {
        QWidget::keyPressEvent(event);
    }
}

} // namespace tickervantage
