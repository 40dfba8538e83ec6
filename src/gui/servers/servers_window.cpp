#include "gui/servers/servers_window.h"

#include "base/failure_codes.h"
#include "gui/common/desktop_links.h"
#include "gui/common/words.h"
#include "gui/servers/servers_list.h"
#include "qt/in_words.h"

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QCoreApplication>
#include <QEvent>
#include <QFrame>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QToolButton>

#include <algorithm>
#include <iterator>

namespace tickervantage {
namespace {

constexpr std::size_t LARGEST_CONFIGURATION = 16U << 20U;
constexpr const char* manual_page = "https://chrony-project.org/doc/4.3/chrony.conf.html#server";

} // namespace

ServersWindow::ServersWindow(ServersWindowParts parts) : m_parts(std::move(parts)), m_background(m_parts.main_thread) {
    setObjectName(QStringLiteral("ServersWindow"));
    //: server window: title
    setWindowTitle(tr("Servers"));
    auto* central = new QWidget(this);
    m_controls = build_servers_controls(central);
    setCentralWidget(central);
    m_model = new ServerListModel(m_servers, this);
    m_selection = new GuardedSelection(m_model, this);
    m_controls.serverListView->setModel(m_model);
    m_controls.serverListView->setSelectionModel(m_selection);
    build_actions();
    connect_controls();
}

void ServersWindow::build_actions() {
    const auto key = [this](QWidget* where, const QKeySequence& keys, Qt::ShortcutContext context, auto act) {
        connect(new QShortcut(keys, where, nullptr, nullptr, context), &QShortcut::activated, this, act);
    };
    QWidget* list = m_controls.serverListView;
    key(this, QKeySequence::New, Qt::WindowShortcut, [this] { ServerControl(0); });
    key(list, QKeySequence::Delete, Qt::WidgetShortcut, [this] { ServerControl(1); });
    key(this, QKeySequence::Undo, Qt::WindowShortcut, [this] { undo_removal(); });
    key(this, QKeySequence::Close, Qt::WindowShortcut, [this] { close(); });
    key(list, QKeySequence::Copy, Qt::WidgetShortcut, [this] { copy_lines(); });
    key(list, QKeySequence(Qt::ALT | Qt::Key_Up), Qt::WidgetShortcut, [this] { move_current(-1); });
    key(list, QKeySequence(Qt::ALT | Qt::Key_Down), Qt::WidgetShortcut, [this] { move_current(1); });
}

void ServersWindow::connect_controls() {
    for (auto* field : {m_controls.m_name, m_controls.m_maxpoll, m_controls.m_minpoll})
        connect(field, &QLineEdit::textEdited, this, [this] { enterText(); });
    for (auto* box : {m_controls.m_iburst, m_controls.pool})
        connect(box, &QCheckBox::clicked, this, [this] { enterText(); });
    for (int segment : {0, 1})
        connect(m_controls.segments.at(static_cast<std::size_t>(segment)), &QToolButton::clicked, this,
                [this, segment] { ServerControl(segment); });
    connect(m_controls.undo, &QToolButton::clicked, this, [this] { undo_removal(); });
    connect(m_controls.import, &QPushButton::clicked, this, [this] { import_servers(); });
    connect(m_controls.copy, &QPushButton::clicked, this, [this] { copy_lines(); });
    connect(m_controls.insert, &QPushButton::clicked, this, [this] { insert_lines(); });
    connect(m_controls.help, &QPushButton::clicked, this, [this] { serverHelp(); });
    connect(m_controls.retry, &QPushButton::clicked, this, [this] { save(); });
    connect(m_selection, &GuardedSelection::leaving, this, &ServersWindow::selectionShouldChange);
    connect(m_selection, &QItemSelectionModel::currentChanged, this, [this] { selectionDidChange(); });
    connect(m_model, &ServerListModel::edited, this, [this] {
        m_currentindex = m_selection->currentIndex().row();
        save();
    });
    connect(m_model, &ServerListModel::refused, this, [this](ServerProblem problem) {
        show_notice(QCoreApplication::translate("servers", sentence_of(problem)));
    });
}

template <class Use>
void ServersWindow::read(Use use) {
    m_background.start(
        m_parts.queue, [list = m_parts.list] { return list->read(); }, std::move(use));
}

void ServersWindow::windowDidLoad() {
    update_buttons();
    show_record();
    m_controls.serverListView->setEnabled(false); // until the list was read
    read([this](const FileReading& reading) { show_read(reading); });
}

void ServersWindow::show_read(const FileReading& reading) {
    using Outcome = FileReading::Outcome;
    m_loaded = true;
    m_controls.serverListView->setEnabled(true);
    if (reading.outcome == Outcome::read) {
        m_made_from = reading.bytes;
        m_model->replace_all(parse_servers(reading.bytes));
    } else if (reading.outcome == Outcome::unfit) {
        //: server window: %1 is a reason, such as "it is a folder"
        show_notice(
            tr("The saved list is none: %1. It is kept under another name as soon as you change something here.")
                .arg(in_words(reading.reason)));
    } else if (reading.outcome == Outcome::unreadable) {
        //: server window: %1 is a reason, such as "Permission denied"
        show_notice(tr("The saved list cannot be read: %1.").arg(in_words(reading.reason)));
    }
    go_to(0);
    update_buttons();
}

void ServersWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    look_again();
}

void ServersWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        look_again();
    if (event->type() == QEvent::PaletteChange)
        show_problem(has_current() ? typed_problem() : ServerProblem::none);
}

// Somebody else may have saved the list while we were away.
void ServersWindow::look_again() {
    if (!m_loaded || m_unsaved)
        return;
    read([this, saves = m_saves->load()](const FileReading& reading) {
        if (*m_saves == saves)
            show_changed(reading);
    });
}

void ServersWindow::show_changed(const FileReading& reading) {
    if (reading.outcome != FileReading::Outcome::read)
        return; // what we have here is better
    m_made_from = reading.bytes;
    auto servers = parse_servers(reading.bytes);
    if (servers == m_servers)
        return;
    const int row = std::max(m_currentindex, 0);
    m_removed.clear(); // their rows mean nothing any more
    m_model->replace_all(std::move(servers));
    go_to(std::min(row, m_model->rowCount() - 1));
    //: server window: said when the list on the disk is newer
    show_notice(tr("Another window or program changed the list; this is the list as it is now."));
}

void ServersWindow::save() {
    m_unsaved = true;
    const auto write = [list = m_parts.list, saves = m_saves, number = ++*m_saves, text = format_servers(m_servers),
                        made_from = m_made_from] {
        return *saves == number ? std::optional(list->replace(text, made_from)) : std::nullopt; // else another waits
    };
    m_background.start(m_parts.queue, write, [this, number = m_saves->load()](const auto& saved) {
        if (!saved)
            return;
        m_unsaved = number != *m_saves || !*saved;
        show_saved(*saved);
    });
    update_buttons();
}

void ServersWindow::show_saved(const Result<std::string>& saved) {
    if (!saved)
        //: server window: %1 is a sentence that says why
        show_notice(tr("%1 The change stays here, but it is not saved yet.").arg(in_words(saved.error())), true);
    else if (!saved->empty())
        //: server window: %1 is a file
        show_notice(
            tr("Another window or program had changed the list. Its version was kept as %1.").arg(from_std(*saved)));
    else if (m_failed)
        show_notice({});
    m_failed = !saved;
}

bool ServersWindow::has_current() const {
    return m_currentindex >= 0 && m_currentindex < m_model->rowCount();
}

void ServersWindow::enterText() {
    if (!has_current())
        return;
    auto& server = m_servers[static_cast<std::size_t>(m_currentindex)];
    server_data typed = server;
    const std::string address = one_line_of(m_controls.m_name->text());
    if (address.find(':') == std::string::npos) // the file cannot hold it, so it stays in the field
        typed.address = address;
    typed.maxpoll = poll_in(m_controls.m_maxpoll->text().toStdString()).value_or(typed.maxpoll);
    typed.minpoll = poll_in(m_controls.m_minpoll->text().toStdString()).value_or(typed.minpoll);
    typed.iburst = m_controls.m_iburst->isChecked();
    set_pool(typed, m_controls.pool->isChecked());
    show_problem(typed_problem());
    if (typed == server)
        return;
    typed.garbled.clear();
    server = std::move(typed);
    save();
}

