// Windows under test, used by keys alone.
#pragma once

#include "support/test.h"

#include <QtWidgets>

namespace tickervantage::testing {

inline std::string name_of(const QObject* object) {
    const QString name = object->objectName();
    return object->metaObject()->className() + (name.isEmpty() ? std::string() : " " + name.toStdString());
}

// Of buttons of which one is always on, Tab comes to the one that was used last; arrows lead to the others.
inline bool is_left_to_arrows(const QWidget* widget) {
    const auto* button = qobject_cast<const QAbstractButton*>(widget);
    return button != nullptr && button->group() != nullptr && button->group()->exclusive();
}

inline bool takes_tab(const QWidget* widget, const QWidget& window) {
    return !is_left_to_arrows(widget) && widget->window() == &window && widget->isVisible() && widget->isEnabled() &&
           (widget->focusPolicy() & Qt::TabFocus) == Qt::TabFocus && widget->focusProxy() == nullptr;
}

// An editor keeps Tab for itself; Ctrl+Tab leaves it.
inline void press_tab() {
    const QWidget* before = QApplication::focusWidget();
    for (const auto modifier : {Qt::NoModifier, Qt::ControlModifier}) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Tab, modifier, QStringLiteral("\t"));
        QApplication::sendEvent(QApplication::focusWidget(), &press);
        if (QApplication::focusWidget() != before)
            return;
    }
}

// What Tab does not come to in a window that is shown; "trap" where it stays.
inline std::vector<std::string> out_of_reach(QWidget& window) {
    std::set<const QWidget*> wanted;
    for (const auto* widget : window.findChildren<QWidget*>())
        if (takes_tab(widget, window))
            wanted.insert(widget);
    window.activateWindow();
    QApplication::setActiveWindow(&window);
    if (wanted.empty())
        return {};
    const_cast<QWidget*>(*wanted.begin())->setFocus(Qt::TabFocusReason);
    std::set<const QWidget*> reached;
    const QWidget* before = nullptr;
    for (std::size_t step = 0; step < 3 * wanted.size() && QApplication::focusWidget() != before; ++step) {
        before = QApplication::focusWidget();
        reached.insert(before);
        if (before != nullptr)
            press_tab();
    }
    std::vector<std::string> left;
    for (const auto* widget : wanted)
        if (!reached.contains(widget))
            left.push_back(name_of(widget));
    if (before != nullptr && QApplication::focusWidget() == before && wanted.size() > 1)
        left.push_back("trap: " + name_of(before));
    return left;
}

// Texts with the same underlined letter.
inline std::vector<std::string> clashes(const std::vector<QString>& texts) {
    std::map<QString, QString> owners;
    std::vector<std::string> found;
    for (const auto& text : texts) {
        const QString key = QKeySequence::mnemonic(text).toString();
        if (!key.isEmpty() && !owners.emplace(key, text).second)
            found.push_back(key.toStdString() + ": " + owners[key].toStdString() + " and " + text.toStdString());
    }
    return found;
}

inline std::vector<QString> texts_of(const QWidget& menu) {
    std::vector<QString> texts;
    for (const auto* action : menu.actions())
        if (action->isVisible())
            texts.push_back(action->text());
    return texts;
}

// Everything in the window that Alt and a letter reach.
inline std::vector<QString> mnemonic_texts(const QWidget& window) {
    std::vector<QString> texts;
    for (const auto* bar : window.findChildren<QMenuBar*>())
        texts = texts_of(*bar);
    for (const auto* button : window.findChildren<QAbstractButton*>())
        if (button->isVisible())
            texts.push_back(button->text());
    for (const auto* label : window.findChildren<QLabel*>())
        if (label->isVisible() && label->buddy() != nullptr)
            texts.push_back(label->text());
    return texts;
}

// What keys reach in a window that is shown and that says to nobody what it is for: no name for a screen reader, or
// neither words on it, a label beside it, nor a tooltip.
inline std::vector<std::string> wordless(const QWidget& window) {
    std::set<const QWidget*> labelled;
    for (const auto* label : window.findChildren<QLabel*>())
        labelled.insert(label->buddy());
    std::vector<std::string> found;
    for (auto* widget : window.findChildren<QWidget*>()) {
        if (!takes_tab(widget, window) || qobject_cast<QTabBar*>(widget) != nullptr)
            continue;
        const auto* told = QAccessible::queryAccessibleInterface(widget);
        const auto* button = qobject_cast<QAbstractButton*>(widget);
        const auto* line = qobject_cast<QLineEdit*>(widget);
        const bool is_drawn =
            told != nullptr && (told->role() == QAccessible::Chart || told->role() == QAccessible::Graphic);
        const bool has_words = is_drawn || (line != nullptr && !line->placeholderText().isEmpty()) ||
                               (button != nullptr && !button->text().isEmpty()) || labelled.contains(widget) ||
                               !widget->toolTip().isEmpty() || qobject_cast<QAbstractItemView*>(widget) != nullptr ||
                               qobject_cast<QTextEdit*>(widget) != nullptr ||
                               qobject_cast<QPlainTextEdit*>(widget) != nullptr;
        if (told == nullptr || told->text(QAccessible::Name).isEmpty() || !has_words)
            found.push_back(name_of(widget));
    }
    return found;
}

} // namespace tickervantage::testing
