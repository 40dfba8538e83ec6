// The window that pairs the clock's frequency with the machine's temperatures, and shows what it has collected.
//
// Each time it is shown after having been closed it begins anew: it loads the settings, the sensors and the stored map,
// and samples until it is closed; then it saves both. The work of a session that has ended goes on after the window is
// closed. Main thread only.
#pragma once

#include "base/background.h"
#include "gui/common/plot_export.h"
#include "gui/freqtemp/freqtemp_controls.h"
#include "settings/default_settings.h"
#include "studies/freqtemp/freqtemp_session.h"
#include "studies/freqtemp/freqtemp_view.h"

#include <QMainWindow>

#include <list>
#include <memory>
#include <optional>

namespace tickervantage {

// All of it outlives the window.
struct FreqTempWindowParts {
    FreqTempParts session;
    DefaultSettings& settings;
    PlotExportParts exports;
};

class FreqTempWindow : public QMainWindow, public FreqTempListener, public ExportedPlot {
    Q_OBJECT

public:
    explicit FreqTempWindow(FreqTempWindowParts parts);
    ~FreqTempWindow() override;

    void windowDidLoad(); // before the window is shown, also after it was closed; otherwise nothing happens

    // Tells the inspector what is known now: for one that opens between two frequencies.
    void tell_inspector();

    [[nodiscard]] PlotExport& exports() { return *m_exports; }
    [[nodiscard]] const FreqTempSession* session() const { return m_session.get(); } // null: closed

    // The selected sensors' entries, which share their points with the window's; empty where it is closed.
    [[nodiscard]] ScatterMap plotted() const;

    // The actions.
    void selectSensor(std::size_t item);
    void selectOrder();
    void showDisplayOptions();
    void numberStepperValueChanged();
    void clear();                         // asks first
    void keep_points(std::int64_t count); // of each sensor at most; the window is open

Q_SIGNALS:
    void compensation_requested(); // for the points of the selected sensors, see plotted()

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void session_ready() override;
    void session_changed() override;
    void draw_plot(Canvas& canvas, Rect bounds) const override;
    [[nodiscard]] PlotCaption plot_caption() const override;
    [[nodiscard]] std::shared_ptr<PlotTable> plot_table() override; // of the selected sensors
    void build_exports();
    void connect_controls();
    void show_settings(const FreqTempSettings& settings);
    void fill_menu();
    void show_marks();
    void show_legend();
    void say(const QString& sentence); // stays until the next; a reading stands before it for a while
    void show_reading(const std::optional<FreqTempReading>& reading);
    void end_session();

    FreqTempWindowParts m_parts;
    FreqTempControls m_controls;
    std::unique_ptr<PlotExport> m_exports;
    QString m_said;
    std::unique_ptr<FreqTempSession> m_session;          // null: closed
    std::list<std::unique_ptr<FreqTempSession>> m_ended; // closed, but their map may still be on its way to the disk
    Background m_background;
};

} // namespace tickervantage
