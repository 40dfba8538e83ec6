// The controls of the configuration editor, built and laid out; nothing is connected yet. The widgets belong to the
// parent. Main thread.
#pragma once

class QLabel;
class QListWidget;
class QPushButton;
class QWidget;

namespace tickervantage {

class ConfigText;
class FindBar;

struct ConfigControls {
    ConfigText* m_config = nullptr;
    QPushButton* m_checksyntax = nullptr; // its image shows the state
    QPushButton* m_install = nullptr;
    QPushButton* help = nullptr;
    FindBar* find_bar = nullptr;
    QLabel* state = nullptr;         // the image in words
    QLabel* message = nullptr;       // what went on last
    QListWidget* warnings = nullptr; // hidden while there are none
};

[[nodiscard]] ConfigControls build_config_controls(QWidget* parent);

} // namespace tickervantage
