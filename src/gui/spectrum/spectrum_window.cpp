#include "gui/spectrum/spectrum_window.h"

#include "gui/spectrum/spectrum_chart.h"
#include "gui/spectrum/spectrum_words.h"
#include "qt/local_number.h"
#include "settings/settings_catalogue.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>

#include <algorithm>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::size_t RECORDS_IN_A_SLICE = 50'000; // some milliseconds

} // namespace

struct SpectrumWindow::Answer {
    int result = -1;
    std::shared_ptr<ComputedSpectrum> spectrum = std::make_shared<ComputedSpectrum>();
    SpectrumFailure failure;
    bool has_records = false; // two at least
};

struct SpectrumWindow::Gathering {
    SpectrumInput input; // all but the records
    ReachableRecords reachable;
};

SpectrumWindow::SpectrumWindow(const SpectrumWindowParts& parts) : m_parts(parts), m_background(m_parts.main_thread) {
    setObjectName(QStringLiteral("SpectrumWindow"));
    //: spectrum window: title
    setWindowTitle(tr("Spectrum"));
    auto* central = new QWidget(this);
    m_controls = build_spectrum_controls(central);
    setCentralWidget(central);
    build_exports();
    connect_controls();
}

SpectrumWindow::~SpectrumWindow() {
    m_background.forget_newest(); // nobody waits for a transform that has not begun
}

void SpectrumWindow::build_exports() {
    m_exports = std::make_unique<PlotExport>(this, m_controls.m_spectrum, *this, m_parts.exports);
    connect(m_exports.get(), &PlotExport::said, this, &SpectrumWindow::show_status);
    m_exports->set_enabled(false);
}

void SpectrumWindow::draw_plot(Canvas& canvas, Rect bounds) const {
    m_controls.m_spectrum->view().draw(canvas, bounds);
}

PlotCaption SpectrumWindow::plot_caption() const {
    const auto& spectrum = *m_controls.m_spectrum->view().spectrum();
    return caption_of(spectrum, title_of(spectrum.series));
}

std::shared_ptr<PlotTable> SpectrumWindow::plot_table() {
    struct Table : PlotTable {
        std::shared_ptr<const ComputedSpectrum> spectrum;
        [[nodiscard]] std::string csv() const override { return csv_of(*spectrum); }
    };
    auto table = std::make_shared<Table>();
    table->spectrum = m_controls.m_spectrum->view().spectrum();
    return table;
}

void SpectrumWindow::connect_controls() {
    const auto compute = [this] {
        TrackingSelector();
    };
    connect(m_controls.m_selector, &QComboBox::activated, this, compute);
    connect(m_controls.m_sampleinterval, &QLineEdit::returnPressed, this, compute);
    connect(m_controls.m_sampleduration, &QLineEdit::returnPressed, this, compute);
    connect(m_controls.compute, &QPushButton::clicked, this, compute);
    connect(m_controls.export_button, &QPushButton::clicked, this, [this] { m_exports->ask_for_file(); });
    connect(m_controls.m_spectrum, &SpectrumChart::pointed, this, &SpectrumWindow::show_reading);
}

void SpectrumWindow::windowDidLoad() {
    m_controls.m_sampleinterval->setText(number_text(load(m_parts.settings, settings::SPECTRUM_interval)));
    m_controls.m_sampleduration->setText(number_text(load(m_parts.settings, settings::SPECTRUM_duration)));
    update_empty_text();
}

void SpectrumWindow::closeEvent(QCloseEvent* event) {
    save_settings();
    Q_EMIT windowWillClose();
    QMainWindow::closeEvent(event);
}

void SpectrumWindow::save_settings() {
    if (const auto interval = number_in(m_controls.m_sampleinterval->text()))
        save(m_parts.settings, settings::SPECTRUM_interval, *interval);
    if (const auto duration = number_in(m_controls.m_sampleduration->text()))
        save(m_parts.settings, settings::SPECTRUM_duration, *duration);
}

void SpectrumWindow::set_records(const TrackingRecords* records) {
    m_records = records;
    update_empty_text();
}

void SpectrumWindow::update_empty_text() {
    const bool has_log = m_records != nullptr;
    //: spectrum window: shown in place of the chart while no tracking window is open
    const QString open_one =
        tr("A spectrum shows what repeats in a tracking log. Open one with “Open Tracking Log…” or “Live Tracking "
           "Graph” in the menu File of the main window, then choose Compute here.");
    //: spectrum window: shown in place of the chart while a tracking window is open, before the first computation
    const QString compute = tr("Choose Compute to see the spectrum");
    m_controls.m_spectrum->set_empty_text(has_log ? compute : open_one);
    if (!m_controls.m_spectrum->view().spectrum())
        m_controls.m_spectrum->setAccessibleDescription(has_log ? compute : open_one);
}

