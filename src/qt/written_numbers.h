// Numbers in the fields of windows, as people write them.
//
// Written as the user's locale does, with as many places as they have and without groups of thousands. Read likewise,
// or with a decimal point. Main thread.
#pragma once

#include <QLocale>
#include <QString>

#include <cmath>
#include <optional>
#include <type_traits>

namespace tickervantage {

template <typename Number>
[[nodiscard]] QString number_text(Number number) {
    QLocale locale;
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    if constexpr (std::is_floating_point_v<Number>)
        return locale.toString(number, 'g', QLocale::FloatingPointShortest);
    else
        return locale.toString(static_cast<qlonglong>(number));
}

// A finite number; none for any other text.
[[nodiscard]] inline std::optional<double> number_in(const QString& text) {
    bool readable = false;
    double number = QLocale().toDouble(text.trimmed(), &readable);
    if (!readable)
        number = QLocale::c().toDouble(text.trimmed(), &readable);
    return readable && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

} // namespace tickervantage
