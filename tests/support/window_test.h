// A window with a main thread and a queue whose crank the test turns, and its controls by the names they bear.
#pragma once

#include "support/manual_dispatch.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>

#include <memory>
#include <string>

namespace tickervantage::testing {

template <typename Window>
struct WindowTest : ::testing::Test {
    ManualMainThread main_thread;
    ManualQueue queue;
    std::unique_ptr<Window> window;

    // What the window was made from belongs to the derived test, which goes first.
    void TearDown() override { window.reset(); }

    void settle() {
        while (queue.turn() || main_thread.turn()) {
        }
    }

    template <typename Widget>
    Widget* find(const char* name) {
        auto* widget = window->template findChild<Widget*>(QLatin1String(name));
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }

    void press(const char* button) {
        find<QAbstractButton>(button)->click();
        settle();
    }
    void type(const char* field, const char* text) {
        find<QLineEdit>(field)->setText(QLatin1String(text));
        Q_EMIT find<QLineEdit>(field)->textEdited(QLatin1String(text));
        settle();
    }
    std::string text(const char* field) { return find<QLineEdit>(field)->text().toStdString(); }
    std::string words(const char* label) { return find<QLabel>(label)->text().toStdString(); }
};

} // namespace tickervantage::testing
