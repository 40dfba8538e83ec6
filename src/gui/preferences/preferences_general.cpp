#include "gui/preferences/preferences_general.h"

#include "base/failure_codes.h"
#include "base/text_lines.h"
#include "gui/common/words.h"
#include "qt/in_words.h"
#include "qt/local_number.h"
#include "settings/settings_keys.h"

#include <QCheckBox>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QLocale>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>

namespace tickervantage {
namespace {

constexpr const char* adjust_warning = "AdjustClockAlert";
constexpr std::size_t config_path = 0;
constexpr std::size_t wake_path = 3;

using Paths = std::array<std::string, 4>;

Paths in_order(const ChronyPaths& paths) {
    return {paths.config, paths.chronyc, paths.chronyd, paths.chronywake};
}

// Where distributions put chrony, the usual place first. chronywake comes with this program alone.
const std::array<std::vector<std::string>, 4>& usual_paths() {
    static const std::array<std::vector<std::string>, 4> paths{{{"/etc/chrony/chrony.conf", "/etc/chrony.conf"},
                                                                {"/usr/bin/chronyc"},
                                                                {"/usr/sbin/chronyd", "/usr/bin/chronyd"},
                                                                {}}};
    return paths;
}

bool read_field(const QLineEdit* field, const DoubleKey& key, double& value) {
    const auto number = number_in(field->text());
    if (!number || *number < key.minimum || *number > key.maximum)
        return false;
    value = *number;
    return true;
}

bool read_field(const QLineEdit* field, const IntegerKey& key, std::int64_t& value) {
    bool readable = false;
    const qlonglong number = QLocale().toLongLong(field->text().trimmed(), &readable);
    if (!readable || number < key.minimum || number > key.maximum)
        return false;
    value = number;
    return true;
}

// What distributions usually have of chrony; empty where there is nothing.
Paths look_for_usual(const PathProbes& probes) {
    Paths found;
    for (std::size_t path = 0; path < found.size(); ++path)
        for (const auto& usual : usual_paths().at(path)) {
            const PathState state = probes.state(usual);
            const bool fits = state == PathState::program || (path == config_path && state == PathState::file);
            if (fits && found.at(path).empty())
                found.at(path) = usual;
        }
    return found;
}

// Whether the agent is there afterwards, and what went wrong.
struct LoginChange {
    bool on = false;
    Result<> done;
};

LoginChange change_login(const LaunchAtLogin& agent, bool on) {
    Failure failure;
    Failure ignored; // a file that is no use is what is told
    const int result = on ? agent.writePlist(failure) : agent.unlinkAgent(failure);
    LoginChange change{.on = agent.agentIsValid(), .done = {}};
    if (on && !change.on)
        (void)agent.unlinkAgent(ignored);
    if (result != 0)
        change.done = tl::unexpected(failure);
    else if (on && !change.on)
        change.done = failed(FailureCode::autostart_useless);
    return change;
}

void show_note(QLabel& note, const QString& text) {
    note.setText(text);
    note.setVisible(!text.isEmpty());
}

} // namespace

PreferencesGeneralPane::PreferencesGeneralPane(const PreferencesParts& parts, QWidget* parent)
    : QWidget(parent), m_parts(parts), m_controls(build_preferences_general(this)), m_looks(parts.main_thread),
      m_logins(parts.main_thread), m_histories(parts.main_thread) {
    setObjectName(QStringLiteral("PreferencesGeneral"));
    connect_controls();
    if (m_parts.has_fixed_paths)
        fix_paths();
}

void PreferencesGeneralPane::fix_paths() {
    for (const auto& controls : m_controls.paths) {
        controls.field->setReadOnly(true);
        controls.choose->setEnabled(false);
    }
    m_controls.detect->setEnabled(false);
    //: General preferences in a demonstration: said below chrony's paths
    show_note(*m_controls.paths_note, tr("These are the demonstration's own files. Yours are left alone."));
}

QString PreferencesGeneralPane::toolbarItemTitle() {
    //: preferences: name of a pane
    return tr("General");
}

QIcon PreferencesGeneralPane::toolbarItemIcon() {
    return QIcon::fromTheme(QStringLiteral("preferences-system"));
}

void PreferencesGeneralPane::connect_controls() {
    connect(m_controls.m_launch_login, &QCheckBox::clicked, this, [this] { launchAtLogin(); });
    connect(m_controls.m_keep_history, &QCheckBox::clicked, this, [this] { keepHistory(); });
    connect(m_controls.m_adj_system, &QCheckBox::clicked, this, [this] { adjustClock(); });
    connect(m_controls.m_install_wake, &QCheckBox::clicked, this, [this] { installChronyWake(); });
    connect(m_controls.resetWarnings, &QPushButton::clicked, this, [this] { resetWarnings(); });
    connect(m_controls.detect, &QPushButton::clicked, this, [this] { detect(); });
    connect(m_controls.saveArguments, &QPushButton::clicked, this, [this] { saveArguments(); });
    connect(m_controls.m_test_wake, &QPushButton::clicked, this, [this] { testChronywake(); });
    connect(m_controls.restoreDefaults, &QPushButton::clicked, this, [this] { restoreDefaults(); });
    for (std::size_t path = 0; path < m_controls.paths.size(); ++path) {
        connect(m_controls.paths[path].field, &QLineEdit::textEdited, this, [this] { take_paths(); });
        connect(m_controls.paths[path].field, &QLineEdit::editingFinished, this, [this] { finish_edit(); });
        connect(m_controls.paths[path].choose, &QPushButton::clicked, this, [this, path] { find_path(path); });
    }
    for (auto* field : {m_controls.m_make_thresh, m_controls.m_make_limit, m_controls.m_burst_good,
                        m_controls.m_burst_max, m_controls.m_burst_netmask}) {
        connect(field, &QLineEdit::textEdited, this, [this] { take_arguments(); });
        connect(field, &QLineEdit::editingFinished, this, [this] { finish_edit(); });
    }
}

void PreferencesGeneralPane::show_record() {
    const auto& general = m_parts.general;
    m_controls.m_launch_login->setChecked(general.launch_login);
    m_controls.m_adj_system->setChecked(general.adj_system);
    m_controls.m_install_wake->setChecked(general.install_wake);
    const Paths paths = in_order(general.paths());
    for (std::size_t path = 0; path < paths.size(); ++path)
        m_controls.paths[path].field->setText(from_std(paths[path]));
    m_controls.m_make_thresh->setText(number_text(general.make_thresh));
    m_controls.m_make_limit->setText(number_text(general.make_limit));
    m_controls.m_burst_good->setText(number_text(general.burst_good));
    m_controls.m_burst_max->setText(number_text(general.burst_max));
    m_controls.m_burst_netmask->setText(from_std(general.burst_netmask));
    m_controls.wake_words->clear();
    update_wake();
    look_at_paths();
    look_at_history();
}

void PreferencesGeneralPane::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || m_controls.status == nullptr)
        return; // still being built
    show_path_states(m_states);
    set_alarmed(m_controls.wake_words, true);
}

