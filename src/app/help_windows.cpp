#include "app/help_windows.h"

#include "app/bring_to_front.h"
#include "gui/common/desktop_links.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include <array>
#include <utility>

namespace tickervantage {
namespace {

struct PageOfWindow {
    const char* window; // its object name
    const char* page;
};

constexpr auto correcting_at_once = "faq#how-do-i-correct-the-clock-at-once-safely";

constexpr std::array<PageOfWindow, 14> pages{{{"HistoryWindow", "windows#history-of-the-clock"},
                                              {"LaboratoryWindow", "laboratory"},
                                              {"TrackingWindow", "windows#tracking-graph"},
                                              {"SpectrumWindow", "windows#spectrum"},
                                              {"FreqTempWindow", "windows#frequency-and-temperature"},
                                              {"SensorInspector", "windows#sensor-inspector"},
                                              {"ServersWindow", "windows#servers"},
                                              {"ConfigEditor", "windows#configuration-editor"},
                                              {"Preferences", "windows#preferences"},
                                              {"HelpViewer", "windows#help"},
                                              {"ReportWindow", "windows#main-window"},
                                              {"KeptConfigurations", "windows#former-configurations"},
                                              {"Synchronize", correcting_at_once},
                                              {"StepTime", correcting_at_once}}};

constexpr const char* first_page = "first-use";

QString page_of(const QObject& window) {
    for (const auto& entry : pages)
        if (window.objectName() == QLatin1String(entry.window))
            return QLatin1String(entry.page);
    return QLatin1String(first_page);
}

} // namespace

HelpWindows::HelpWindows(HelpWindowsParts parts) : m_parts(std::move(parts)) {
    QCoreApplication::instance()->installEventFilter(this);
}

HelpWindows::~HelpWindows() = default;

void HelpWindows::show(const QString& page) {
    if (!m_viewer) {
        m_viewer = std::make_unique<HelpViewer>(HelpViewerParts{.pages = std::make_shared<HelpPages>(m_parts.sources),
                                                                .queue = m_parts.queue,
                                                                .main_thread = m_parts.main_thread});
        connect(m_viewer.get(), &HelpViewer::address_requested, this,
                [](const QString& address) { (void)open_page(address); }); // silent by design
    }
    m_viewer->open_page(page);
    bring_to_front(*m_viewer);
}

void HelpWindows::connect_items(const ApplicationMenus& menus) {
    constexpr std::array<std::pair<const char*, const char*>, 7> items{{{"helpFirstUse", first_page},
                                                                        {"helpWindows", "windows"},
                                                                        {"helpChronyConf", "chrony.conf"},
                                                                        {"helpChronyc", "chronyc"},
                                                                        {"helpChronyd", "chronyd"},
                                                                        {"helpChronywake", "chronywake"},
                                                                        {"helpFAQ", "faq"}}};
    for (const auto& [name, page] : items)
        menus.on(name, [this, page = QString(QLatin1String(page))] { show(page); });
}

bool HelpWindows::eventFilter(QObject* receiver, QEvent* event) {
    // What no control wanted arrives at the window at last.
    if (event->type() != QEvent::KeyPress || !receiver->isWidgetType() || !static_cast<QWidget*>(receiver)->isWindow())
        return QObject::eventFilter(receiver, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    const auto* modal = QApplication::activeModalWidget();
    const bool would_be_blocked = modal != nullptr && modal->windowModality() == Qt::ApplicationModal;
    if (key->key() != Qt::Key_F1 || key->modifiers() != Qt::NoModifier || would_be_blocked)
        return QObject::eventFilter(receiver, event);
    show(page_of(*receiver));
    return true;
}

} // namespace tickervantage
