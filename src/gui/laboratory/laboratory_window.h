// The clock laboratory: how steady the clock is, how far off it would be without its sources, what temperature
// compensation would do, and which rhythms it has. All pages look at one log, or at the readings of this program.
//
// Reading and computing are done on a queue of the window's own; the main thread takes over what is done. While the
// window is open, what is chosen is read again when it should have grown by a hundredth, and once in a quarter of an
// hour. Main thread only; the parts outlive the window, and the main thread outlives the queue.
#pragma once

#include "base/background.h"
#include "base/followed_file.h"
#include "base/repeater.h"
#include "gui/common/path_buttons.h"
#include "gui/laboratory/compensation_page.h"
#include "gui/laboratory/laboratory_page.h"

#include <QMainWindow>

#include <functional>
#include <memory>
#include <string>
#include <vector>

class QAction;
class QComboBox;
class QLabel;
class QTabWidget;
class QToolButton;

namespace tickervantage {

class ChartView;
class StabilityPage;

struct LaboratoryWindowParts {
    MainThread& main_thread;
    MasterTimer& timer;
    FollowedFiles& files;
    std::shared_ptr<DispatchQueueSerial> queue;
    PlotExportParts exports;
    std::function<std::int64_t()> now; // s since 1970
    CompensationPageParts compensation;
    bool can_turn_on_logs = false;
};

struct LaboratoryPlaces {
    std::string log = {};           // a tracking log or a folder of logs; empty: none
    std::string store = {};         // the history store; empty: none
    std::string configuration = {}; // chrony.conf, which has the poll intervals; empty: not known
    bool is_demonstration = false;  // the log is that of the demonstration
};

class LaboratoryWindow : public QMainWindow {
    Q_OBJECT
public:
    explicit LaboratoryWindow(LaboratoryWindowParts parts);
    ~LaboratoryWindow() override;
    LaboratoryWindow(const LaboratoryWindow&) = delete;
    LaboratoryWindow& operator=(const LaboratoryWindow&) = delete;

    // Reads chrony's log, or the store where there is no log to be read.
    void show_laboratory(const LaboratoryPlaces& places);
    // A log, or a folder of logs, of this machine or another.
    void open_log(const QString& path);

    [[nodiscard]] LaboratoryPage& page(int index) const { return *m_pages.at(static_cast<std::size_t>(index)); }
    [[nodiscard]] CompensationPage& compensation() const { return *m_compensation; }

Q_SIGNALS:
    void logs_requested(); // chrony is to write what this window needs

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override; // what is dropped

private:
    struct Place {
        std::string path;
        bool is_store = false;
        QString name;
    };
    struct Loaded;

    void build();
    [[nodiscard]] QWidget* build_choices(QWidget* parent);
    void build_menu();
    void build_export();
    void connect_charts();
    [[nodiscard]] ChartView* chart_in_sight() const; // null: none that one moves in
    void offer_export();
    void offer_movement();
    void ask_for_log(bool for_folder);
    void add_place(const Place& place);
    void choose(std::size_t place, bool or_store);
    template <typename Then>
    void read(std::size_t place, Then then);
    void take(const Loaded& loaded, std::size_t place, bool or_store);
    void follow();
    void take_more(const Loaded& loaded);
    void show_origins(); // of the data
    [[nodiscard]] QString refusal_of(const Failure& failure, const Place& place) const;
    void say(const QString& sentence);

    LaboratoryWindowParts m_parts;
    std::vector<Place> m_places;
    std::unique_ptr<Repeater> m_minutes;
    int m_minutes_to_rest = 0; // until what is chosen is read again
    std::shared_ptr<const LaboratoryData> m_data;
    QComboBox* m_source = nullptr; // as m_places
    PathButtons m_path;
    QToolButton* m_all = nullptr;
    QToolButton* m_files = nullptr;
    QToolButton* m_export = nullptr; // of the page in sight
    QTabWidget* m_tabs = nullptr;
    QLabel* m_origins = nullptr;
    std::vector<LaboratoryPage*> m_pages; // those that look at the log
    StabilityPage* m_stability = nullptr;
    CompensationPage* m_compensation = nullptr;
    Background m_background;
};

} // namespace tickervantage