// The programs of half a path are not for running.
void PreferencesGeneralPane::finish_edit() {
    save_settings();
    Q_EMIT changed();
}

void PreferencesGeneralPane::save_settings() {
    m_parts.general.save(m_parts.settings);
}

void PreferencesGeneralPane::take_paths() {
    auto& general = m_parts.general;
    const auto text = [this](std::size_t path) {
        return m_controls.paths.at(path).field->text().toStdString();
    };
    general.config = text(config_path);
    general.chronyc = text(1);
    general.chronyd = text(2);
    general.chronywake = text(3);
    look_at_paths();
}

// What is no number of the field's range stays in the field and is said; the record keeps the last good one.
void PreferencesGeneralPane::take_arguments() {
    auto& general = m_parts.general;
    QString sentence;
    const auto take = [&sentence](const QLineEdit* field, const auto& key, auto& value) {
        if (!read_field(field, key, value) && sentence.isEmpty())
            //: General preferences: %1 a field's name, %2 and %3 numbers
            sentence = tr("%1: a number from %2 to %3.")
                           .arg(field->accessibleName(), number_text(key.minimum), number_text(key.maximum));
    };
    take(m_controls.m_make_thresh, settings::make_thresh, general.make_thresh);
    take(m_controls.m_make_limit, settings::make_limit, general.make_limit);
    take(m_controls.m_burst_good, settings::burst_good, general.burst_good);
    take(m_controls.m_burst_max, settings::burst_max, general.burst_max);
    general.burst_netmask = trimmed(m_controls.m_burst_netmask->text().toStdString());
    m_controls.wake_words->setText(sentence);
    set_alarmed(m_controls.wake_words, true);
    update_wake();
}

