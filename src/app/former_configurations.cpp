#include "app/former_configurations.h"

#include "app/alert_sheet.h"
#include "gui/administration/kept_configurations_window.h"
#include "gui/main/tickervantage_window.h"
#include "settings/preferences.h"

#include <QCoreApplication>
#include <QPointer>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(administration)
};

Alert question(const std::string& configuration) {
    return {.identifier = "RestoreConfiguration",
            //: question before a former configuration is installed again
            .message = Texts::tr("Bring back this configuration?").toStdString(),
            //: question before a former configuration is installed again: %1 is a path
            .informative = Texts::tr("Configuration file %1 will be overwritten and chronyd will be restarted.\n\n"
                                     "What is installed now stays in the list.")
                               .arg(QString::fromStdString(configuration))
                               .toStdString(),
            //: buttons of that question
            .buttons = {Texts::tr("Bring Back").toStdString(), Texts::tr("Cancel").toStdString()}};
}

// The window may have gone when the job comes to its end.
void bring_back(const FormerConfigurationsParts& parts, const QPointer<KeptConfigurationsWindow>& window,
                const std::string& text) {
    parts.jobs.run({.job = AdminJob::restore_config, .configuration = text}, [parts, window](const JobResult& result) {
        if (window && (result.outcome || is_untold_failure(result.outcome)))
            window->show_outcome(result.outcome);
        parts.window.cycle().refresh();
    });
}

void show_window(const FormerConfigurationsParts& parts) {
    const std::string path = parts.general.config;
    auto* window = new KeptConfigurationsWindow(
        {.queue = parts.queue, .main_thread = parts.main_thread, .machine = parts.machine, .configuration = path},
        &parts.window);
    QObject::connect(window, &KeptConfigurationsWindow::wanted, window, [parts, window, path](const std::string& text) {
        show_question(window, question(path), [parts, window = QPointer(window), text](std::size_t button) {
            if (button == 0)
                bring_back(parts, window, text);
        });
    });
    window->load();
    window->show(); // deletes itself
}

} // namespace

void connect_former_configurations_item(const FormerConfigurationsParts& parts, const ApplicationMenus& menus) {
    menus.on("formerConfigurations", [parts] { show_window(parts); });
}

} // namespace tickervantage
