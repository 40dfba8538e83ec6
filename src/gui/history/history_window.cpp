#include "gui/history/history_window.h"

#include "gui/history/evidence_dialog.h"
#include "gui/history/history_plot.h"
#include "gui/history/history_words.h"
#include "gui/history/range_menu.h"
#include "qt/file_digest.h"
#include "qt/in_words.h"
#include "qt/pdf_document.h"
#include "qt/text_scale.h"
#include "studies/history/history_table.h"

#include <QAction>
#include <QActionGroup>
#include <QCloseEvent>
#include <QComboBox>
#include <QCoreApplication>
#include <QDropEvent>
#include <QFileDialog>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolButton>
#include <QTreeWidget>
#include <QUrl>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tickervantage {

/* TRANSLATOR tickervantage::HistoryWindow
   The window that shows what happened to the clock: its buttons, and the titles of its dialogs. */
namespace {

constexpr double seconds_between_looks = 3;
constexpr int first_range_entry = 3; // a day

} // namespace

HistoryWindow::HistoryWindow(HistoryWindowParts parts)
    : m_parts(std::move(parts)), m_reader(m_parts.timer.make_repeater("history", Pace::free)), m_statistics_timer(this),
      m_gather_timer(this), m_background(m_parts.main_thread), m_statistics(m_parts.main_thread) {
    setObjectName(QStringLiteral("HistoryWindow"));
    //: history window: title
    setWindowTitle(tr("History of the Clock"));
    auto* central = new QWidget(this);
    m_controls = build_history_controls(central);
    setCentralWidget(central);
    setAcceptDrops(true);
    setProperty("takes_files", true);
    m_controls.plot->change([](HistoryView& view) { view.words = panel_words(); });
    m_exports = std::make_unique<PlotExport>(this, m_controls.plot, *this, m_parts.exports);
    m_exports->set_enabled(false);
    m_controls.evidence->setEnabled(false);
    m_controls.files->menu()->addActions(m_controls.plot->actions());
    m_controls.turn_on->setVisible(m_parts.can_turn_on_logs);
    connect(m_exports.get(), &PlotExport::said, this, &HistoryWindow::say);
    connect_movement();
    connect_choices();
    connect_tables();
    connect_files();
    m_controls.plot->setFocus();
    resize(scaled(QSize(1100, 760), *this));
}

HistoryWindow::~HistoryWindow() = default;

void HistoryWindow::say(const QString& sentence) {
    statusBar()->showMessage(sentence);
}

void HistoryWindow::connect_movement() {
    auto* plot = m_controls.plot;
    connect(m_controls.path.back, &QToolButton::clicked, plot, &HistoryPlot::back);
    connect(m_controls.path.forward, &QToolButton::clicked, plot, &HistoryPlot::forward);
    connect(m_controls.fit, &QAction::triggered, this, [this] { choose_range(0); });
    connect(plot, &HistoryPlot::fit_requested, this, [this] { choose_range(0); });
    connect(m_controls.range, &QComboBox::activated, this, &HistoryWindow::choose_range);
    connect(m_controls.when->menu(), &QMenu::aboutToShow, this, &HistoryWindow::offer_ranges);
    connect(m_controls.from_to, &QAction::triggered, this, [this] {
        ask_for_range(this, m_controls.plot->path().now(), [this](const TimeRange& range) { show_period(range); });
    });
    connect(m_controls.follow, &QToolButton::toggled, this, [this](bool follows) {
        if (follows)
            keep_newest_in_sight();
    });
    connect(m_controls.zoom_by_drag, &QToolButton::toggled, plot, &HistoryPlot::set_zooms_by_drag);
    connect(plot, &HistoryPlot::moved, this, &HistoryWindow::range_moved);
    m_statistics_timer.setObjectName(QStringLiteral("movement_ended"));
    m_statistics_timer.setSingleShot(true);
    m_statistics_timer.setInterval(150);
    connect(&m_statistics_timer, &QTimer::timeout, this, &HistoryWindow::count_statistics);
    m_gather_timer.setSingleShot(true);
    connect(&m_gather_timer, &QTimer::timeout, this, &HistoryWindow::gather);
}