// By what the fields hold, which a row cannot always hold.
ServerProblem ServersWindow::typed_problem() const {
    const auto maxpoll = poll_in(m_controls.m_maxpoll->text().toStdString());
    const auto minpoll = poll_in(m_controls.m_minpoll->text().toStdString());
    server_data typed;
    typed.address = one_line_of(m_controls.m_name->text());
    typed.maxpoll = maxpoll.value_or(LARGEST_POLL);
    typed.minpoll = minpoll.value_or(typed.maxpoll);
    const ServerProblem problem = check_server(typed);
    if (field_of(problem) == ServerField::address || problem == ServerProblem::maxpoll_too_large)
        return problem;
    if (!maxpoll)
        return ServerProblem::maxpoll_no_number;
    return minpoll ? problem : ServerProblem::minpoll_no_number;
}

bool ServersWindow::validate_current() {
    if (!has_current())
        return true;
    const ServerProblem problem = typed_problem();
    show_problem(problem);
    const auto field = field_of(problem);
    if (field == ServerField::none)
        return true;
    auto* edit = field == ServerField::address   ? m_controls.m_name
                 : field == ServerField::maxpoll ? m_controls.m_maxpoll
                                                 : m_controls.m_minpoll;
    edit->setFocus();
    edit->selectAll();
    return false;
}

void ServersWindow::show_problem(ServerProblem problem) {
    const auto field = field_of(problem);
    const QString sentence = QCoreApplication::translate("servers", sentence_of(problem));
    const auto minpoll = poll_in(m_controls.m_minpoll->text().toStdString());
    const auto maxpoll = poll_in(m_controls.m_maxpoll->text().toStdString());
    server_data typed;
    typed.address = one_line_of(m_controls.m_name->text());
    typed.minpoll = minpoll.value_or(typed.minpoll);
    typed.maxpoll = maxpoll.value_or(typed.maxpoll);
    const auto say = [&](QLabel* label, ServerField its_field, const PollWords& otherwise) {
        const bool is_problem = field == its_field;
        label->setText(is_problem ? sentence : otherwise.text);
        set_alarmed(label, is_problem || otherwise.is_warning);
    };
    say(m_controls.name_words, ServerField::address, {});
    say(m_controls.minpoll_words, ServerField::minpoll, minpoll ? words_of_minpoll(typed) : PollWords());
    say(m_controls.maxpoll_words, ServerField::maxpoll, maxpoll ? words_of_maxpoll(typed) : PollWords());
}

void ServersWindow::show_record() {
    const bool shown = has_current();
    const server_data server = shown ? m_servers[static_cast<std::size_t>(m_currentindex)] : server_data{};
    m_controls.m_name->setText(shown ? from_std(server.address) : QString());
    m_controls.m_name->setCursorPosition(0); // a long name shows its beginning
    m_controls.m_maxpoll->setText(shown ? QString::number(server.maxpoll) : QString());
    m_controls.m_minpoll->setText(shown ? QString::number(server.minpoll) : QString());
    m_controls.m_iburst->setChecked(shown && server.iburst);
    m_controls.pool->setChecked(shown && is_pool(server));
    m_controls.record->setEnabled(shown);
    show_problem(shown ? typed_problem() : ServerProblem::none);
}

void ServersWindow::log_selection(std::string_view moment) const {
    m_parts.logger.log(LogLevel::info, std::string(moment) + ": current selection: " + std::to_string(m_currentindex));
}

void ServersWindow::selectionShouldChange(bool& may) {
    log_selection("shouldchange");
    may = validate_current();
    if (may)
        log_selection("proposedselection");
}

void ServersWindow::selectionDidChange() {
    log_selection("ischanging");
    m_currentindex = m_selection->currentIndex().row();
    show_record();
    update_buttons();
    log_selection("didchange");
}

void ServersWindow::go_to(int row) {
    m_selection->go_to(row);
    m_currentindex = m_selection->currentIndex().row();
    m_controls.serverListView->scrollTo(m_selection->currentIndex());
    show_record();
}

void ServersWindow::ServerControl(int segment) {
    if (!m_loaded)
        return;
    if (segment == 0)
        add();
    else if (has_current())
        remove();
}

void ServersWindow::add() {
    if (!validate_current())
        return;
    m_model->insert(m_model->rowCount(), server_data{});
    go_to(m_model->rowCount() - 1);
    m_controls.m_name->setFocus();
    m_controls.m_name->selectAll();
    save();
}

void ServersWindow::remove() {
    const int row = m_currentindex;
    m_removed.emplace_back(row, m_model->remove(row));
    go_to(std::min(row, m_model->rowCount() - 1));
    save();
}

