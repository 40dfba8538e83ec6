// The configurations that were installed last: a list, what bringing one back would change, and a button that does.
//
// Main thread only. The files are read on a queue; the window may go meanwhile.
#pragma once

#include "base/dispatch.h"
#include "roothelper/jobs/kept_configurations.h"

#include <QDialog>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTreeWidget;

namespace tickervantage {

struct KeptConfigurationsParts {
    DispatchQueueSerial& queue; // these two outlive the window
    MainThread& main_thread;
    HistoryProbes probes;                                     // used on the queue
    std::function<std::string(std::uint32_t user)> user_name; // likewise
    std::function<std::string()> configuration;               // its path
    // Asks whether it is meant, and brings the text back. `done` hears one sentence, empty when all went well; it is
    // not called when nothing was done.
    std::function<void(QWidget* window, const std::string& text, std::function<void(std::string sentence)> done)>
        restore;
};

class KeptConfigurationsWindow : public QDialog {
    Q_OBJECT

public:
    KeptConfigurationsWindow(KeptConfigurationsParts parts, QWidget* parent);
    ~KeptConfigurationsWindow() override;

    // Reads what was kept and shows it.
    void load();

private:
    struct Content {
        std::vector<KeptConfiguration> kept;
        std::vector<std::string> users; // of each
        std::string installed;
    };
    struct Shared;

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
    std::shared_ptr<Shared> m_shared; // work on its way back finds out through it that the window has gone
};

} // namespace tickervantage