void HistoryWindow::connect_choices() {
    connect(m_controls.scale, &QComboBox::activated, this, [this](int entry) {
        m_controls.plot->change([entry](HistoryView& view) { view.options.scale = static_cast<ScaleChoice>(entry); });
    });
    connect(m_controls.sources_form, &QComboBox::activated, this, [this](int entry) {
        m_controls.plot->change([entry](HistoryView& view) { view.options.lanes = entry == 0; });
        data_changed();
    });
    for (std::size_t kind = 0; kind < mark_kinds; ++kind)
        connect(m_controls.kinds[kind], &QAction::toggled, this, [this, kind](bool shown) {
            m_controls.plot->change([=](HistoryView& view) { view.options.marks[kind] = shown; });
            fill_events();
        });
}

void HistoryWindow::connect_tables() {
    auto* plot = m_controls.plot;
    connect(m_controls.legend, &QTreeWidget::itemChanged, this, &HistoryWindow::legend_changed);
    connect(m_controls.legend, &QTreeWidget::itemActivated, this, &HistoryWindow::isolate);
    connect(m_controls.legend, &QTreeWidget::currentItemChanged, this, &HistoryWindow::show_histogram);
    connect(m_controls.events, &QTreeWidget::itemActivated, this, &HistoryWindow::show_event);
    connect(m_controls.events, &QTreeWidget::currentItemChanged, this, &HistoryWindow::mark_event);
    connect(plot, &HistoryPlot::pointers_changed, this, [this] {
        show_values();
        show_cursors();
        split_at_cursor();
    });
    connect(plot, &HistoryPlot::lane_chosen, this, &HistoryWindow::show_lane);
    connect(plot, &HistoryPlot::marks_pointed_at, this, &HistoryWindow::show_marks);
}

void HistoryWindow::connect_files() {
    connect(m_controls.open_log, &QAction::triggered, this, [this] { ask_for_log(false, Asked::file); });
    connect(m_controls.open_folder, &QAction::triggered, this, [this] { ask_for_log(false, Asked::folder); });
    connect(m_controls.compare, &QAction::triggered, this, [this] { ask_for_log(true, Asked::file); });
    connect(m_controls.compare_folder, &QAction::triggered, this, [this] { ask_for_log(true, Asked::folder); });
    connect(m_controls.end_comparison, &QAction::triggered, this, &HistoryWindow::end_comparison);
    connect(m_controls.log_graph, &QAction::triggered, this, &HistoryWindow::log_graph_requested);
    connect(m_controls.turn_on, &QAction::triggered, this, &HistoryWindow::logs_requested);
    connect(m_controls.evidence, &QAction::triggered, this, &HistoryWindow::ask_for_question);
    connect(m_controls.limits, &QActionGroup::triggered, this, &HistoryWindow::choose_limit);
}

void HistoryWindow::ask_for_question() {
    const TimeRange range = m_controls.plot->path().now();
    ask_for_evidence(this,
                     {.from = static_cast<std::int64_t>(std::ceil(range.from)),
                      .to = static_cast<std::int64_t>(std::floor(range.to)),
                      .limit = m_controls.plot->view().options.limit.value_or(0)},
                     [this](const EvidenceQuestion& question, const QString& path) { save_evidence(question, path); });
}

void HistoryWindow::save_evidence(const EvidenceQuestion& question, const QString& path) {
    //: history window: said while the logs are read for evidence
    say(tr("Adding up…"));
    m_background.start(
        *m_parts.queue,
        [&files = m_parts.files, &writer = m_parts.exports.writer, logs = m_places.logs, question,
         path = path.toStdString()]() -> Result<Evidence> {
            const auto read = read_evidence(files, logs, question, sha256_of_file);
            if (!read)
                return tl::unexpected(read.error());
            const EvidenceOrigin origin{read->files, evidence_command(logs, question),
                                        QCoreApplication::applicationVersion().toStdString()};
            const std::string page = evidence_html(read->evidence, origin);
            const auto written = writer.write_table(path, is_pdf(path) ? pdf_of_html(page, question.to) : page);
            return written ? Result<Evidence>(read->evidence) : tl::unexpected(written.error());
        },
        [this, path](const Result<Evidence>& evidence) {
            if (!evidence)
                return say(in_words(evidence.error()));
            //: history window: said after evidence was written; %1 to %3 are spans of time, %4 a file
            say(tr("Within the limit for %1, outside for %2, without evidence for %3. Written to %4.")
                    .arg(duration_words(static_cast<double>(evidence->within)),
                         duration_words(static_cast<double>(evidence->outside)),
                         duration_words(static_cast<double>(evidence->without)), path));
        });
}

