// Names for the widgets that tests, style sheets and screen readers look for, and the logic's texts as Qt's. Main
// thread.
#pragma once

#include <QString>

#include <string_view>

namespace tickervantage {

// The widget itself, so that it can be named where it is made.
template <typename Widget>
Widget* named(Widget* widget, const char* object_name, const QString& accessible_name, const QString& tooltip = {}) {
    widget->setObjectName(QLatin1String(object_name));
    widget->setAccessibleName(accessible_name);
    widget->setToolTip(tooltip);
    return widget;
}

[[nodiscard]] inline QString from_std(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace tickervantage
