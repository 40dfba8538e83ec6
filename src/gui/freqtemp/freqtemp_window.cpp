#include "gui/freqtemp/freqtemp_window.h"

#include "base/broadcast.h"
#include "gui/freqtemp/freqtemp_plot.h"
#include "gui/freqtemp/freqtemp_words.h"
#include "studies/freqtemp/scatter_csv.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>

#include <utility>

namespace tickervantage {

FreqTempWindow::FreqTempWindow(FreqTempWindowParts parts)
    : m_parts(std::move(parts)), m_background(m_parts.session.main_thread) {
    setObjectName(QStringLiteral("FreqTempWindow"));
    //: frequency and temperature window: title
    setWindowTitle(tr("Frequency and Temperature"));
    auto* central = new QWidget(this);
    m_controls = build_freqtemp_controls(central);
    setCentralWidget(central);
    build_exports();
    connect_controls();
}

FreqTempWindow::~FreqTempWindow() {
    if (m_session)
        end_session();
}

void FreqTempWindow::build_exports() {
    m_exports = std::make_unique<PlotExport>(this, m_controls.m_scatterplot, *this, m_parts.exports);
    connect(m_exports.get(), &PlotExport::said, this, &FreqTempWindow::say);
}

void FreqTempWindow::draw_plot(Canvas& canvas, Rect bounds) const {
    m_controls.m_scatterplot->view().draw(canvas, bounds);
}

void FreqTempWindow::connect_controls() {
    connect(m_controls.m_order, &QComboBox::activated, this, [this] { selectOrder(); });
    for (auto* box : {m_controls.m_show_scatter_points, m_controls.m_show_mean_frequency, m_controls.m_show_freq_bounds,
                      m_controls.m_show_last_record})
        connect(box, &QCheckBox::clicked, this, [this] { showDisplayOptions(); });
    connect(m_controls.m_maxsamples, &QSpinBox::valueChanged, this, [this] { numberStepperValueChanged(); });
    connect(m_controls.clear, &QPushButton::clicked, this, [this] { clear(); });
    connect(m_controls.compensate, &QPushButton::clicked, this, &FreqTempWindow::compensation_requested);
    connect(m_controls.export_button, &QPushButton::clicked, this, [this] { m_exports->ask_for_file(); });
    connect(m_controls.m_scatterplot, &FreqTempPlot::pointed, this, &FreqTempWindow::show_reading);
}

void FreqTempWindow::windowDidLoad() {
    if (m_session)
        return;
    const FreqTempSettings settings = FreqTempSettings::load(m_parts.settings);
    m_session = std::make_unique<FreqTempSession>(m_parts.session, settings, *this);
    show_settings(settings);
    fill_menu();
    session_changed();
    m_session->start();
}

void FreqTempWindow::show_settings(const FreqTempSettings& settings) {
    m_controls.m_show_scatter_points->setChecked(settings.show_scatter_points);
    m_controls.m_show_mean_frequency->setChecked(settings.show_mean_frequency);
    m_controls.m_show_freq_bounds->setChecked(settings.show_freq_bounds);
    m_controls.m_show_last_record->setChecked(settings.show_last_record);
    const QSignalBlocker quiet(m_controls.m_maxsamples);
    m_controls.m_maxsamples->setValue(static_cast<int>(settings.max_samples));
    m_controls.m_order->setCurrentIndex(static_cast<int>(settings.regression_order));
}

void FreqTempWindow::session_ready() {
    fill_menu();
}

// The menu's items have the numbers that the session gives them; the title and the line have no action.
void FreqTempWindow::fill_menu() {
    if (!m_session)
        return;
    QMenu* menu = m_controls.m_select_sensor->menu();
    menu->clear();
    //: frequency and temperature window: title of the menu of sensors
    menu->addSection(tr("Sensors"));
    //: frequency and temperature window: menu item, hides the points of all sensors
    menu->addAction(tr("No Sensor"));
    menu->addSeparator();
    for (const auto& sensor : m_session->menu().sensors())
        menu->addAction(QString::fromStdString(sensor.description).replace(QLatin1Char('&'), QStringLiteral("&&")));
    const auto items = menu->actions();
    for (qsizetype item = 0; item < items.size(); ++item) {
        items[item]->setCheckable(!items[item]->isSeparator());
        connect(items[item], &QAction::triggered, this, [this, item] { selectSensor(static_cast<std::size_t>(item)); });
    }
    m_controls.m_select_sensor->setEnabled(!m_session->menu().sensors().empty());
    show_marks();
}

void FreqTempWindow::show_marks() {
    const auto items = m_controls.m_select_sensor->menu()->actions();
    for (qsizetype item = 0; item < items.size(); ++item)
        items[item]->setChecked(m_session->menu().is_checked(static_cast<std::size_t>(item)));
}

void FreqTempWindow::session_changed() {
    if (!m_session)
        return; // a closed session's last fit
    const auto& settings = m_session->settings();
    m_controls.m_scatterplot->change([&](FreqTempView& view) {
        view.m_show_scatter_points = settings.show_scatter_points;
        view.m_show_mean_frequency = settings.show_mean_frequency;
        view.m_show_freq_bounds = settings.show_freq_bounds;
        view.m_show_last_record = settings.show_last_record;
        view.set_scatter(m_session->scatter());
    });
    m_controls.m_scatterplot->set_empty_text(
        empty_words(m_session->is_ready(), m_session->menu().sensors(), m_session->scatter(), m_parts.session.map));
    m_controls.m_samples->setText(QLocale().toString(static_cast<qulonglong>(m_session->samples())));
    m_controls.clear->setEnabled(m_session->samples() > 0);
    m_controls.compensate->setEnabled(m_session->samples() > 0);
    m_controls.export_button->setEnabled(!m_controls.m_scatterplot->view().is_empty());
    m_exports->set_enabled(!m_controls.m_scatterplot->view().is_empty());
    show_legend();
}

void FreqTempWindow::show_legend() {
    const QString legend = legend_of(m_session->scatter(), SensorNames(m_session->menu().sensors()),
                                     CanvasColors::from_palette(palette()));
    if (m_controls.legend->text() != legend) // seldom: a new text lays the window out anew
        m_controls.legend->setText(legend);
    m_controls.legend->setVisible(!legend.isEmpty());
    const auto& plot = *m_controls.m_scatterplot;
    m_controls.m_scatterplot->setAccessibleDescription(
        plot.view().is_empty() ? plot.empty_text()
                               : description_of(m_session->scatter(), SensorNames(m_session->menu().sensors())));
}

void FreqTempWindow::selectSensor(std::size_t item) {
    m_session->selectSensor(item);
    show_marks();
}

void FreqTempWindow::selectOrder() {
    m_session->selectOrder(m_controls.m_order->currentIndex());
}

void FreqTempWindow::showDisplayOptions() {
    m_session->showDisplayOptions(
        m_controls.m_show_scatter_points->isChecked(), m_controls.m_show_mean_frequency->isChecked(),
        m_controls.m_show_freq_bounds->isChecked(), m_controls.m_show_last_record->isChecked());
}

void FreqTempWindow::numberStepperValueChanged() {
    m_session->set_max_samples(m_controls.m_maxsamples->value());
    m_session->settings().save(m_parts.settings);
}

void FreqTempWindow::keep_points(std::int64_t count) {
    m_controls.m_maxsamples->setValue(static_cast<int>(count)); // which says so
}

void FreqTempWindow::clear() {
    //: frequency and temperature window: asked before the points are deleted
    auto* box = new QMessageBox(QMessageBox::Question, windowTitle(), tr("Delete all points of all sensors?"),
                                QMessageBox::NoButton, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    //: frequency and temperature window: second sentence of that question
    box->setInformativeText(tr("They are deleted from the saved map too. Export them first if you may need them."));
    //: frequency and temperature window: button that deletes the points
    const auto* yes = box->addButton(tr("Delete Points"), QMessageBox::DestructiveRole);
    box->addButton(QMessageBox::Cancel);
    box->setDefaultButton(QMessageBox::Cancel);
    connect(yes, &QPushButton::clicked, this, [this] {
        if (m_session) // the window may have been closed meanwhile
            m_session->clear();
    });
    box->open();
}

PlotCaption FreqTempWindow::plot_caption() const {
    if (!m_session)
        return {};
    return caption_of(m_controls.m_scatterplot->view(), SensorNames(m_session->menu().sensors()),
                      m_controls.m_order->currentText());
}

// A copy of a map shares its points with the map.
std::shared_ptr<PlotTable> FreqTempWindow::plot_table() {
    struct Table : PlotTable {
        ScatterMap shown;
        [[nodiscard]] std::string csv() const override {
            std::string text;
            const auto append = [&text](std::string_view piece) {
                text += piece;
                return 0;
            };
            (void)write_scatter_csv(shown, append); // appending never says no
            return text;
        }
    };
    auto table = std::make_shared<Table>();
    table->shown = plotted();
    return table;
}

ScatterMap FreqTempWindow::plotted() const {
    ScatterMap selected;
    if (m_session)
        for (const auto& [name, entry] : m_session->scatter())
            if (entry.selected)
                selected[name].points = entry.points;
    return selected;
}

void FreqTempWindow::tell_inspector() {
    if (m_session)
        m_parts.session.broadcast.post(sensor_inspector_key, m_session->inspector_sensors(), Delivery::later);
}

void FreqTempWindow::say(const QString& sentence) {
    m_said = sentence;
    m_controls.reading->setText(sentence);
}

void FreqTempWindow::show_reading(const std::optional<FreqTempReading>& reading) {
    m_controls.reading->setText(reading && m_session ? words_of(*reading, SensorNames(m_session->menu().sensors()))
                                                     : m_said);
}

void FreqTempWindow::closeEvent(QCloseEvent* event) {
    if (m_session)
        end_session();
    QMainWindow::closeEvent(event);
}

// A session waits at its end for its map to be written. The file's queue says when that is done.
void FreqTempWindow::end_session() {
    m_session->settings().save(m_parts.settings);
    m_session->close();
    const FreqTempSession* ended = m_ended.emplace_back(std::move(m_session)).get();
    m_background.start(
        m_parts.session.file_queue, [] {},
        [this, ended] { m_ended.remove_if([ended](const auto& one) { return one.get() == ended; }); });
}

void FreqTempWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LocaleChange && m_session)
        session_changed();
}

} // namespace tickervantage