// Others may have switched the service meanwhile.
void PreferencesGeneralPane::look_at_history() {
    if (m_parts.history_service)
        m_histories.start_newest(
            m_parts.queue, [service = m_parts.history_service] { return service->is_on(); },
            [this](const Result<bool>& is_on) { show_history(is_on); });
    else
        //: General preferences in a demonstration: said below the box that keeps a history
        show_note(*m_controls.history_words, tr("Not in a demonstration: it leaves your system as it is."));
}

void PreferencesGeneralPane::keepHistory() {
    const bool on = m_controls.m_keep_history->isChecked();
    m_controls.m_keep_history->setEnabled(false);
    const auto work = [service = m_parts.history_service, on] {
        const auto done = service->turn(on);
        return std::pair(done, service->is_on()); // what is true afterwards
    };
    m_histories.start_newest(m_parts.queue, work, [this](const std::pair<Result<>, Result<bool>>& came) {
        show_history(came.second);
        if (!came.first)
            say(in_words(came.first.error()), true);
    });
}

void PreferencesGeneralPane::show_history(const Result<bool>& is_on) {
    m_controls.m_keep_history->setEnabled(is_on.has_value());
    m_controls.m_keep_history->setChecked(is_on.value_or(false));
    show_note(*m_controls.history_words, is_on ? QString() : in_words(is_on.error()));
    m_controls.m_keep_history->setAccessibleDescription(m_controls.history_words->text());
}

void PreferencesGeneralPane::look_at_paths() {
    const auto look = [&probes = m_parts.probes, paths = in_order(m_parts.general.paths())] {
        std::array<PathState, 4> states{};
        for (std::size_t path = 0; path < paths.size(); ++path)
            states.at(path) = paths.at(path).starts_with('/') ? probes.state(paths.at(path)) : PathState::nothing;
        return states;
    };
    m_looks.start_newest(m_parts.queue, look, [this](const auto& states) { show_path_states(states); });
}

void PreferencesGeneralPane::show_path_states(const std::array<PathState, 4>& states) {
    m_states = states;
    for (std::size_t path = 0; path < states.size(); ++path) {
        const auto& controls = m_controls.paths.at(path);
        QString words;
        bool alarmed = true;
        if (!controls.field->text().startsWith(QLatin1Char('/')))
            //: General preferences: said below a path
            words = tr("A path starts with a slash.");
        else if (states.at(path) == PathState::nothing && path == wake_path) {
            //: General preferences: said below the path of chronywake
            words = tr("chronywake is not installed.");
            alarmed = false; // a machine can do without
        } else if (states.at(path) == PathState::nothing)
            //: General preferences: said below a path
            words = tr("There is no such file.");
        else if (states.at(path) == PathState::folder)
            //: General preferences: said below a path
            words = tr("This is a folder.");
        else if (path != config_path && states.at(path) != PathState::program)
            //: General preferences: said below a path
            words = tr("This is not a program that you may run.");
        controls.words->setText(words);
        set_alarmed(controls.words, alarmed);
        controls.field->setAccessibleDescription(words);
    }
}

void PreferencesGeneralPane::find_path(std::size_t path) {
    const auto& controls = m_controls.paths.at(path);
    const QString start = QFileInfo(from_std(in_order(documented_paths()).at(path))).path();
    auto* dialog = new QFileDialog(this, controls.choose->accessibleName(), start);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    //: General preferences: button of the file chooser
    dialog->setLabelText(QFileDialog::Accept, tr("Choose"));
    connect(dialog, &QFileDialog::fileSelected, this, [this, path](const QString& chosen) {
        m_controls.paths.at(path).field->setText(chosen);
        take_paths();
        finish_edit();
    });
    dialog->open();
}

void PreferencesGeneralPane::detect() {
    m_looks.start(
        m_parts.queue, [&probes = m_parts.probes] { return look_for_usual(probes); },
        [this](const Paths& found) { show_detected(found); });
}

