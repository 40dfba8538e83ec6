// The controls of the server window, built and laid out; nothing is connected yet.
//
// The widgets belong to the parent. Main thread.
#pragma once

#include "chrony/configuration/server_list.h"

#include <QString>

#include <array>

class QCheckBox;
class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;
class QWidget;

namespace tickervantage {

class ServerListView;

struct ServersControls {
    ServerListView* serverListView = nullptr;
    QWidget* serverControl = nullptr;
    std::array<QToolButton*, 2> segments{}; // of serverControl: adds, removes
    QToolButton* undo = nullptr;            // brings back what was removed
    QWidget* record = nullptr;              // around the fields of one server
    QLineEdit* m_name = nullptr;
    QLineEdit* m_minpoll = nullptr;
    QLineEdit* m_maxpoll = nullptr;
    QCheckBox* m_iburst = nullptr;
    QCheckBox* pool = nullptr;
    QLabel* name_words = nullptr; // below the field: what is wrong, or what it means
    QLabel* minpoll_words = nullptr;
    QLabel* maxpoll_words = nullptr;
    QFrame* notice = nullptr; // above everything; hidden while there is nothing to say
    QLabel* notice_text = nullptr;
    QPushButton* retry = nullptr;
    QPushButton* import = nullptr;
    QPushButton* copy = nullptr;
    QPushButton* insert = nullptr;
    QPushButton* help = nullptr;
};

[[nodiscard]] ServersControls build_servers_controls(QWidget* parent);

// What is said below a poll: what it means, or that it is left to chrony, or that it is too short.
struct PollWords {
    QString text = {};
    bool is_warning = false;
};
[[nodiscard]] PollWords words_of_minpoll(const server_data& server);
[[nodiscard]] PollWords words_of_maxpoll(const server_data& server);

// "64 s", "17 min", "18 h", "1/4 s"; empty where chrony would not take the poll.
[[nodiscard]] QString poll_length(std::int64_t poll);

} // namespace tickervantage
