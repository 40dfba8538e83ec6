#include "app/watcher.h"

#include "app/bring_to_front.h"
#include "chrony/reports/current_frequency.h"
#include "chrony/truth/headline.h"
#include "gui/main/tickervantage_window.h"
#include "gui/main/verdict_sign.h"
#include "qt/in_words.h"
#include "settings/settings_catalogue.h"
#include "watch/alarm_words.h"
#include "watch/watch_settings.h"

#include <QApplication>
#include <QEvent>
#include <QMenu>
#include <QPainter>
#include <QPixmap>
#include <QStringList>
#include <QSystemTrayIcon>

#include <utility>

namespace tickervantage {
namespace {

constexpr const char* listener_name = "watcher";
constexpr const char* told_of_tray = "KeepsWatching"; // in the register of what was said

QIcon icon_of(Verdict verdict) {
    constexpr int side = 64;
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint_sign(painter, sign_of(verdict), side);
    painter.end();
    return picture;
}

} // namespace

Watcher::Watcher(WatcherParts parts)
    : m_parts(std::move(parts)), m_asleep(m_parts.clock().asleep),
      m_engine(watch_rules(load_thresholds(m_parts.settings)), m_parts.clock().now, WatchEngine::usual_grace,
               load_memory(m_parts.settings)) {
    connect(&m_parts.window, &TickervantageWindow::truth_shown, this,
            [this](const std::shared_ptr<const ClockTruth>& truth) { look(*truth); });
    connect(&m_parts.window, &TickervantageWindow::quiet_wanted, this, &Watcher::be_quiet);
    m_parts.window.installEventFilter(this);
    settings_changed();
}

Watcher::~Watcher() {
    m_parts.broadcast.RemoveListener(std::string(current_frequency_key), listener_name);
}

void Watcher::settings_changed() {
    m_engine.change(watch_rules(load_thresholds(m_parts.settings)));
    const bool wanted = load(m_parts.settings, settings::watch_tray);
    if (wanted && !m_tray)
        make_tray();
    else if (!wanted)
        m_tray.reset();
    follow_tray();
}

bool Watcher::keeps_running() const {
    return m_tray && QSystemTrayIcon::isSystemTrayAvailable();
}

// At login a desktop's tray may come up after this program: the icon waits for it. Without a tray there would be no way
// back to a closed window.
void Watcher::follow_tray() {
    QApplication::setQuitOnLastWindowClosed(!keeps_running());
    // Whoever listens for readings gets them, whether a window is seen or not.
    if (keeps_running())
        m_parts.broadcast.AddListener(std::string(current_frequency_key), listener_name,
                                      [](std::string_view, const std::any&) {});
    else
        m_parts.broadcast.RemoveListener(std::string(current_frequency_key), listener_name);
}

void Watcher::look(const ClockTruth& truth) {
    const BootTime time = m_parts.clock();
    constexpr double least_sleep = 10; // s
    if (time.asleep - std::exchange(m_asleep, time.asleep) > least_sleep)
        m_engine.resumed(time.now);
    m_seen = observe(truth.reports, truth.sources, truth.budget);
    if (m_engine.observe(m_seen, time.now))
        tell();
    m_parts.window.show_alarm(alarm_words()); // its numbers go on
    if (!m_tray)
        return;
    follow_tray();
    show_tray(truth);
}

QString Watcher::alarm_words() const {
    QStringList sentences;
    for (const WatchRule& rule : m_engine.told())
        sentences.append(in_words(alarm_sentence(rule, m_seen)));
    return sentences.join(QLatin1Char('\n'));
}

void Watcher::tell() {
    save(m_parts.settings, m_engine.memory());
    const QString words = alarm_words();
    m_parts.window.show_alarm(words);
    if (m_parts.notifier == nullptr)
        return;
    if (words.isEmpty() || !load(m_parts.settings, settings::watch_notify)) {
        if (std::exchange(m_is_told, false))
            m_parts.notifier->withdraw();
        return;
    }
    m_is_told = true;
    //: notification of the desktop: its title
    m_parts.notifier->show({.title = tr("The clock needs attention").toStdString(),
                            .text = words.toStdString(),
                            .is_critical = m_engine.told().front().severity == WatchSeverity::critical});
}

void Watcher::be_quiet() {
    m_engine.be_quiet();
    tell();
}

void Watcher::make_tray() {
    m_menu = std::make_unique<QMenu>();
    //: menu of the icon in the tray
    QObject::connect(m_menu->addAction(tr("&Show Tickervantage")), &QAction::triggered, this,
                     [this] { bring_to_front(m_parts.window); });
    //: menu of the icon in the tray
    QObject::connect(m_menu->addAction(tr("&Quit")), &QAction::triggered, qApp, &QCoreApplication::quit);
    m_tray = std::make_unique<QSystemTrayIcon>(icon_of(Verdict::unavailable));
    m_tray->setContextMenu(m_menu.get());
    connect(m_tray.get(), &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger)
            bring_to_front(m_parts.window);
    });
    m_tray->show();
}

void Watcher::show_tray(const ClockTruth& truth) {
    const Headline words = headline(truth.reports, truth.budget, truth.expected);
    m_tray->setIcon(icon_of(truth.verdict));
    m_tray->setToolTip(in_words(words.name) + QLatin1Char('\n') + in_words(words.error));
}

bool Watcher::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Close) {
        follow_tray();
        if (keeps_running())
            say_once_that_it_goes_on();
    }
    return QObject::eventFilter(watched, event);
}

void Watcher::say_once_that_it_goes_on() {
    if (m_parts.warnings.contains(told_of_tray))
        return;
    m_parts.warnings.register_warning(told_of_tray);
    m_tray->showMessage(QStringLiteral("Tickervantage"),
                        //: message beside the icon in the tray, when the main window is closed for the first time
                        tr("The clock is still being watched. This icon shows how it is and brings the window back; "
                           "its menu ends the program."));
}

} // namespace tickervantage