void PreferencesGeneralPane::show_detected(const Paths& found) {
    bool any = false;
    for (std::size_t path = 0; path < found.size(); ++path) {
        any = any || !found.at(path).empty();
        if (!found.at(path).empty())
            m_controls.paths.at(path).field->setText(from_std(found.at(path)));
    }
    if (!any) {
        //: General preferences: said when the button Detect found nothing
        say(tr("This machine has no chrony of its distribution."));
        return;
    }
    take_paths();
    finish_edit();
    //: General preferences: said when the button Detect filled in paths
    say(tr("The paths of the distribution's chrony are filled in."));
}

void PreferencesGeneralPane::launchAtLogin() {
    const bool on = m_controls.m_launch_login->isChecked();
    const auto answer = std::make_shared<std::promise<bool>>();
    m_login_changed = answer->get_future();
    const auto work = [answer, agent = m_parts.launch_at_login, on] {
        LoginChange change = change_login(*agent, on);
        answer->set_value(change.on);
        return change;
    };
    m_logins.start_newest(m_parts.queue, work,
                          [this](const LoginChange& change) { show_login(change.on, change.done); });
}

bool PreferencesGeneralPane::finish(std::chrono::milliseconds patience) {
    if (!m_login_changed.valid())
        return true;
    if (m_login_changed.wait_for(patience) != std::future_status::ready)
        return false;
    m_parts.general.launch_login = m_login_changed.get();
    return true;
}

void PreferencesGeneralPane::show_login(bool on, const Result<>& done) {
    m_login_changed = {};
    m_controls.m_launch_login->setChecked(on);
    m_parts.general.launch_login = on;
    save_settings();
    say(done ? QString() : in_words(done.error()), true);
}

void PreferencesGeneralPane::adjustClock() {
    if (m_controls.m_adj_system->isChecked() || m_parts.warnings.contains(adjust_warning)) {
        apply_adjustment();
        return;
    }
    //: alert before the daemon is told to leave the clock alone: title
    auto* box = alert(tr("Warning"),
                      //: alert before the daemon is told to leave the clock alone
                      tr("When option Adjust System Clock is disabled, chronyd will no longer discipline the "
                         "system clock to match NTP time. However, any clients connecting to this system will "
                         "continue to be served with NTP time.\n"
                         "\nFor further explanation see the documentation of the chronyd -x option."));
    box->setObjectName(QLatin1String(adjust_warning));
    //: buttons of that alert
    auto* go_on = box->addButton(tr("Continue"), QMessageBox::AcceptRole);
    box->setEscapeButton(box->addButton(
        //: button of the alert before the daemon is told to leave the clock alone
        tr("Cancel"), QMessageBox::RejectRole));
    //: check box of an alert
    auto* never = new QCheckBox(tr("Do not show this warning again"));
    box->setCheckBox(never);
    connect(box, &QMessageBox::finished, this, [this, box, go_on, never] {
        if (never->isChecked())
            m_parts.warnings.register_warning(adjust_warning);
        if (box->clickedButton() == go_on)
            apply_adjustment();
        else
            m_controls.m_adj_system->setChecked(true);
    });
    box->open();
}

void PreferencesGeneralPane::apply_adjustment() {
    m_parts.general.adj_system = m_controls.m_adj_system->isChecked();
    save_settings();
    Q_EMIT changed();
    if (!m_parts.has_helper)
        return;
    m_controls.m_adj_system->setEnabled(false);
    Q_EMIT adjustment_wanted();
}

// The box says what the daemon does: where that could not be changed, it goes back.
void PreferencesGeneralPane::show_adjustment(const Result<>& done) {
    m_controls.m_adj_system->setEnabled(true);
    say(done ? QString() : in_words(done.error()), !done);
    if (done)
        return;
    m_parts.general.adj_system = !m_parts.general.adj_system;
    m_controls.m_adj_system->setChecked(m_parts.general.adj_system);
    save_settings();
    Q_EMIT changed();
}

