// What the pages of the laboratory share: choices above, a headline, a chart, what is pointed at, and a table of all
// values; copying and export of both. A page computes on the window's queue, and only while it is in sight; a new
// choice makes what is under way stale. Main thread only.
#pragma once

#include "base/background.h"
#include "gui/common/plot_export.h"
#include "studies/laboratory/free_running_clock.h"
#include "studies/laboratory/phase_data.h"

#include <QStringList>
#include <QWidget>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class QHBoxLayout;
class QLabel;
class QTreeWidget;

namespace tickervantage {

class ChartView;
struct LogChart;

// One log, or the readings of this program, as all pages use it.
struct LaboratoryData {
    FreeRunningClock clock;
    PhaseData phase; // of the clock
    QString name;    // the log's path, or what stands for the readings
};

struct LaboratoryPageParts {
    MainThread& main_thread;
    DispatchQueueSerial& queue; // of the window
    PlotExportParts exports;
    std::function<std::int64_t()> now; // s since 1970
};

class LaboratoryPage : public QWidget, public ExportedPlot {
    Q_OBJECT
public:
    // `name`: of the page's widgets, "stability" makes "stability_chart"; `title`: of its pictures.
    LaboratoryPage(QWidget* parent, const char* name, QString title, LaboratoryPageParts parts);

    // Null: there are none, for that reason.
    void set_data(std::shared_ptr<const LaboratoryData> data, const QString& reason);
    // The same log, which has grown: what is in sight stays there.
    void follow(std::shared_ptr<const LaboratoryData> data);

    [[nodiscard]] PlotExport& exports() { return *m_exports; }
    [[nodiscard]] ChartView& chart() const { return *m_chart; }

Q_SIGNALS:
    void said(const QString& sentence); // for the status line

protected:
    [[nodiscard]] virtual QStringList headings() const = 0;
    virtual void compute() = 0; // there are data
    [[nodiscard]] virtual QString words_at_pointer() const = 0;
    [[nodiscard]] virtual std::string csv() const = 0;

    void choices_changed(); // to be computed anew
    // On the queue, from the data; `then` here, unless something newer was asked for. Values in, values out.
    template <typename Make, typename Then>
    void start(Make make, Then then);

    void show_result(LogChart chart, const std::vector<QStringList>& rows);
    void show_headline(const QString& headline, const QString& remark = {}); // the remark below it, in plain letters
    void show_refusal(const QString& reason);

    [[nodiscard]] const LaboratoryData& data() const { return *m_data; }
    [[nodiscard]] std::int64_t now() const { return m_parts.now(); }
    [[nodiscard]] QHBoxLayout& choices() const { return *m_choices; }
    [[nodiscard]] QHBoxLayout& more_choices() const { return *m_more_choices; } // below those

    void showEvent(QShowEvent* event) override;

private:
    void draw_plot(Canvas& canvas, Rect bounds) const override;
    [[nodiscard]] PlotCaption plot_caption() const override;
    [[nodiscard]] std::shared_ptr<PlotTable> plot_table() override;

    void build(const char* name);
    void add_copying();
    void show_pointed();
    void compute_if_needed();

    LaboratoryPageParts m_parts;
    QString m_title;
    std::shared_ptr<const LaboratoryData> m_data;
    bool m_is_stale = false;
    QHBoxLayout* m_choices = nullptr;
    QHBoxLayout* m_more_choices = nullptr;
    QLabel* m_headline = nullptr;
    QLabel* m_remark = nullptr;
    ChartView* m_chart = nullptr;
    QLabel* m_pointed = nullptr;
    QTreeWidget* m_table = nullptr;
    std::unique_ptr<PlotExport> m_exports;
    Background m_background;
};

template <typename Make, typename Then>
void LaboratoryPage::start(Make make, Then then) {
    m_background.start_newest(
        m_parts.queue, [data = m_data, make = std::move(make)] { return make(*data); }, std::move(then));
}

} // namespace tickervantage