void SpectrumWindow::TrackingSelector() {
    if (m_records)
        computeSpectrum(*m_records);
    else if (m_controls.m_spectrum->view().spectrum())
        //: spectrum window: said below the chart when it cannot be computed anew
        show_status(tr("No tracking log is open; the chart shows the last spectrum."));
}

void SpectrumWindow::computeSpectrum(const TrackingRecords& records) {
    const auto interval = number_in(m_controls.m_sampleinterval->text());
    const auto duration = number_in(m_controls.m_sampleduration->text());
    if (!interval || !duration) {
        //: spectrum window: said when a field holds no number
        show_status(
            interval ? tr("The duration is not a number.")
                     : /*: spectrum window: said when a field holds no number */ tr("The interval is not a number."));
        return;
    }
    const Series series = spectrum_series_at(m_controls.m_selector->currentIndex());
    std::size_t count = 0;
    SpectrumFailure failure;
    if (count_samples(*interval, *duration, count, failure) != 0) {
        show_status(words_of(failure, m_controls.m_selector->currentText()));
        return;
    }
    m_background.forget_newest(); // what is being computed is stale
    m_gathering = std::make_shared<Gathering>(
        Gathering{{series, *interval, count, {}}, ReachableRecords(records, series, count, *interval)});
    gather(records);
}

// A slice at a time: the records of years take longer than the interface may wait.
void SpectrumWindow::gather(const TrackingRecords& records) {
    if (m_gathering->reachable.read(records, RECORDS_IN_A_SLICE)) {
        m_gathering->input.records = m_gathering->reachable.take();
        transform(std::move(std::exchange(m_gathering, nullptr)->input));
        return;
    }
    //: spectrum window: said while a long log is being read
    show_status(tr("Computing…"));
    m_parts.main_thread.main_async(m_background.if_alive([this, begun = m_gathering] {
        if (begun == m_gathering) // else another one has been asked for meanwhile
            gather_on();
    }));
}

void SpectrumWindow::gather_on() {
    if (m_records && m_gathering->reachable.are_still_in(*m_records)) {
        gather(*m_records);
        return;
    }
    m_gathering.reset();
    //: spectrum window: said when the log was closed or read anew during a computation
    show_status(tr("The tracking log changed meanwhile; compute again."));
}

void SpectrumWindow::transform(SpectrumInput input) {
    m_background.start_newest(
        m_parts.queue,
        [input = std::move(input)] {
            Answer answer;
            answer.result = transform_spectrum(input, *answer.spectrum, answer.failure);
            answer.has_records = input.records.size() >= 2;
            return answer;
        },
        [this](const Answer& answer) { apply(answer); });
}

void SpectrumWindow::apply(const Answer& answer) {
    if (answer.result != 0) {
        show_status(words_of(answer.failure, m_controls.m_selector->currentText()));
        return;
    }
    m_controls.m_spectrum->set_spectrum(answer.spectrum);
    m_exports->set_enabled(true);
    m_controls.export_button->setEnabled(true);
    show_answer_text(answer);
}

void SpectrumWindow::show_answer_text(const Answer& answer) {
    //: spectrum window: said when the chart has no bars
    const QString too_few = tr("The tracking log has fewer than two records: there is nothing to analyse yet.");
    //: spectrum window: what the chart shows; %1 the series, %2 and %3 whole numbers
    const QString shown = tr("%1: %2 samples as %3 bars, slow changes at the left; the shaded half mirrors the other.")
                              .arg(title_of(answer.spectrum->series), QLocale().toString(answer.spectrum->count),
                                   QLocale().toString(answer.spectrum->length));
    const QString doubt = doubt_words(*answer.spectrum);
    show_status(!answer.has_records ? too_few : doubt.isEmpty() ? shown : shown + QLatin1Char(' ') + doubt);
    m_controls.m_spectrum->setAccessibleDescription(m_status);
}

QString SpectrumWindow::title_of(Series series) const {
    const auto at = std::ranges::find(spectrum_series, series) - spectrum_series.begin();
    return m_controls.m_selector->itemText(static_cast<int>(at));
}

void SpectrumWindow::show_status(const QString& text) {
    m_status = text;
    m_controls.status->setText(text);
}

void SpectrumWindow::show_reading(const std::optional<SpectrumReading>& reading) {
    if (!reading) {
        m_controls.status->setText(m_status);
        return;
    }
    m_controls.status->setText(words_of(*reading));
}

} // namespace tickervantage
