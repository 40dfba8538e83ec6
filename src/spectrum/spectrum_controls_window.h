// The controls of the spectrum window, built and laid out; nothing is connected yet.
//
// The widgets belong to the parent. Main thread.
#pragma once

#include <QString>

#include <optional>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QWidget;

namespace tickervantage {

class SpectrumChart;

struct SpectrumControls {
    QComboBox* m_selector = nullptr; // the items as spectrum_series has them
    QLineEdit* m_sampleinterval = nullptr;
    QLineEdit* m_sampleduration = nullptr;
    QPushButton* compute = nullptr;
    QPushButton* export_button = nullptr;
    SpectrumChart* m_spectrum = nullptr;
    QLabel* status = nullptr;
};

[[nodiscard]] SpectrumControls build_spectrum_controls(QWidget* parent);

// A number as the user's locale writes it, with as many places as it has.
[[nodiscard]] QString number_text(double number);

// A finite number, as the user's locale writes it or with a decimal point; none for any other text.
[[nodiscard]] std::optional<double> number_in(const QString& text);

} // namespace tickervantage
