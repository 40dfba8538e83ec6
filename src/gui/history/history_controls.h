// The controls of the history window, made and laid out. Main thread.
#pragma once

#include "gui/common/path_buttons.h"
#include "studies/history/history_view.h"

#include <array>

class QAction;
class QActionGroup;
class QComboBox;
class QLabel;
class QPushButton;
class QTabWidget;
class QTextBrowser;
class QToolButton;
class QTreeWidget;
class QWidget;

namespace tickervantage {

class HistogramView;
class HistoryPlot;

struct HistoryControls {
    HistoryPlot* plot = nullptr;
    PathButtons path;
    QAction* fit = nullptr;
    QComboBox* range = nullptr;  // as range_seconds
    QToolButton* when = nullptr; // a menu of days and nights
    QAction* from_to = nullptr;
    QToolButton* follow = nullptr;
    QToolButton* zoom_by_drag = nullptr;
    QComboBox* scale = nullptr;        // as ScaleChoice
    QComboBox* sources_form = nullptr; // lanes, offsets
    QToolButton* files = nullptr;      // a menu of what comes from files and goes to them
    QAction* open_log = nullptr;
    QAction* open_folder = nullptr;
    QAction* compare = nullptr;
    QAction* compare_folder = nullptr;
    QAction* end_comparison = nullptr;
    QAction* log_graph = nullptr;
    QAction* turn_on = nullptr;
    QActionGroup* limits = nullptr; // each with its seconds; the first one with none
    QAction* evidence = nullptr;
    QTreeWidget* legend = nullptr; // curve, value at the pointer
    QTabWidget* details = nullptr;
    QTreeWidget* statistics = nullptr;
    HistogramView* histogram = nullptr;
    QTreeWidget* cursors = nullptr;
    QTreeWidget* before_after = nullptr;
    QWidget* events_page = nullptr;
    QTreeWidget* events = nullptr;
    QToolButton* event_kinds = nullptr;
    std::array<QAction*, mark_kinds> kinds{};
    QTextBrowser* source = nullptr; // what is known of one
    QLabel* origins = nullptr;      // which data come from where
};

// Of the entries of `range`; 0: all.
inline constexpr std::array<int, 8> range_seconds{0, 3600, 6 * 3600, 24 * 3600, 7 * 86400, 30 * 86400, 365 * 86400, -1};
inline constexpr int own_range = 7; // the entry for a range that somebody zoomed to

[[nodiscard]] HistoryControls build_history_controls(QWidget* parent);

} // namespace tickervantage
