// The controls of the spectrum window, built and laid out; nothing is connected yet.
//
// The widgets belong to the parent. Main thread.
#pragma once

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

} // namespace tickervantage
