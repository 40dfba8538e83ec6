// A window with a main thread and a queue whose crank the test turns, and its controls by the names they bear.
#pragma once

#include "support/manual_dispatch.h"
#include "support/test.h"

#include <QtWidgets>

namespace tickervantage::testing {

inline void press_key(QWidget* on, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                      const QString& text = {}) {
    QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(on, &press);
}

// Presses the button of a sheet that bears the text, its ampersand apart.
inline void press_button(const QMessageBox& sheet, const char* text) {
    const QPointer guard(&sheet);
    for (auto* button : sheet.buttons())
        if (guard && button->text().remove(QLatin1Char('&')) == QLatin1String(text))
            button->click();
}

template <typename Window>
struct WindowControls : ::testing::Test {
    std::unique_ptr<Window> window;

    // What the window was made from belongs to the derived test, which goes first.
    void TearDown() override { window.reset(); }

    template <typename Widget>
    Widget* find(const char* name) {
        auto* widget = window->template findChild<Widget*>(QLatin1String(name));
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }
    std::string text(const char* field) { return find<QLineEdit>(field)->text().toStdString(); }
    std::string words(const char* label) { return find<QLabel>(label)->text().toStdString(); }
};

template <typename Window>
struct WindowTest : WindowControls<Window> {
    ManualMainThread main_thread;
    ManualQueue queue;

    void settle() {
        while (queue.turn() || main_thread.turn()) {
        }
    }
    void press(const char* button) {
        this->template find<QAbstractButton>(button)->click();
        settle();
    }
    void type(const char* field, const char* text) {
        auto* line = this->template find<QLineEdit>(field);
        line->setText(QLatin1String(text));
        Q_EMIT line->textEdited(line->text());
        settle();
    }
};

} // namespace tickervantage::testing
