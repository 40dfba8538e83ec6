#include "gui/laboratory/laboratory_window.h"

#include "gui/laboratory/chart_view.h"
#include "gui/laboratory/holdover_page.h"
#include "gui/laboratory/periodogram_page.h"
#include "gui/laboratory/stability_page.h"
#include "qt/named_widget.h"
#include "qt/text_scale.h"

#include <QAction>
#include <QComboBox>
#include <QDropEvent>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace tickervantage {

/* TRANSLATOR tickervantage::LaboratoryWindow
   The window that studies how steady the clock is: its controls, and the titles of its dialogs. */

LaboratoryWindow::LaboratoryWindow(LaboratoryWindowParts parts)
    : m_parts(std::move(parts)), m_minutes(m_parts.timer.make_repeater("laboratory", Pace::free)),
      m_background(m_parts.main_thread) {
    setObjectName(QStringLiteral("LaboratoryWindow"));
    //: laboratory: title
    setWindowTitle(tr("Clock Laboratory"));
    build();
    build_menu();
    build_export();
    connect_charts();
    m_minutes->start(60, [this] { follow(); });
    resize(scaled(QSize(1000, 720), *this));
}

LaboratoryWindow::~LaboratoryWindow() {
    m_background.forget_newest(); // nobody waits for what has not begun
}

void LaboratoryWindow::build() {
    auto* central = new QWidget(this);
    central->setAcceptDrops(true);
    central->installEventFilter(this);
    //: laboratory: name of the tabs
    m_tabs = named(new QTabWidget(central), "pages", tr("Pages"));
    m_tabs->setDocumentMode(true);
    const LaboratoryPageParts parts{m_parts.main_thread, *m_parts.queue, m_parts.exports, m_parts.now};
    m_stability = new StabilityPage(m_tabs, parts);
    m_pages = {m_stability, new HoldoverPage(m_tabs, parts), new PeriodogramPage(m_tabs, parts)};
    m_compensation = new CompensationPage(m_tabs, m_parts.compensation);
    //: laboratory: titles of pages
    m_tabs->addTab(m_pages.at(0), tr("&Stability"));
    //: laboratory: title of a page
    m_tabs->addTab(m_pages.at(1), tr("&Holdover"));
    //: laboratory: title of a page
    m_tabs->addTab(m_compensation, tr("&Compensation"));
    //: laboratory: title of a page
    m_tabs->addTab(m_pages.at(2), tr("&Periodogram"));
    for (LaboratoryPage* page : m_pages)
        connect(page, &LaboratoryPage::said, this, &LaboratoryWindow::say);
    //: laboratory: name of the line that says what is used
    m_origins = named(new QLabel(central), "origins", tr("What is used"));
    m_origins->setTextFormat(Qt::PlainText);
    m_origins->setWordWrap(true);
    m_origins->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* column = new QVBoxLayout(central);
    column->addWidget(build_choices(central));
    column->addWidget(m_tabs, 1);
    column->addWidget(m_origins);
    setCentralWidget(central);
}

QWidget* LaboratoryWindow::build_choices(QWidget* parent) {
    auto* row = new QWidget(parent);
    //: laboratory: name of a menu, and its tooltip
    m_source = named(new QComboBox(row), "source", tr("Source"), tr("Whose past is looked at"));
    m_source->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    connect(m_source, &QComboBox::activated, this, [this](int at) { choose(static_cast<std::size_t>(at), false); });
    //: laboratory: button with a menu, and its tooltip
    m_files = named(new QToolButton(row), "files", tr("Logs"), tr("Open another log"));
    //: laboratory: button with a menu
    m_files->setText(tr("&Logs"));
    m_files->setPopupMode(QToolButton::InstantPopup);
    m_files->setFocusPolicy(Qt::StrongFocus);
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(m_source, 1);
    m_path = make_path_buttons(row);
    //: laboratory: button, and its tooltip
    m_all = named(new QToolButton(row), "show_all", tr("Show all"), tr("All of the chart (Ctrl+0, or a double click)"));
    //: laboratory: button
    m_all->setText(tr("Show All"));
    m_all->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_0));
    m_all->setFocusPolicy(Qt::StrongFocus);
    for (QToolButton* button : {m_path.back, m_path.forward, m_all})
        line->addWidget(button);
    //: laboratory: button with a menu, and its tooltip
    m_export = named(new QToolButton(row), "export", tr("Export"), tr("Save or copy what this page shows"));
    //: laboratory: button with a menu
    m_export->setText(tr("&Export"));
    m_export->setPopupMode(QToolButton::InstantPopup);
    m_export->setFocusPolicy(Qt::StrongFocus);
    line->addWidget(m_files);
    line->addWidget(m_export);
    return row;
}

