// The configurations that were installed last: a list, what bringing one back would change, and a button that does.
//
// Main thread only. The files are read on a queue; the window may go meanwhile.
#pragma once

#include "base/background.h"
#include "base/failure.h"
#include "roothelper/jobs/kept_configurations.h"

#include <QDialog>

#include <cstdint>
#include <string>
#include <vector>

class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTreeWidget;

namespace tickervantage {

// All of it outlives the window.
struct KeptConfigurationsParts {
    DispatchQueueSerial& queue;
    MainThread& main_thread;
    const JobMachine& machine; // used on the queue
    std::string configuration; // its path
};

class KeptConfigurationsWindow : public QDialog {
    Q_OBJECT

public:
    KeptConfigurationsWindow(KeptConfigurationsParts parts, QWidget* parent);

    // Reads what was kept and shows it.
    void load();

    // Of the job that brought one back.
    void show_outcome(const Result<>& outcome);

Q_SIGNALS:
    // To be asked about, and to be brought back.
    void wanted(const std::string& text);

private:
    struct Content {
        std::vector<KeptConfiguration> kept;
        std::string installed;
    };

    void build();
    void build_list();
    void build_difference();
    void show_content(Content content);
    void show_difference();
    void restore();
    [[nodiscard]] const KeptConfiguration* chosen() const;
    [[nodiscard]] int place_of(std::uint64_t number) const; // in the list; 0 where it is not

    KeptConfigurationsParts m_parts;
    Content m_content;
    QTreeWidget* m_list = nullptr;
    QLabel* m_title = nullptr;
    QPlainTextEdit* m_difference = nullptr;
    QLabel* m_words = nullptr;
    QPushButton* m_restore = nullptr;
    Background m_background;
};

} // namespace tickervantage
