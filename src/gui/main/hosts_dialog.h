// The other machines whose clocks the main window can show: a list that is added to and taken from. Main thread.
#pragma once

#include <QDialog>
#include <QStringList>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace tickervantage {

// Whether chronyc's option -h can take it: one name or address, or the path of a socket on this machine.
[[nodiscard]] bool is_daemon_host(const QString& text);

class HostsDialog : public QDialog {
    Q_OBJECT

public:
    HostsDialog(const QStringList& hosts, QWidget* parent);

Q_SIGNALS:
    void changed(const QStringList& hosts); // with every host that comes or goes
    void chosen(const QString& host);       // to be shown; the dialog closes

private:
    void build(const QStringList& hosts);
    void connect_controls();
    void add();
    void remove();
    void choose();
    void show_state(); // which buttons can be pressed
    [[nodiscard]] QStringList hosts() const;

    QListWidget* m_hosts = nullptr;
    QLineEdit* m_name = nullptr;
    QLabel* m_words = nullptr;
    QPushButton* m_add = nullptr;
    QPushButton* m_remove = nullptr;
    QPushButton* m_show = nullptr;
    QPushButton* m_close = nullptr;
};

} // namespace tickervantage