void HistoryWindow::ask_for_log(bool to_compare, Asked asked) {
    const bool is_folder = asked == Asked::folder;
    //: history window: titles of dialogs
    const QString title = to_compare  ? tr("Compare With the Logs of Another Machine")
                          : is_folder ? tr("Open Folder of Logs")
                                      : tr("Open Log");
    auto* dialog = new QFileDialog(this, title, QStringLiteral("/var/log/chrony"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(is_folder ? QFileDialog::Directory : QFileDialog::ExistingFile);
    connect(dialog, &QFileDialog::fileSelected, this, [this, to_compare](const QString& path) {
        if (to_compare)
            compare_with(path);
        else
            open_logs({path});
    });
    dialog->open();
}

void HistoryWindow::open_logs(const QStringList& paths) {
    HistoryPlaces places;
    for (const QString& path : paths)
        places.logs.push_back(path.toStdString());
    show_history(std::move(places));
}

void HistoryWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls()) {
        event->setDropAction(Qt::CopyAction); // the files stay where they are
        event->accept();
    }
}

void HistoryWindow::dropEvent(QDropEvent* event) {
    QStringList paths;
    for (const QUrl& url : event->mimeData()->urls())
        if (url.isLocalFile())
            paths << url.toLocalFile();
    if (paths.isEmpty())
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    if (event->modifiers().testFlag(Qt::ShiftModifier))
        compare_with(paths.front());
    else
        open_logs(paths);
}

void HistoryWindow::show_history(HistoryPlaces places) {
    m_places = std::move(places);
    m_follower = std::make_shared<HistoryFollower>(m_parts.files, m_places);
    m_is_reading = true;
    //: history window: said while logs and the store are read
    m_controls.plot->set_empty_text(tr("Reading…"));
    m_background.start_newest(
        *m_parts.queue, [follower = m_follower] { return follower->load(); },
        [this](LoadedHistory loaded) { take(std::move(loaded)); });
}

void HistoryWindow::take(LoadedHistory loaded) {
    m_is_reading = false;
    m_looks_to_skip = 0;
    show_loaded(std::move(loaded));
    show_first_range();
    data_changed();
    m_reader->start(seconds_between_looks, [this] { look_for_more(); });
}

void HistoryWindow::show_loaded(LoadedHistory loaded) {
    m_data = std::move(loaded.data);
    m_loaded = std::move(loaded);
    m_controls.plot->change([this](HistoryView& view) { view.set_data(m_data); });
    m_controls.plot->set_empty_text(empty_words(m_loaded));
    m_controls.plot->setAccessibleDescription(m_data->extent() ? QString() : m_controls.plot->empty_text());
    m_exports->set_enabled(m_data->extent().has_value());
    m_controls.evidence->setEnabled(!m_loaded.logs.empty()); // readings of this program prove nothing
}

void HistoryWindow::look_for_more() {
    if (m_looks_to_skip > 0)
        --m_looks_to_skip;
    else if (!std::exchange(m_is_reading, true))
        m_background.start_newest(
            *m_parts.queue,
            [follower = m_follower, newest = m_data->newest_stored()] { return follower->news(newest); },
            [this](HistoryNews news) { take_news(std::move(news)); });
}

// Logs of years take some seconds to read, where all is read anew: so much that a fiftieth of the time goes into that,
// and no more.
void HistoryWindow::take_news(HistoryNews news) {
    constexpr double share = 50;
    m_is_reading = false;
    m_looks_to_skip = static_cast<int>(news.reading.count() * share / seconds_between_looks);
    const bool was_empty = !m_data->extent();
    if (news.anew)
        show_loaded(std::move(*news.anew));
    else if (!add_news(std::move(news)))
        return;
    m_exports->set_enabled(m_data->extent().has_value());
    if (was_empty)
        show_first_range();
    else if (m_controls.follow->isChecked())
        keep_newest_in_sight();
    m_controls.plot->change([](HistoryView& view) { view.data_grew(); });
    data_changed();
}

