// The frequency-temperature window's controls and where they stand. Built once; the window connects them.
#pragma once

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QSpinBox;
class QWidget;

namespace tickervantage {

class FreqTempPlot;

struct FreqTempControls {
    QPushButton* m_select_sensor = nullptr;
    QComboBox* m_order = nullptr;
    QCheckBox* m_show_scatter_points = nullptr;
    QCheckBox* m_show_mean_frequency = nullptr;
    QCheckBox* m_show_freq_bounds = nullptr;
    QCheckBox* m_show_last_record = nullptr;
    QPushButton* clear = nullptr;
    QPushButton* compensate = nullptr;
    QPushButton* export_button = nullptr;
    FreqTempPlot* m_scatterplot = nullptr;
    QLabel* legend = nullptr;
    QLabel* reading = nullptr; // what is under the pointer, or what was said last
    QLabel* m_samples = nullptr;
    QWidget* m_ph_maxsamples = nullptr; // holds the one below
    QSpinBox* m_maxsamples = nullptr;
};

[[nodiscard]] FreqTempControls build_freqtemp_controls(QWidget* parent);

} // namespace tickervantage