void LaboratoryWindow::build_menu() {
    auto* menu = new QMenu(m_files);
    const auto add = [menu](const char* name, const QString& text) {
        QAction* action = menu->addAction(text);
        action->setObjectName(QLatin1String(name));
        return action;
    };
    //: laboratory: menu item
    connect(add("open_log", tr("&Open Log…")), &QAction::triggered, this, [this] { ask_for_log(false); });
    //: laboratory: menu item
    connect(add("open_folder", tr("Open &Folder of Logs…")), &QAction::triggered, this, [this] { ask_for_log(true); });
    //: laboratory: menu item, has chrony write the logs that this window needs
    QAction* turn_on = add("turn_on", tr("Turn On &Logs…"));
    turn_on->setVisible(m_parts.can_turn_on_logs);
    connect(turn_on, &QAction::triggered, this, &LaboratoryWindow::logs_requested);
    m_files->setMenu(menu);
}

void LaboratoryWindow::build_export() {
    m_export->setMenu(new QMenu(m_export));
    connect(m_tabs, &QTabWidget::currentChanged, this, &LaboratoryWindow::offer_export);
    offer_export();
}

void LaboratoryWindow::connect_charts() {
    for (LaboratoryPage* page : m_pages)
        connect(&page->chart(), &ChartView::moved, this, &LaboratoryWindow::offer_movement);
    connect(m_tabs, &QTabWidget::currentChanged, this, &LaboratoryWindow::offer_movement);
    const auto move_by = [this](QToolButton* button, void (ChartView::*movement)()) {
        connect(button, &QToolButton::clicked, this, [this, movement] {
            if (ChartView* chart = chart_in_sight())
                (chart->*movement)();
        });
    };
    move_by(m_path.back, &ChartView::back);
    move_by(m_path.forward, &ChartView::forward);
    move_by(m_all, &ChartView::show_all);
    offer_movement();
}

ChartView* LaboratoryWindow::chart_in_sight() const {
    return m_tabs->currentWidget()->findChild<ChartView*>();
}

void LaboratoryWindow::offer_movement() {
    const ChartView* chart = chart_in_sight();
    const bool is_there = chart != nullptr && !chart->is_empty();
    m_path.show(is_there ? chart->path() : ViewPath());
    m_all->setEnabled(is_there && !chart->shows_all());
}

// The commands that the page's chart has.
void LaboratoryWindow::offer_export() {
    const auto* chart = chart_in_sight();
    m_export->setEnabled(chart != nullptr);
    m_export->menu()->clear();
    if (chart != nullptr)
        m_export->menu()->addActions(chart->actions());
}

void LaboratoryWindow::say(const QString& sentence) {
    statusBar()->showMessage(sentence);
}

void LaboratoryWindow::ask_for_log(bool for_folder) {
    //: laboratory: titles of dialogs
    const QString title = for_folder ? tr("Open Folder of Logs") : tr("Open Log");
    auto* dialog = new QFileDialog(this, title, QStringLiteral("/var/log/chrony"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(for_folder ? QFileDialog::Directory : QFileDialog::ExistingFile);
    connect(dialog, &QFileDialog::fileSelected, this, &LaboratoryWindow::open_log);
    dialog->open();
}

void LaboratoryWindow::show_laboratory(const LaboratoryPlaces& places) {
    m_places.clear();
    m_source->clear();
    //: laboratory: entry of the menu of sources
    const QString demonstration = tr("The demonstration's tracking log");
    if (!places.log.empty())
        add_place({places.log, false,
                   places.is_demonstration ? demonstration
                                           //: laboratory: entry of the menu of sources; %1 is a file or folder
                                           : tr("chrony's log, %1").arg(QString::fromStdString(places.log))});
    if (!places.store.empty())
        //: laboratory: entry of the menu of sources
        add_place({places.store, true, tr("Readings of this program")});
    if (!m_places.empty())
        choose(0, true);
    if (!places.configuration.empty())
        m_background.start(
            *m_parts.queue, [path = places.configuration] { return read_poll_limits(path); },
            [this](const PollLimits& limits) { m_stability->set_poll_limits(limits); });
}

void LaboratoryWindow::open_log(const QString& path) {
    const std::string file = path.toStdString();
    const auto is_same = [&file](const Place& place) {
        return place.path == file;
    };
    const auto found = std::ranges::find_if(m_places, is_same);
    const auto at = static_cast<std::size_t>(found - m_places.begin());
    if (found == m_places.end())
        add_place({file, false, path});
    choose(at, false);
}

void LaboratoryWindow::add_place(const Place& place) {
    m_places.push_back(place);
    m_source->addItem(place.name);
}

bool LaboratoryWindow::eventFilter(QObject* receiver, QEvent* event) {
    const auto type = event->type();
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop)
        return QMainWindow::eventFilter(receiver, event);
    auto* drop = static_cast<QDropEvent*>(event);
    const QList<QUrl> urls = drop->mimeData()->urls();
    if (urls.isEmpty() || !urls.front().isLocalFile())
        return QMainWindow::eventFilter(receiver, event);
    drop->setDropAction(Qt::CopyAction); // the file stays where it is
    drop->accept();
    if (type == QEvent::Drop)
        open_log(urls.front().toLocalFile());
    return true;
}

} // namespace tickervantage
