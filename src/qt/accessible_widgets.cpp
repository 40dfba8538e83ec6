#include "qt/accessible_widgets.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QEvent>
#include <QLabel>
#include <QStringList>
#include <QTextDocumentFragment>
#include <QVariant>

#include <utility>

namespace tickervantage {
namespace {

constexpr const char* role_property = "announced_as";

QAccessibleInterface* make_announced(const QString&, QObject* object) {
    const QVariant role = object->property(role_property);
    return role.isValid()
               ? new QAccessibleWidget(static_cast<QWidget*>(object), static_cast<QAccessible::Role>(role.toInt()))
               : nullptr;
}

QString plain_text(const QLabel& label) {
    const bool is_rich =
        label.textFormat() == Qt::RichText || (label.textFormat() == Qt::AutoText && Qt::mightBeRichText(label.text()));
    return is_rich ? QTextDocumentFragment::fromHtml(label.text()).toPlainText() : label.text();
}

// Readers remember what they were told until they hear that it changed; a label says so only of its name.
class TextWatch : public QObject {
public:
    explicit TextWatch(QLabel* label) : QObject(label), m_label(label), m_told(label->text()) {
        label->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint && std::exchange(m_told, m_label->text()) != m_told) {
            QAccessibleEvent changed(m_label, QAccessible::DescriptionChanged);
            QAccessible::updateAccessibility(&changed);
        }
        return false;
    }

private:
    QLabel* m_label;
    QString m_told;
};

// Made only while somebody listens.
class NamedLabel : public QAccessibleWidget {
public:
    explicit NamedLabel(QLabel* label) : QAccessibleWidget(label, QAccessible::StaticText), m_label(label) {
        new TextWatch(label); // which owns it
    }

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        const bool wants_words = kind == QAccessible::Description && m_label->accessibleDescription().isEmpty();
        return wants_words ? plain_text(*m_label) : QAccessibleWidget::text(kind);
    }

private:
    QLabel* m_label;
};

QAccessibleInterface* make_named_label(const QString&, QObject* object) {
    auto* label = qobject_cast<QLabel*>(object);
    return label != nullptr && !label->accessibleName().isEmpty() ? new NamedLabel(label) : nullptr;
}

// A button that can be on or off, to be clicked as by hand.
class SwitchedButton : public QAccessibleWidget {
public:
    explicit SwitchedButton(QAbstractButton* button)
        : QAccessibleWidget(button, button->autoExclusive() || button->group() != nullptr ? QAccessible::RadioButton
                                                                                          : QAccessible::CheckBox),
          m_button(button) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        QString words = QAccessibleWidget::text(kind);
        if (kind != QAccessible::Name || !words.isEmpty())
            return words;
        return m_button->text().remove(QLatin1Char('&'));
    }

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = m_button->isChecked();
        return state;
    }

    [[nodiscard]] QStringList actionNames() const override {
        QStringList names = QAccessibleWidget::actionNames();
        if (m_button->isEnabled())
            names.prepend(toggleAction());
        return names;
    }

    // The reader waits for an answer, which must not wait for a question that a click may bring up.
    void doAction(const QString& name) override {
        if (name == toggleAction())
            QMetaObject::invokeMethod(m_button, &QAbstractButton::click, Qt::QueuedConnection);
        else
            QAccessibleWidget::doAction(name);
    }

private:
    QAbstractButton* m_button;
};

QAccessibleInterface* make_switched_button(const QString&, QObject* object) {
    auto* button = qobject_cast<QAbstractButton*>(object);
    return button != nullptr && button->isCheckable() ? new SwitchedButton(button) : nullptr;
}

} // namespace

void announce_as(QWidget* widget, QAccessible::Role role) {
    QAccessible::installFactory(make_announced); // again is harmless
    widget->setProperty(role_property, static_cast<int>(role));
}

void serve_screen_readers() {
    QAccessible::installFactory(make_named_label);
    QAccessible::installFactory(make_switched_button);
}

} // namespace tickervantage
