#include "gui/spectrum/spectrum_window.h"

#include "gui/spectrum/spectrum_chart.h"
#include "gui/spectrum/spectrum_words.h"
#include "qt/written_numbers.h"
#include "settings/settings_catalogue.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>

#include <algorithm>
#include <atomic>
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
    std::uint64_t number;
    SpectrumInput input; // all but the records
    ReachableRecords reachable;
};

// What an answer comes home to; it may outlive the window.
struct SpectrumWindow::Shared {
    std::atomic<std::uint64_t> latest{0}; // number of the newest request; the queue looks whether it still matters
    SpectrumWindow* window = nullptr;     // main thread only
};

SpectrumWindow::SpectrumWindow(SpectrumWindowParts parts)
    : m_parts(std::move(parts)), m_shared(std::make_shared<Shared>()) {
    m_shared->window = this;
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
    m_shared->window = nullptr;
    ++m_shared->latest;
}

void SpectrumWindow::build_exports() {
    const auto table = [this] {
        return PlotTable{[] { return Taking::all; },
                         [spectrum = m_controls.m_spectrum->view().spectrum()] {
                             return csv_of(*spectrum);
                         }};
    };
    m_exports = std::make_unique<PlotExport>(
        this, m_parts.exports,
        ExportedPlot{
            .widget = m_controls.m_spectrum,
            .draw = [this](Canvas& canvas, Rect bounds) { m_controls.m_spectrum->view().draw(canvas, bounds); },
            .caption =
                [this] {
                    const auto& spectrum = *m_controls.m_spectrum->view().spectrum();
                    return caption_of(spectrum, title_of(spectrum.series));
                },
            .table = table,
            .tell =
                [this](const QString& sentence) {
                    show_status(sentence);
                }});
    m_exports->set_enabled(false);
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

void SpectrumWindow::set_source(TrackingSource source) {
    m_source = std::move(source);
    update_empty_text();
}

void SpectrumWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange) // a tracking window may have come or gone
        update_empty_text();
}

void SpectrumWindow::update_empty_text() {
    const bool has_log = m_source && m_source() != nullptr;
    //: spectrum window: shown in place of the chart while no tracking window is open
    const QString open_one = tr("Open a tracking log to see its spectrum");
    //: spectrum window: shown in place of the chart while a tracking window is open, before the first computation
    const QString compute = tr("Choose Compute to see the spectrum");
    m_controls.m_spectrum->set_empty_text(has_log ? compute : open_one);
    if (!m_controls.m_spectrum->view().spectrum())
        m_controls.m_spectrum->setAccessibleDescription(has_log ? compute : open_one);
}

void SpectrumWindow::TrackingSelector() {
    const TrackingRecords* records = m_source ? m_source() : nullptr;
    update_empty_text();
    if (records)
        computeSpectrum(*records);
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
    const std::uint64_t number = ++m_shared->latest;
    m_gathering = std::make_unique<Gathering>(
        Gathering{number, {series, *interval, count, {}}, ReachableRecords(records, series, count, *interval)});
    gather(records);
}

// A slice at a time: the records of years take longer than the interface may wait.
void SpectrumWindow::gather(const TrackingRecords& records) {
    if (m_gathering->reachable.read(records, RECORDS_IN_A_SLICE)) {
        m_gathering->input.records = m_gathering->reachable.take();
        const auto gathered = std::exchange(m_gathering, nullptr);
        transform(gathered->number, std::make_shared<SpectrumInput>(std::move(gathered->input)));
        return;
    }
    //: spectrum window: said while a long log is being read
    show_status(tr("Computing…"));
    m_parts.main_thread.main_async([shared = m_shared, number = m_gathering->number] {
        if (shared->latest == number && shared->window)
            shared->window->gather_on();
    });
}

void SpectrumWindow::gather_on() {
    const TrackingRecords* records = m_source ? m_source() : nullptr;
    if (records && m_gathering->reachable.are_still_in(*records)) {
        gather(*records);
        return;
    }
    m_gathering.reset();
    //: spectrum window: said when the log was closed or read anew during a computation
    show_status(tr("The tracking log changed meanwhile; compute again."));
}

void SpectrumWindow::transform(std::uint64_t number, std::shared_ptr<const SpectrumInput> input) {
    m_parts.queue.async([shared = m_shared, &main_thread = m_parts.main_thread, number, input = std::move(input)] {
        if (shared->latest != number)
            return;
        auto answer = std::make_shared<Answer>();
        answer->result = transform_spectrum(*input, *answer->spectrum, answer->failure);
        answer->has_records = input->records.size() >= 2;
        main_thread.main_async([shared, number, answer] {
            if (shared->latest == number && shared->window)
                shared->window->apply(*answer);
        });
    });
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
    const QString shown = tr("%1: %2 samples, %3 bins; the shaded half is a mirror image.")
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
