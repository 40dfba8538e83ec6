// The main window's controls and where they stand. Built once; the window connects them.
#pragma once

#include "draw/canvas.h"

#include <array>

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QSpinBox;
class QWidget;

namespace tickervantage {

class ClockPerformance;
class ClockWidget;
class CommandOutput;
class MainArea;
class MeterWidget;
class ReportPane;
class SourcesPanel;
class StatusImage;
class TrendPanel;
class VerdictPanel;

struct MainWindowControls {
    QWidget* standing_bar = nullptr;          // with the notice; hidden while that is empty
    QLabel* standing_notice = nullptr;        // for what holds for the whole run
    QPushButton* use_system_chrony = nullptr; // beside it, in a demonstration on a system that has one
    QWidget* host_bar = nullptr;              // the two below, shown while another machine's clock is
    QLabel* host_words = nullptr;
    QPushButton* own_machine = nullptr;
    QWidget* wrong_program = nullptr; // the two below, shown while a program is not what its path says
    QLabel* wrong_program_words = nullptr;
    QPushButton* wrong_program_preferences = nullptr;
    VerdictPanel* verdict = nullptr;
    TrendPanel* trend = nullptr;
    ClockWidget* analogClock = nullptr;
    QLabel* localTime = nullptr;
    MeterWidget* clockPerformance = nullptr;
    QComboBox* meterSelect = nullptr;
    QLabel* meterValue = nullptr;
    std::array<StatusImage*, 3> status_images{}; // by chronydStatus
    QLabel* status_words = nullptr;
    QLabel* adjustingClock = nullptr;
    QPushButton* m_preferences = nullptr;
    QLabel* chronycversion = nullptr;
    QLabel* chronydversion = nullptr;
    QComboBox* commandMenu = nullptr;
    QLabel* m_server_label = nullptr;
    QComboBox* m_server = nullptr;
    QCheckBox* showIPaddress = nullptr;
    QCheckBox* showOriginalName = nullptr;
    QSpinBox* m_interval = nullptr;
    CommandOutput* m_textscroll = nullptr;
    ReportPane* report = nullptr; // with the output and the controls that steer it
    SourcesPanel* sources = nullptr;
    QLabel* m_status = nullptr;
};

// Makes the controls and lays them out in the area. The meter outlives them.
[[nodiscard]] MainWindowControls build_main_window_controls(MainArea& area, ClockPerformance& meter);

} // namespace tickervantage
