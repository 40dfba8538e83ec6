#include "graphs/accessible_plot_window.h"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace tickervantage {
namespace {

constexpr const char* mark = "announced_as_chart";

QAccessibleInterface* make_accessible(const QString&, QObject* object) {
    if (!object->property(mark).toBool())
        return nullptr;
    return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Chart);
}

} // namespace

void announce_as_chart(QWidget* plot) {
    QAccessible::installFactory(make_accessible); // again is harmless
    plot->setProperty(mark, true);
}

} // namespace tickervantage