void PreferencesGeneralPane::installChronyWake() {
    m_parts.general.install_wake = m_controls.m_install_wake->isChecked();
    save_settings();
    Q_EMIT changed();
    update_wake();
    if (!m_parts.has_helper)
        return;
    //: General preferences: said after the box "Install chronywake" was ticked, about the button Apply
    const QString installs = tr("Apply installs chronywake.");
    //: General preferences: said after that box was cleared
    const QString removes = tr("Apply removes chronywake.");
    say(m_parts.general.install_wake ? installs : removes);
}

void PreferencesGeneralPane::update_wake() {
    const bool wanted = m_parts.general.install_wake;
    for (auto* field : {m_controls.m_make_thresh, m_controls.m_make_limit, m_controls.m_burst_good,
                        m_controls.m_burst_max, m_controls.m_burst_netmask})
        field->setEnabled(wanted);
    const bool able = m_parts.has_helper;
    //: General preferences: tooltip of a button that needs the root helper
    const QString absent = tr("This version cannot do it: it has no root helper");
    // Also without chronywake: the job then removes it.
    m_controls.saveArguments->setEnabled(able && !m_saving && m_controls.wake_words->text().isEmpty());
    //: General preferences: tooltip of the button that saves the arguments of chronywake
    m_controls.saveArguments->setToolTip(able ? tr("Install chronywake's job with these arguments, or remove it")
                                              : absent);
    m_controls.m_test_wake->setEnabled(wanted && able && !m_testing);
    //: General preferences: tooltip of the button that runs chronywake
    m_controls.m_test_wake->setToolTip(able ? tr("Run chronywake once and see what it answers") : absent);
}

void PreferencesGeneralPane::saveArguments() {
    save_settings();
    if (!m_parts.has_helper)
        return;
    m_saving = true;
    update_wake();
    Q_EMIT wake_service_wanted();
}

void PreferencesGeneralPane::show_wake_service(const Result<>& done) {
    m_saving = false;
    update_wake();
    if (!done)
        return say(in_words(done.error()), true);
    //: General preferences: said when chronywake runs as a service with the arguments in the window
    const QString installed = tr("chronywake is installed with these arguments.");
    //: General preferences: said after the button Apply
    const QString removed = tr("chronywake is removed.");
    say(m_parts.general.install_wake ? installed : removed);
}

void PreferencesGeneralPane::testChronywake() {
    if (!m_parts.has_helper || m_testing)
        return;
    m_testing = true;
    m_controls.m_testing_wake->show();
    update_wake();
    Q_EMIT wake_test_wanted();
}

void PreferencesGeneralPane::show_wake_test(const Result<std::string>& answer) {
    m_testing = false;
    m_controls.m_testing_wake->hide();
    update_wake();
    const QString words = answer ? from_std(std::string(trimmed(*answer))) : in_words(answer.error());
    const bool good = answer && words == QLatin1String("200 OK");
    //: alert after a test of chronywake: title
    auto* box =
        alert(tr("chronywake"), good
                                    //: alert after a test of chronywake
                                    ? tr("chronywake works: chronyd has set the clock right.")
                                    : /*: alert after a test of chronywake */ tr("chronywake did not succeed."));
    if (!good)
        //: alert after a test of chronywake that gave no answer
        box->setInformativeText(words.isEmpty() ? tr("It gave no answer.") : words);
    box->setObjectName(QStringLiteral("chronywake_alert"));
    box->setIcon(good ? QMessageBox::Information : QMessageBox::Critical);
    //: button of an alert
    box->addButton(tr("Dismiss"), QMessageBox::AcceptRole);
    box->open();
}

void PreferencesGeneralPane::restoreDefaults() {
    Q_EMIT defaults_wanted();
    show_record();
    save_settings();
    Q_EMIT changed();
    //: General preferences: said after the button Restore Defaults
    say(tr("The defaults are back."));
}

void PreferencesGeneralPane::resetWarnings() {
    m_parts.warnings.resetWarnings();
    //: General preferences: said after the button Reset Warnings
    say(tr("Every warning is shown again."));
}

void PreferencesGeneralPane::say(const QString& text, bool alarmed) {
    m_controls.status->setText(text);
    set_alarmed(m_controls.status, alarmed);
}

QMessageBox* PreferencesGeneralPane::alert(const QString& title, const QString& text) {
    auto* box = new QMessageBox(QMessageBox::Warning, title, text, QMessageBox::NoButton, window());
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::WindowModal);
    return box;
}

} // namespace tickervantage
