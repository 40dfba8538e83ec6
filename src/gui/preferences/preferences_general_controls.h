// The controls of the General pane, built and laid out; nothing is connected yet.
//
// The widgets belong to the parent. Main thread.
#pragma once

#include <array>

class QCheckBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QWidget;

namespace tickervantage {

struct PathControls {
    QLineEdit* field = nullptr;
    QPushButton* choose = nullptr;
    QLabel* words = nullptr; // below the field: what is wrong with the path
};

struct PreferencesGeneralControls {
    QCheckBox* m_launch_login = nullptr;
    QCheckBox* m_adj_system = nullptr;
    QCheckBox* m_keep_history = nullptr;
    QLabel* history_words = nullptr; // why that cannot be chosen
    QPushButton* resetWarnings = nullptr;
    std::array<PathControls, 4> paths; // m_config, m_chronyc, m_chronyd, m_chronywake
    QLabel* paths_note = nullptr;      // empty unless there is something to say of all of them
    QPushButton* detect = nullptr;
    QCheckBox* m_install_wake = nullptr;
    QLineEdit* m_make_thresh = nullptr;
    QLineEdit* m_make_limit = nullptr;
    QLineEdit* m_burst_good = nullptr;
    QLineEdit* m_burst_max = nullptr;
    QLineEdit* m_burst_netmask = nullptr;
    QLabel* wake_words = nullptr; // what is wrong with the arguments
    QPushButton* saveArguments = nullptr;
    QPushButton* m_test_wake = nullptr;
    QProgressBar* m_testing_wake = nullptr;
    QPushButton* restoreDefaults = nullptr;
    QLabel* status = nullptr; // what the last action came to
};

[[nodiscard]] PreferencesGeneralControls build_preferences_general(QWidget* parent);

} // namespace tickervantage
