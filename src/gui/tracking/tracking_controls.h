// A tracking window's controls and where they stand. Built once; the window connects them.
#pragma once

class QAction;
class QComboBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QSlider;
class QToolButton;
class QWidget;

namespace tickervantage {

class GraphScrollArea;
class LegendView;
class ReadoutLabel;
class PerformanceGraph;

struct TrackingControls {
    QLabel* titleView = nullptr;
    GraphScrollArea* trackingView = nullptr;
    QLabel* empty = nullptr; // in the middle of the graph, while that shows nothing
    QComboBox* dataTimeRange = nullptr;
    QPushButton* showLegend = nullptr;
    QPushButton* showSpectrum = nullptr;
    QPushButton* export_button = nullptr;
    QWidget* pauseplay = nullptr; // holds the two buttons below
    QToolButton* pause = nullptr;
    QToolButton* play = nullptr;
    QProgressBar* loadingLog = nullptr;
    QLabel* startDate = nullptr;
    QLabel* endDate = nullptr;
    ReadoutLabel* readout = nullptr;
    QPushButton* makeReadable = nullptr; // beside the readout, while that says that the log may not be read
    QSlider* hZoom = nullptr;
    QSlider* vZoom = nullptr;
    QSlider* vScale = nullptr; // whole numbers
    QPushButton* fit = nullptr;
    QAction* fit_action = nullptr; // of the graph, as the next
    QAction* reset_action = nullptr;
    LegendView* legend = nullptr;
};

// The two sliders of zooms count in hundredths.
inline constexpr double slider_steps = 100;

[[nodiscard]] TrackingControls build_tracking_controls(QWidget* central, PerformanceGraph& graph);

} // namespace tickervantage