bool HistoryWindow::add_news(HistoryNews news) {
    const bool is_logged = !news.logged.empty();
    if (is_logged) // first: it takes the place of what the store tells of the same time
        m_data->add(news.logged);
    if (news.temperatures)
        m_data->replace_temperatures(std::move(*news.temperatures));
    const bool is_stored = news.stored && m_data->add(*news.stored);
    return is_logged || news.temperatures || is_stored;
}

// The newest day, or all where that is less.
void HistoryWindow::show_first_range() {
    const auto extent = m_data->extent();
    if (!extent)
        return;
    const bool is_long = extent->length() > range_seconds[first_range_entry];
    choose_range(is_long ? first_range_entry : 0);
    m_controls.follow->setChecked(true);
}

void HistoryWindow::choose_range(int entry) {
    const auto extent = m_data->extent();
    if (!extent || entry == own_range)
        return;
    const double seconds = range_seconds.at(static_cast<std::size_t>(entry));
    const double margin = seconds == 0 ? std::max(extent->length() * 0.01, 30.0) : 0;
    m_controls.plot->go(seconds == 0 ? TimeRange{extent->from - margin, extent->to + margin}
                                     : TimeRange{extent->to - seconds, extent->to});
    m_controls.range->setCurrentIndex(entry);
}

void HistoryWindow::keep_newest_in_sight() {
    const auto extent = m_data->extent();
    if (!extent)
        return;
    const TimeRange now = m_controls.plot->path().now();
    if (m_controls.range->currentIndex() == 0)
        m_controls.plot->follow({now.from, extent->to + now.length() * 0.01});
    else
        m_controls.plot->follow({extent->to - now.length(), extent->to});
}

void HistoryWindow::range_moved() {
    const ViewPath& path = m_controls.plot->path();
    m_controls.path.show(path);
    const double length = path.now().length();
    const int entry = m_controls.range->currentIndex();
    if (const auto extent = m_data->extent(); extent && (extent->to < path.now().from || extent->to > path.now().to))
        m_controls.follow->setChecked(false); // who looks at the past stays there
    if (entry != 0 && std::abs(length - range_seconds.at(static_cast<std::size_t>(entry))) > 1)
        m_controls.range->setCurrentIndex(own_range);
    fill_events();
    m_statistics_timer.start();
}

void HistoryWindow::data_changed() {
    fill_legend();
    fill_events();
    show_origins();
    m_statistics_timer.start();
}

void HistoryWindow::compare_with(const QString& path) {
    m_background.start(
        *m_parts.queue,
        [&files = m_parts.files, places = HistoryPlaces{.store = {}, .logs = {path.toStdString()}}] {
            return load_history(files, places);
        },
        [this, path](LoadedHistory loaded) {
            if (!loaded.data->extent()) {
                //: history window: said when a log that was to be compared has nothing; %1 is a file
                say(loaded.log_problems.empty() ? tr("%1 holds no records.").arg(path)
                                                : in_words(loaded.log_problems.front()));
                return;
            }
            m_controls.plot->change([&](HistoryView& view) {
                view.set_other(std::move(loaded.data));
                view.options.hidden.insert("difference frequency"); // near zero, it would press the others flat
                view.options.hidden.insert("other bound");          // two bands over each other hide the lines
            });
            m_controls.end_comparison->setEnabled(true);
            m_compared = path;
            data_changed();
        });
}

void HistoryWindow::end_comparison() {
    m_controls.plot->change([](HistoryView& view) { view.set_other(nullptr); });
    m_controls.end_comparison->setEnabled(false);
    m_compared.clear();
    data_changed();
}

void HistoryWindow::draw_plot(Canvas& canvas, Rect bounds) const {
    m_controls.plot->view().draw(canvas, bounds);
}

PlotCaption HistoryWindow::plot_caption() const {
    PlotCaption caption = caption_of(m_controls.plot->view(), windowTitle());
    if (!m_compared.isEmpty())
        caption.lines.push_back(compared_words(m_compared).toStdString());
    return caption;
}

std::shared_ptr<PlotTable> HistoryWindow::plot_table() {
    struct Table : PlotTable {
        HistoryTable values;
        [[nodiscard]] std::string csv() const override { return csv_of(values); }
    };
    auto table = std::make_shared<Table>();
    table->values = table_of(m_controls.plot->view());
    return table;
}

void HistoryWindow::closeEvent(QCloseEvent* event) {
    m_reader->stop();
    QMainWindow::closeEvent(event);
}

} // namespace tickervantage
