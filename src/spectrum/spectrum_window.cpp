#include "spectrum/spectrum_window.h"

#include "config/settings_catalogue.h"
#include "spectrum/spectrum_chart_window.h"
#include "spectrum/spectrum_words_window.h"

#include <QAction>
#include <QClipboard>
#include <QCloseEvent>
#include <QComboBox>
#include <QEvent>
#include <QFileDialog>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>

#include <atomic>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::size_t RECORDS_IN_A_SLICE = 50'000; // some milliseconds

QString from_std(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

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
    build_actions();
    connect_controls();
}

SpectrumWindow::~SpectrumWindow() {
    m_shared->window = nullptr;
    ++m_shared->latest;
}

void SpectrumWindow::build_actions() {
    //: spectrum window: menu item, the chart goes to the clipboard
    m_copy = new QAction(tr("&Copy Picture"), this);
    m_copy->setObjectName(QStringLiteral("copy_picture"));
    m_copy->setShortcut(QKeySequence::Copy);
    //: spectrum window: menu item, the chart or its numbers go to a file
    m_export = new QAction(tr("E&xport…"), this);
    m_export->setObjectName(QStringLiteral("export_action"));
    m_export->setShortcut(QKeySequence::Save);
    for (auto* action : {m_copy, m_export}) {
        action->setEnabled(false);
        action->setShortcutVisibleInContextMenu(true);
        addAction(action);
        m_controls.m_spectrum->addAction(action);
    }
    m_controls.m_spectrum->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void SpectrumWindow::connect_controls() {
    const auto compute = [this] {
        TrackingSelector();
    };
    connect(m_controls.m_selector, &QComboBox::activated, this, compute);
    connect(m_controls.m_sampleinterval, &QLineEdit::returnPressed, this, compute);
    connect(m_controls.m_sampleduration, &QLineEdit::returnPressed, this, compute);
    connect(m_controls.compute, &QPushButton::clicked, this, compute);
    connect(m_controls.export_button, &QPushButton::clicked, this, [this] { ask_for_file(); });
    connect(m_export, &QAction::triggered, this, [this] { ask_for_file(); });
    connect(m_copy, &QAction::triggered, this, [this] { copy_picture(); });
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
        show_status(interval ? tr("The duration is not a number.") : tr("The interval is not a number."));
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
    for (auto* action : {m_copy, m_export})
        action->setEnabled(true);
    m_controls.export_button->setEnabled(true);
    show_answer_text(answer);
}

void SpectrumWindow::show_answer_text(const Answer& answer) {
    //: spectrum window: said when the chart has no bars
    const QString too_few = tr("The tracking log has fewer than two records: there is nothing to analyse yet.");
    //: spectrum window: what the chart shows; %1 the series, %2 and %3 whole numbers
    const QString shown = tr("%1: %2 samples, %3 bins")
                              .arg(m_controls.m_selector->currentText(), QLocale().toString(answer.spectrum->count),
                                   QLocale().toString(answer.spectrum->length));
    show_status(answer.has_records ? shown : too_few);
    m_controls.m_spectrum->setAccessibleDescription(m_status);
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

void SpectrumWindow::ask_for_file() {
    //: spectrum window: title of the dialog that asks for a file
    auto* dialog = new QFileDialog(this, tr("Export Spectrum"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    //: spectrum window: kinds of file
    dialog->setNameFilters({tr("Picture (*.png)"), tr("Vector picture (*.svg)"), tr("Table (*.csv)")});
    dialog->setDefaultSuffix(QStringLiteral("png"));
    connect(dialog, &QFileDialog::filterSelected, dialog, [dialog](const QString& filter) {
        for (const char* suffix : {"png", "svg", "csv"})
            if (filter.contains(QLatin1String(suffix)))
                dialog->setDefaultSuffix(QLatin1String(suffix));
    });
    connect(dialog, &QFileDialog::fileSelected, this, &SpectrumWindow::export_to);
    dialog->open();
}

void SpectrumWindow::export_to(const QString& path) {
    if (!m_controls.m_spectrum->view().spectrum())
        return;
    if (path.endsWith(QLatin1String(".csv"), Qt::CaseInsensitive))
        export_csv(path.toStdString());
    else
        export_picture(path.toStdString());
}

void SpectrumWindow::export_picture(const std::string& path) {
    PictureFormat format;
    format.width = m_controls.m_spectrum->width();
    format.height = m_controls.m_spectrum->height();
    std::string sentence;
    const auto draw = [this](Canvas& canvas, Rect bounds) {
        m_controls.m_spectrum->view().draw(canvas, bounds);
    };
    const int result = m_parts.write_picture(path, format, draw, sentence);
    //: spectrum window: said after an export; %1 the file
    show_status(result == 0 ? tr("Saved %1.").arg(from_std(path)) : from_std(sentence));
}

void SpectrumWindow::export_csv(const std::string& path) {
    m_parts.queue.async([shared = m_shared, &main_thread = m_parts.main_thread, write = m_parts.write_text, path,
                         spectrum = m_controls.m_spectrum->view().spectrum()] {
        std::string sentence;
        const int result = write(path, csv_of(*spectrum), sentence);
        main_thread.main_async([shared, path, sentence, result] {
            if (shared->window)
                shared->window->show_status(result == 0 ? tr("Saved %1.").arg(from_std(path)) : from_std(sentence));
        });
    });
}

void SpectrumWindow::copy_picture() const {
    QGuiApplication::clipboard()->setPixmap(m_controls.m_spectrum->picture());
}

} // namespace tickervantage
