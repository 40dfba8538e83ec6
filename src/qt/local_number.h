// A number of the logic, written as the windows' locale writes it. Any thread.
#pragma once

#include <QLocale>
#include <QString>

#include <cmath>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

namespace tickervantage {

// "-12.5 ms" becomes "-12,5 ms", ".2" ",2", where a comma goes before the decimals; a text that is not one number with
// at most a unit behind it stays as it is.
[[nodiscard]] std::string with_local_point(std::string_view text);

// Numbers in the fields of windows, as people write them.
//
// Written as the user's locale does, with as many places as they have and without groups of thousands. Read likewise,
// or with a decimal point. Main thread.
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