void ServersWindow::undo_removal() {
    if (m_removed.empty() || !validate_current())
        return;
    auto [row, server] = std::move(m_removed.back());
    m_removed.pop_back();
    row = std::min(row, m_model->rowCount());
    m_model->insert(row, std::move(server));
    go_to(row);
    save();
}

void ServersWindow::move_current(int by) {
    const int to = m_currentindex + by;
    if (has_current() && to >= 0 && to < m_model->rowCount())
        m_model->moveRow({}, m_currentindex, {}, by > 0 ? to + 1 : to);
}

void ServersWindow::serverHelp() {
    if (!open_page(QLatin1String(manual_page)))
        //: server window: %1 is the address of a page
        show_notice(tr("No browser could be started. The page is %1.").arg(QLatin1String(manual_page)));
}

void ServersWindow::copy_lines() {
    QGuiApplication::clipboard()->setText(from_std(chrony_lines(m_servers)));
    const auto good = std::ranges::count(m_servers, ServerProblem::none, check_server);
    //: server window: said when the list went to the clipboard; %1 the number of servers
    QString said = tr("Servers copied as lines of chrony's configuration: %1.").arg(good);
    if (const auto bad = std::ssize(m_servers) - good; bad > 0)
        //: server window: goes on from there; %1 the number of servers
        said += tr(" Copied as comments, since something is wrong with them: %1.").arg(bad);
    show_notice(said);
}

void ServersWindow::insert_lines() {
    if (m_editor_is_open)
        Q_EMIT insert_wanted(from_std(chrony_lines(m_servers)));
    else
        //: server window: said when there is no editor to insert into
        show_notice(tr("No configuration is open in the editor."));
}

void ServersWindow::set_editor_open(bool is_open) {
    m_editor_is_open = is_open;
    update_buttons();
}

void ServersWindow::import_servers() {
    if (!m_loaded || !validate_current())
        return;
    const std::string path = m_parts.general.config;
    const auto look = [&files = m_parts.files, path] {
        return files.read(path, LARGEST_CONFIGURATION);
    };
    m_background.start(m_parts.queue, look, [this, path](const FileReading& found) {
        if (found.outcome == FileReading::Outcome::read)
            show_imported(path, found.bytes);
        else
            show_notice(in_words(failed(FailureCode::cannot_read, {path}, found.reason).value()));
    });
}

void ServersWindow::show_imported(const std::string& path, const std::string& text) {
    auto imported = tickervantage::import_servers(text, m_servers);
    const int first = m_model->rowCount();
    for (auto& server : imported.servers)
        m_model->insert(m_model->rowCount(), std::move(server));
    if (m_model->rowCount() > first) {
        save();
        if (validate_current())
            go_to(first);
    }
    //: server window: said after an import; %1 a file, %2 the number of servers that were added
    QString said = tr("Servers imported from %1: %2.").arg(from_std(path)).arg(imported.servers.size());
    if (imported.known > 0)
        //: server window: goes on from there; %1 the number of servers
        said += tr(" In the list already: %1.").arg(imported.known);
    if (imported.colons > 0)
        //: server window: goes on from there; %1 the number of addresses
        said += tr(" IPv6 addresses left out, since the list's file cannot hold a colon: %1.").arg(imported.colons);
    show_notice(said);
}

void ServersWindow::show_notice(const QString& text, bool retry) {
    m_controls.notice_text->setText(text);
    m_controls.notice->setVisible(!text.isEmpty());
    m_controls.notice->setAccessibleName(text);
    m_controls.retry->setVisible(retry);
}

void ServersWindow::update_buttons() {
    m_controls.segments[0]->setEnabled(m_loaded);
    m_controls.segments[1]->setEnabled(has_current());
    m_controls.undo->setVisible(!m_removed.empty());
    m_controls.import->setEnabled(m_loaded);
    m_controls.copy->setEnabled(!m_servers.empty());
    m_controls.insert->setEnabled(m_editor_is_open && !m_servers.empty());
    //: server window: tooltips of the button that inserts the list into the editor
    m_controls.insert->setToolTip(m_editor_is_open
                                      ? tr("Insert the list as lines where the cursor stands")
                                      : /*: server window: tooltip of that button while the editor is closed */ tr(
                                            "Open a configuration in the editor first"));
}

} // namespace tickervantage
