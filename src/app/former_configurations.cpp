#include "app/former_configurations.h"

#include "app/alert_sheet.h"
#include "gui/administration/kept_configurations_window.h"
#include "linux/user_name.h"

#include <QCoreApplication>

#include <utility>

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

void bring_back(const FormerConfigurationsParts& parts, const std::string& text,
                std::function<void(std::string sentence)> done) {
    AdminRequest request{AdminJob::restore_config};
    request.configuration = text;
    parts.jobs.run(request, [parts, done = std::move(done)](const JobResult& result) {
        if (result.done || !result.sentence.empty()) // rights that were refused were reported already
            done(result.sentence);
        parts.changed();
    });
}

void show_window(const FormerConfigurationsParts& parts) {
    const auto restore = [parts](QWidget* window, const std::string& text, auto done) {
        show_question(window, question(parts.configuration()), [parts, text, done](std::size_t button) {
            if (button == 0)
                bring_back(parts, text, done);
        });
    };
    auto* window = new KeptConfigurationsWindow(
        {.queue = parts.queue,
         .main_thread = parts.main_thread,
         .probes = {.file_names = parts.probes.file_names, .read_file = parts.probes.read_file},
         .user_name = user_name,
         .configuration = parts.configuration,
         .restore = restore},
        parts.window());
    window->load();
    window->show(); // deletes itself
}

} // namespace

void connect_former_configurations_item(const FormerConfigurationsParts& parts, const ApplicationMenus& menus) {
    menus.on("formerConfigurations", [parts] { show_window(parts); });
}

} // namespace tickervantage
