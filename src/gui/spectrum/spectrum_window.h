// The window with the spectrum of one series of the open tracking log.
//
// Computes when a control asks for it: the selector, Return in a field, the button. The records are read on the main
// thread, a slice at a time, the transform runs on the queue, and its answer is applied on the main thread unless a
// newer one was asked for meanwhile. What cannot be computed leaves the chart as it is and is said below it. Main
// thread only.
//
// The parts outlive the window, and the main thread outlives the queue: an answer may be under way when the window
// dies.
#pragma once

#include "base/background.h"
#include "gui/common/plot_export.h"
#include "gui/spectrum/spectrum_controls.h"
#include "settings/default_settings.h"
#include "studies/spectrum/spectrum.h"
#include "studies/spectrum/spectrum_view.h"
#include "studies/tracking/tracking_records.h"

#include <QMainWindow>

#include <memory>
#include <optional>

namespace tickervantage {

struct SpectrumWindowParts {
    DefaultSettings& settings;
    DispatchQueueSerial& queue;
    MainThread& main_thread;
    PlotExportParts exports;
};

class SpectrumWindow : public QMainWindow, public ExportedPlot {
    Q_OBJECT
public:
    explicit SpectrumWindow(const SpectrumWindowParts& parts);
    ~SpectrumWindow() override;
    SpectrumWindow(const SpectrumWindow&) = delete;
    SpectrumWindow& operator=(const SpectrumWindow&) = delete;

    void windowDidLoad(); // once, before the window is shown

    // The records of the open tracking window from now on; null when none is open. Nothing is computed anew.
    void set_records(const TrackingRecords* records);

    // The action of the selector: computes when a tracking window is open, and does nothing otherwise.
    void TrackingSelector();
    void computeSpectrum(const TrackingRecords& records);

    [[nodiscard]] PlotExport& exports() { return *m_exports; }

Q_SIGNALS:
    void windowWillClose(); // after the settings were saved

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    struct Answer;
    struct Gathering;

    void draw_plot(Canvas& canvas, Rect bounds) const override;
    [[nodiscard]] PlotCaption plot_caption() const override;
    [[nodiscard]] std::shared_ptr<PlotTable> plot_table() override;
    void build_exports();
    void connect_controls();
    void gather(const TrackingRecords& records);
    void gather_on();
    void transform(SpectrumInput input);
    void apply(const Answer& answer);
    void show_answer_text(const Answer& answer);
    void save_settings();
    void update_empty_text();
    [[nodiscard]] QString title_of(Series series) const; // as the selector has it
    void show_status(const QString& text);               // stays until the next; a reading stands before it for a while
    void show_reading(const std::optional<SpectrumReading>& reading);

    SpectrumWindowParts m_parts;
    const TrackingRecords* m_records = nullptr;
    SpectrumControls m_controls;
    std::unique_ptr<PlotExport> m_exports; // disabled until there is a spectrum
    QString m_status;
    std::shared_ptr<Gathering> m_gathering; // null: none under way
    Background m_background;
};

} // namespace tickervantage
